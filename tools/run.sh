#!/usr/bin/env bash
# Sets up, builds and starts the game: the Windows program, in its x86_64 build, under Wine with
# a prefix of its own in build/wine, inside a virtual X server when there is no display.
set -euo pipefail
cd "$(dirname "$0")/.."

bash tools/setup.sh
cmake --preset win64 >/dev/null && cmake --build --preset win64 --target velok3
source tests/e2e/wine_env.sh
wine_env build/wine
wine_prefix

# The program keeps its settings, saved games and skins in the current folder: give it one.
mkdir -p build/wine/play
cp build/win64/velok3.exe build/wine/play/
cd build/wine/play
if [ -z "${DISPLAY:-}" ]; then
  echo "run: no DISPLAY, so Velok-3 runs inside xvfb-run on an invisible screen; stop it with Ctrl+C"
  exec xvfb-run -a -s "-screen 0 1024x768x24 -nolisten tcp" "$WINE" velok3.exe
fi
exec "$WINE" velok3.exe
