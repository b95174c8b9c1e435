#!/usr/bin/env bash
# Installs every Debian package Brindlequay needs to build, test and run.
# Safe to run again: it does nothing (quietly) when all is present.
# EGL is for headless runs: SDL's offscreen video driver makes its OpenGL
# context through EGL.
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  libsdl1.2-compat-dev libsdl-mixer1.2-dev libdevil-dev libtinyxml-dev zlib1g-dev
  libgl-dev libglu1-mesa-dev libgl1-mesa-dri
  libegl1 libegl-mesa0 libgles2
  libgtest-dev libgmock-dev libbenchmark-dev libbox2d-dev
  xvfb xauth xdotool x11-utils
  gcovr
  python3 python3-pil python3-numpy
  ttf-bitstream-vera zip unzip vorbis-tools
  desktop-file-utils appstream
  tiled
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
