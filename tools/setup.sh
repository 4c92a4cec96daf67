#!/usr/bin/env bash
# Installs every Debian package that building, running and testing Velok-3 needs.
# Idempotent: packages already present are skipped; uses sudo when not run as root.
set -euo pipefail

packages=(
  cmake ninja-build g++ g++-multilib clang libclang-rt-14-dev libgtest-dev libbenchmark-dev
  g++-mingw-w64-i686 g++-mingw-w64-x86-64 binutils-mingw-w64-i686 binutils-mingw-w64-x86-64
  wine64 xvfb xdotool imagemagick x11-apps
  python3 python3-pil fonts-dejavu-core fonts-wine fonts-texgyre fp-utils zip unzip
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "setup: all packages present"
  exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
echo "setup: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
