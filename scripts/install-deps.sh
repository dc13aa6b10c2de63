#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, if any is missing.
set -euo pipefail

packages=(
    build-essential cmake
    qtbase5-dev qtmultimedia5-dev libqt5multimedia5-plugins
    gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
    qttranslations5-l10n
    xvfb xauth zip libxml2-utils
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
if [ "$(id -u)" -ne 0 ]; then
    sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
