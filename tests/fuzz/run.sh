#!/usr/bin/env bash
# Runs every fuzz target of a build folder for VELOK3_FUZZ_SECONDS (30) seconds each, one after
# the other, on a fresh copy of its committed corpus; prints the inputs run and the findings
# (crash, leak, sanitizer report, or an input that takes over 30 s) and fails on any finding.
# Usage: run.sh <build folder>
set -euo pipefail

build=${1:?usage: run.sh <build folder>}
here=$(cd "$(dirname "$0")" && pwd)
seconds=${VELOK3_FUZZ_SECONDS:-30}
status=0

ls "$build"/fuzz_* >/dev/null || { echo "no fuzz targets in $build" >&2; exit 1; }
for target in "$build"/fuzz_*; do
  [ -x "$target" ] && [ -f "$target" ] || continue
  name=$(basename "$target")
  work="$build/fuzz-work/$name"
  rm -rf "$work"
  mkdir -p "$work/corpus" "$work/artifacts"
  cp "$here/corpus/$name"/* "$work/corpus/" 2>/dev/null || true
  log="$work/log.txt"

  # Standard output is closed (-close_fd_mask=1): the UCI target writes the engine's answers there.
  rc=0
  "$target" -max_total_time="$seconds" -max_len=4096 -timeout=30 -close_fd_mask=1 \
    -artifact_prefix="$work/artifacts/" "$work/corpus" >"$log" 2>&1 || rc=$?

  runs=$(grep -oE '^(#[0-9]+|Done [0-9]+ runs)' "$log" | tail -n 1 | grep -oE '[0-9]+' || true)
  findings=$(ls "$work/artifacts" | wc -l)
  if [ "$rc" -ne 0 ] || [ "$findings" -ne 0 ] || grep -qE 'ERROR: |runtime error:' "$log"; then
    echo "$name: FAILED (exit $rc), ${runs:-?} inputs, $findings findings; log and inputs in $work"
    grep -E 'ERROR|runtime error|SUMMARY|deadly signal|timeout' "$log" | head -n 20 || true
    status=1
  else
    echo "$name: ${runs:-?} inputs in ${seconds} s, corpus $(ls "$work/corpus" | wc -l) files, 0 findings"
  fi
done
exit "$status"
