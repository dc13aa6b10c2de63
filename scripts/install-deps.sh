#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, if any is missing.
set -euo pipefail

packages=(
    build-essential cmake
    qtbase5-dev qtmultimedia5-dev libqt5multimedia5-plugins
    gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
    qttranslations5-l10n
    xvfb xauth zip unzip libxml2-utils
    chromium nodejs
)
# npm comes with some builds of nodejs; Debian's own nodejs needs the npm package beside it.
command -v npm >/dev/null 2>&1 || packages+=(npm)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        sudo="sudo"
    fi
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The browser tests' own packages (puppeteer-core drives the installed chromium; nothing is
# downloaded besides the npm packages themselves).
web="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/tests/web"
if [ ! -d "$web/node_modules" ]; then
    (cd "$web" && npm ci --no-audit --no-fund --loglevel=error)
fi
