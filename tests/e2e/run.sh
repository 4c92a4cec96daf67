#!/usr/bin/env bash
# Runs the end-to-end scenarios: the real Windows program (its x86_64 build) under Wine in a
# virtual X server, driven as a user would by velok3-e2e-driver.exe. Names given as arguments
# pick scenarios; without them all run. Screenshots land in build/e2e/shots/<scenario>/.
# Each scenario runs in a fresh folder holding only velok3.exe, but for release-folder, whose
# folder is the release zip (tools/release.sh, in its x86_64 form) unpacked.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tests/e2e/wine_env.sh
root="$PWD/build/e2e"
driver="$PWD/build/win64/velok3-e2e-driver.exe"
program="$PWD/build/win64/velok3.exe"

if [ -z "${VELOK3_E2E_IN_X:-}" ]; then
  cmake --preset win64 >/dev/null
  cmake --build --preset win64 --target velok3 velok3-e2e-driver
  if [ $# -eq 0 ] || printf '%s\n' "$@" | grep -qx release-folder; then
    rm -rf "$root/release"
    bash tools/release.sh win64 "$root/release"
  fi
  wine_env "$root"
  wine_prefix
  # One X server for the whole run; this script runs again inside it.
  VELOK3_E2E_IN_X=1 exec timeout 1500 xvfb-run -a -s "-screen 0 1024x768x24 -nolisten tcp" bash "$0" "$@"
fi

wine_env "$root"
mkdir -p "$root/logs" "$root/shots" "$root/work"
# A persistent server makes every later start cheap; it must not outlive the run.
trap 'timeout 30 "$WINESERVER" -k >/dev/null 2>&1 || true' EXIT
timeout 30 "$WINESERVER" -p
timeout 120 "$WINE" wineboot </dev/null >"$root/logs/warm-up.txt" 2>&1 || true

if [ $# -gt 0 ]; then
  scenarios=("$@")
else
  if ! timeout 60 "$WINE" "$driver" list </dev/null >"$root/logs/list.txt" 2>"$root/logs/list.err"; then
    echo "e2e: the driver does not start under Wine, see $root/logs/list.err"
    echo "0 passed, 1 failed"
    exit 1
  fi
  mapfile -t scenarios < <(tr -d '\r' <"$root/logs/list.txt")
fi

passed=0
failed=0
for scenario in "${scenarios[@]}"; do
  # A fresh folder each time: no settings file, no Save folder, no skin files.
  work="$root/work/$scenario" shots="$root/shots/$scenario" log="$root/logs/$scenario.txt"
  rm -rf "$work" "$shots"
  mkdir -p "$work" "$shots"
  if [ "$scenario" = release-folder ]; then
    zips=("$root"/release/velok3-*-win64.zip)
    unzip -q "${zips[0]}" -d "$work"
    work="$work/Velok-3"
  else
    cp "$program" "$work/velok3.exe"
  fi
  started=$(date +%s)
  status=0
  (cd "$work" && timeout 600 "$WINE" "$driver" "$scenario" "$(winepath_of "$shots")" \
    </dev/null >"$log" 2>"$root/logs/$scenario.err") || status=$?
  tr -d '\r' <"$log" >"$log.tmp" && mv "$log.tmp" "$log"
  cat "$log"
  passes=$(grep -c '^PASS ' "$log" || true)
  fails=$(grep -c '^FAIL ' "$log" || true)
  if [ "$status" -ne 0 ] && [ "$fails" -eq 0 ]; then
    # The driver itself was stopped (time limit) or crashed: keep what the screen showed.
    echo "FAIL $scenario: the driver ended with status $status without a verdict"
    import -window root "$shots/driver-stopped.png" 2>/dev/null || true
    fails=1
    timeout 30 "$WINESERVER" -k >/dev/null 2>&1 || true
    timeout 30 "$WINESERVER" -p
  fi
  for bmp in "$shots"/*.bmp; do
    [ -e "$bmp" ] && convert "$bmp" "${bmp%.bmp}.png" && rm -f "$bmp"
  done
  echo "-- $scenario: $passes passed, $fails failed, $(($(date +%s) - started)) s"
  passed=$((passed + passes))
  failed=$((failed + fails))
done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
