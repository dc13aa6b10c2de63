#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it. Arguments go to the program
# (one argument: a project file to open). With none, it opens the demo lesson of examples/,
# copied once into build/aula-exemplo so that a save never writes into the repository.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install-deps.sh"
cmake -S "$root" -B "$root/build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSELVORA_TESTS=OFF >/dev/null
cmake --build "$root/build" --target selvora -j"$(nproc)"
if [ $# -eq 0 ]; then
    demo="$root/build/aula-exemplo"
    # Copied only once: what the user changed and saved in it stays.
    [ -e "$demo" ] || cp -r "$root/examples/aula-exemplo" "$demo"
    set -- "$demo/aula-exemplo.svproj"
fi
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    # No desktop here: run on a virtual screen of the reference size.
    exec xvfb-run -a -s "-screen 0 1600x900x24" "$root/build/bin/selvora" "$@"
fi
exec "$root/build/bin/selvora" "$@"
