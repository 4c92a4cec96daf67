#!/usr/bin/env bash
# Compiles the user manual (docs/manual, HTML) into velok-3.chm with chmcmd of Free Pascal.
# Usage: tools/build_manual.sh [output folder]; the default is build/manual. Any warning of the
# compiler (a missing page or picture, a broken link) fails the build.
set -euo pipefail
cd "$(dirname "$0")/.."
out=$(realpath -m "${1:-build/manual}")

if ! command -v chmcmd >/dev/null; then
  echo "manual: chmcmd not found; it comes with Debian's fp-utils (tools/setup.sh installs it)" >&2
  exit 1
fi

# chmcmd leaves out, without a word, a page that no list names and no page links to.
for page in docs/manual/*.html; do
  name=$(basename "$page")
  for list in velok-3.hhp contents.hhc; do
    if ! grep -q "$name" "docs/manual/$list"; then
      echo "manual: $name is not named in docs/manual/$list" >&2
      exit 1
    fi
  done
done

# chmcmd writes beside the project file, so it works on a copy and never in the source tree.
stage="$out/source"
rm -rf "$stage"
mkdir -p "$stage"
cp -r docs/manual/. "$stage/"
log="$out/chmcmd.log"
status=0
(cd "$stage" && chmcmd --html-scan velok-3.hhp) >"$log" 2>&1 || status=$?
if [ "$status" -ne 0 ] || grep -Eiq '^(warning|error|fatal)' "$log"; then
  grep -Ei '^(warning|error|fatal)' "$log" >&2 || cat "$log" >&2
  echo "manual: chmcmd reported the problems above (exit status $status)" >&2
  exit 1
fi
mv "$stage/velok-3.chm" "$out/velok-3.chm"
echo "manual: $out/velok-3.chm"
