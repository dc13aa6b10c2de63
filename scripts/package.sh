#!/usr/bin/env bash
# Builds the Debian package and checks it as a desktop sees it: validators, lintian, installation,
# the file type of .svproj files and its default program, and a start of the installed program on
# a sample project under Xvfb. Installs the package on this machine. Not part of CI.
#
#     bash scripts/package.sh [build folder]     (default: build-pkg)
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$(realpath -m "${1:-$root/build-pkg}")"
# The demo lesson: a project with media, as a user receives one.
sample="$root/examples/aula-exemplo"

step() { printf '\n== %s\n' "$*"; }
fail() {
    printf 'FALHOU: %s\n' "$*" >&2
    exit 1
}

sudo=""
if [ "$(id -u)" -ne 0 ]; then
    sudo="sudo"
fi

step "Pacotes necessários"
"$root/scripts/install-deps.sh"
tools=(desktop-file-utils appstream lintian shared-mime-info xdg-utils libfile-mimeinfo-perl
    dpkg-dev file gzip libxml2-utils xdotool x11-utils procps)
missing=()
for package in "${tools[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -gt 0 ]; then
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

step "Compilação (Release, com as opções de endurecimento do Debian) em $build"
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
# Given on every run, since CMake reads CXXFLAGS and LDFLAGS only when a build folder is new.
# CMake ignores CPPFLAGS: the fortify definition goes with the compiler flags.
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DSELVORA_TESTS=OFF -DSELVORA_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)" \
    -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)" >/dev/null
cmake --build "$build" -j"$(nproc)"

step "Pacote .deb"
rm -f "$build"/selvora_*.deb
(cd "$build" && cpack -G DEB)
deb="$(ls "$build"/selvora_*.deb)"
dpkg-deb --info "$deb"
dpkg-deb --contents "$deb"

step "desktop-file-validate"
desktop-file-validate "$root/packaging/example.corvane.selvora.desktop"
step "appstreamcli validate"
appstreamcli validate --no-net "$root/packaging/example.corvane.selvora.metainfo.xml"
step "Tipo MIME (XML bem formado)"
xmllint --noout "$root/packaging/selvora-mime.xml"
step "lintian"
lintian --fail-on error --display-info "$deb"

step "Instalação"
export DEBIAN_FRONTEND=noninteractive
# --reinstall: a package of the same version from an earlier run would be kept otherwise.
$sudo apt-get install -y -qq --reinstall "$deb"
installed="$(dpkg-query -W -f='${Version}' selvora)"
echo "selvora $installed instalado"
real="$(readlink -f "$(command -v selvora)")"
[ -f "$(dirname "$real")/QSS/selvora.css" ] || fail "a folha de estilo não está ao lado de $real"
echo "programa em $real, folha de estilo em $(dirname "$real")/QSS/selvora.css"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
# A home of its own: the user's associations and settings stay out of the checks.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION KDE_FULL_SESSION GNOME_DESKTOP_SESSION_ID
cp -r "$sample" "$work/Aula"
mv "$work/Aula/aula-exemplo.svproj" "$work/Aula/exemplo.svproj"
cp "$work/Aula/exemplo.svproj" "$work/Aula/sem-extensao"

step "Associação do tipo de arquivo"
type="$(xdg-mime query filetype "$work/Aula/exemplo.svproj")"
echo "exemplo.svproj: $type"
[ "$type" = "application/x-selvora-project" ] || fail "tipo de exemplo.svproj: $type"
type="$(xdg-mime query filetype "$work/Aula/sem-extensao")"
echo "sem-extensao (pelo DOCTYPE): $type"
[ "$type" = "application/x-selvora-project" ] || fail "tipo pelo conteúdo: $type"
default="$(xdg-mime query default application/x-selvora-project)"
echo "programa padrão: $default"
[ "$default" = "example.corvane.selvora.desktop" ] || fail "programa padrão: $default"

step "O programa instalado abre o projeto numa tela virtual"
# The window title is the project's folder and name; the program must still run once it shows.
cat >"$work/start.sh" <<'EOF'
set -u
project="$1"
selvora "$project" >"$WORK/program.log" 2>&1 &
program=$!
trap 'kill "$program" 2>/dev/null' EXIT
for _ in $(seq 1 300); do
    if ! kill -0 "$program" 2>/dev/null; then
        echo "o programa terminou antes de mostrar a janela" >&2
        exit 1
    fi
    window="$(xdotool search --onlyvisible --name "exemplo\.svproj" 2>/dev/null | head -n1)"
    [ -n "$window" ] && break
    sleep 0.1
done
[ -n "$window" ] || { echo "nenhuma janela com exemplo.svproj no título" >&2; exit 1; }
echo "janela: $(xdotool getwindowname "$window")"
xwininfo -root -tree | grep -F "exemplo.svproj" | head -n3
# A few seconds of running with the project open.
for _ in $(seq 1 30); do
    kill -0 "$program" 2>/dev/null || { echo "o programa terminou com a janela aberta" >&2; exit 1; }
    sleep 0.1
done
echo "o programa continua rodando (pid $program)"
EOF
WORK="$work" QT_XCB_GL_INTEGRATION=none xvfb-run -a -s "-screen 0 1600x900x24" \
    bash "$work/start.sh" "$work/Aula/exemplo.svproj" || {
    cat "$work/program.log" >&2
    fail "o programa instalado não abriu o projeto"
}

step "Tudo certo: $deb"
