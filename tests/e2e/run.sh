#!/usr/bin/env bash
# Runs the end-to-end scenarios (all, or those named; "pictures" takes the manual's) on the x86_64 build
# under Wine in a virtual X server, each in a fresh folder holding velok3.exe (release-folder: the release
# zip unpacked), driven by velok3-e2e-driver.exe; screenshots in build/e2e/shots/.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tests/e2e/wine_env.sh
root="$PWD/build/e2e" driver="$PWD/build/win64/velok3-e2e-driver.exe"

if [ -z "${VELOK3_E2E_IN_X:-}" ]; then
  cmake --preset win64 >/dev/null
  cmake --build --preset win64 --target velok3 velok3-e2e-driver
  if [ $# -eq 0 ] || printf '%s\n' "$@" | grep -qx release-folder; then
    rm -rf "$root/release" && bash tools/release.sh win64 "$root/release"
  fi
  wine_env "$root" && wine_prefix
  # One X server for the whole run; this script runs again inside it.
  VELOK3_E2E_IN_X=1 exec timeout 1500 xvfb-run -a -s "-screen 0 1024x768x24 -nolisten tcp" bash "$0" "$@"
fi

wine_env "$root"
mkdir -p "$root/logs" "$root/shots" "$root/work"
# A persistent server makes every later start cheap; it must not outlive the run.
trap 'timeout 30 "$WINESERVER" -k >/dev/null 2>&1 || true' EXIT
timeout 30 "$WINESERVER" -p
timeout 120 "$WINE" wineboot </dev/null >"$root/logs/warm-up.txt" 2>&1 || true
scenarios=("$@") # by default all those of the driver's table in main.cpp, but the pictures
[ $# -gt 0 ] || mapfile -t scenarios < <(grep -o '{"[a-z-]*"' tests/e2e/driver/main.cpp | tr -d '{"' | grep -vx pictures)

passed=0 failed=0
for scenario in "${scenarios[@]}"; do
  work="$root/work/$scenario" shots="$root/shots/$scenario" log="$root/logs/$scenario.txt"
  rm -rf "$work" "$shots" && mkdir -p "$work" "$shots"
  if [ "$scenario" = release-folder ]; then
    unzip -q "$root"/release/velok3-*-win64.zip -d "$work" && work="$work/Velok-3"
  else
    cp build/win64/velok3.exe "$work/"
  fi
  started=$(date +%s) status=0
  (cd "$work" && timeout 600 "$WINE" "$driver" "$scenario" "$(winepath_of "$shots")" </dev/null >"$log" 2>&1) ||
    status=$?
  sed -i 's/\r//g' "$log" && cat "$log"
  passes=$(grep -c '^PASS ' "$log" || true) fails=$(grep -c '^FAIL ' "$log" || true)
  if [ "$status" -ne 0 ] && [ "$fails" -eq 0 ]; then # stopped by its time limit, or crashed
    echo "FAIL $scenario: the driver ended with status $status without a verdict" && fails=1
    import -window root "$shots/driver-stopped.png" 2>/dev/null || true
  fi
  for bmp in "$shots"/*.bmp; do [ -e "$bmp" ] && convert "$bmp" "${bmp%.bmp}.png" && rm -f "$bmp"; done
  echo "-- $scenario: $passes passed, $fails failed, $(($(date +%s) - started)) s"
  passed=$((passed + passes)) failed=$((failed + fails))
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ ${#scenarios[@]} -gt 0 ]
