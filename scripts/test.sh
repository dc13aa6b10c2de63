#!/usr/bin/env bash
# Installs what is missing, builds the test suite with AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs it on a virtual screen of 1600x900.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build-tests"
"$root/scripts/install-deps.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DSELVORA_SANITIZE=ON -DSELVORA_TESTS=ON \
    -DSELVORA_BENCH=ON >/dev/null
cmake --build "$build" -j"$(nproc)"
export QT_QPA_PLATFORM=xcb
# No GL integration: Mesa's driver would be reported as a leak of an unknown module.
export QT_XCB_GL_INTEGRATION=none
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
cd "$build"
xvfb-run -a -s "-screen 0 1600x900x24" ctest --output-on-failure --timeout 900 "$@"
