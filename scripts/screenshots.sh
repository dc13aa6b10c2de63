#!/usr/bin/env bash
# Remakes the pictures of the user guide (docs/guia/*.png): the first journey test, built
# without sanitizers, walks through a lesson on a virtual screen of 1600x900 and keeps a
# picture of the window at its main steps.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build-shots"
shots="$root/docs/guia"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DSELVORA_SANITIZE=OFF \
    -DSELVORA_TESTS=ON -DSELVORA_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target tst_journeys
mkdir -p "$shots"
rm -f "$shots"/*.png
export QT_QPA_PLATFORM=xcb
export QT_XCB_GL_INTEGRATION=none
export SELVORA_SHOTS_DIR="$shots"
xvfb-run -a -s "-screen 0 1600x900x24" "$build/tests/tst_journeys"
ls -l "$shots"
