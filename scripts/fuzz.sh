#!/usr/bin/env bash
# Builds the fuzz target of the project file with clang (libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) in build-fuzz and runs it, one process, on the seed corpus of
# tests/fuzz with the format's dictionary. Arguments go to libFuzzer; the default is
# -runs=100000. New inputs are kept in build-fuzz/corpus, crashes in build-fuzz/crashes.
# Not part of the CI run.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$root/build-fuzz"

"$root/scripts/install-deps.sh"
# Debian 12: clang 14, and libFuzzer in its runtime package.
missing=()
for package in clang libclang-rt-14-dev; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}"
fi

cmake -S "$root" -B "$build" -DSELVORA_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$build" --target fuzz_projectfile -j"$(nproc)"

mkdir -p "$build/corpus" "$build/crashes"
[ $# -eq 0 ] && set -- -runs=100000
export ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=1"
export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
cd "$build"
./tests/fuzz/fuzz_projectfile -dict="$root/tests/fuzz/project.dict" -max_len=65536 -timeout=10 \
    -rss_limit_mb=4096 -artifact_prefix="$build/crashes/" -print_final_stats=1 "$@" \
    "$build/corpus" "$root/tests/fuzz/corpus"
