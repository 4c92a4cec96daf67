#!/usr/bin/env bash
# Runs every fuzz target of a build folder for about 30 seconds each, on a fresh copy of its
# committed corpus, and fails on any crash, leak or sanitizer report. Usage: run.sh <build folder>
set -euo pipefail

build=${1:?usage: run.sh <build folder>}
here=$(cd "$(dirname "$0")" && pwd)
seconds=${VELOK3_FUZZ_SECONDS:-30}
status=0
found=0

for target in "$build"/fuzz_*; do
  [ -x "$target" ] && [ -f "$target" ] || continue
  found=1
  name=$(basename "$target")
  work="$build/fuzz-work/$name"
  rm -rf "$work"
  mkdir -p "$work/corpus" "$work/artifacts"
  if [ -d "$here/corpus/$name" ]; then cp "$here/corpus/$name"/* "$work/corpus/"; fi
  log="$work/log.txt"

  rc=0
  "$target" -max_total_time="$seconds" -max_len=4096 -artifact_prefix="$work/artifacts/" \
    "$work/corpus" >"$log" 2>&1 || rc=$?

  runs=$(grep -oE 'Done [0-9]+ runs' "$log" | tail -n 1 | grep -oE '[0-9]+' || true)
  if [ "$rc" -ne 0 ] || grep -qE 'ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer)|runtime error:|SUMMARY: ' "$log"; then
    echo "$name: FAILED (exit $rc); log and artifacts in $work"
    grep -E 'ERROR|runtime error|SUMMARY|deadly signal' "$log" | head -n 20 || true
    status=1
  else
    echo "$name: ${runs:-?} inputs in ${seconds} s, corpus $(ls "$work/corpus" | wc -l) files, no findings"
  fi
done

if [ "$found" -eq 0 ]; then
  echo "no fuzz targets in $build" >&2
  exit 1
fi
exit "$status"
