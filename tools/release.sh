#!/usr/bin/env bash
# Packs the release zip that a Windows user unpacks and starts: the program, the UCI engine, the
# manual, the web shortcut, an empty Save folder, a SKIN folder with an example skin, a README
# and the artwork licences, all in one folder "Velok-3".
# Usage: tools/release.sh [win32|win64] [output folder]. win32 (the default) is the shipped i686
# build; win64 packs the x86_64 build the same way, for the end-to-end test under 64-bit Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-win32}
out=$(realpath -m "${2:-build/release-zip}")
case "$preset" in
  win32) format=pei-i386 strip=i686-w64-mingw32-strip ;;
  win64) format=pei-x86-64 strip=x86_64-w64-mingw32-strip ;;
  *) echo "release: unknown build '$preset' (win32 or win64)" >&2; exit 2 ;;
esac
version=$(sed -n 's/^project(Velok3 VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name="velok3-$version-$preset"

cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target velok3 velok3-uci
bash tools/build_manual.sh "$out/manual"

stage="$out/$name/Velok-3"
rm -rf "$out/$name" "$out/$name.zip"
mkdir -p "$stage/Save" "$stage/SKIN"
for exe in velok3 velok3-uci; do
  if ! objdump -f "build/$preset/$exe.exe" | grep -q "file format $format"; then
    echo "release: build/$preset/$exe.exe is not a $format program" >&2
    exit 1
  fi
  # A bare Windows has only its own libraries: a toolchain DLL here would stop the start.
  foreign=$(objdump -p "build/$preset/$exe.exe" | sed -n 's/^[[:space:]]*DLL Name: //p' |
    grep -viE '^(advapi32|comctl32|comdlg32|gdi32|kernel32|msimg32|msvcrt|shell32|user32)\.dll$' || true)
  if [ -n "$foreign" ]; then
    echo "release: build/$preset/$exe.exe needs libraries Windows does not have:" $foreign >&2
    exit 1
  fi
  "$strip" -o "$stage/$exe.exe" "build/$preset/$exe.exe"
done
cp "$out/manual/velok-3.chm" docs/release/drenu-4.url "$stage/"
cp resources/skins/extra/Marble.bmp "$stage/SKIN/"
# Notepad before Windows 10 shows a text without CR as one long line.
for text in docs/release/README.txt resources/skins/LICENSE-ARTWORK.txt; do
  sed 's/\r$//; s/$/\r/' "$text" >"$stage/$(basename "$text")"
done

# Every file carries the date of the last commit, so that a rebuild of the same sources gives
# the same zip.
export TZ=UTC
stamp=$(git log -1 --format=%cd --date=format-local:%Y%m%d%H%M.%S 2>/dev/null || date +%Y%m%d%H%M.%S)
find "$out/$name" -exec touch -t "$stamp" {} +
# Folders are listed too: the empty Save folder needs an entry of its own.
(cd "$out/$name" && find Velok-3 | LC_ALL=C sort | zip -X -q "$out/$name.zip" -@)
echo "release: $out/$name.zip"
