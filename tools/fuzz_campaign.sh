#!/usr/bin/env bash
# A longer fuzz campaign than the test run: builds the fuzz targets (clang, AddressSanitizer and
# UndefinedBehaviorSanitizer, checked buffer writes) and runs each for MINUTES minutes, one at a
# time at low priority; prints the inputs run and the findings per target.
# Usage: tools/fuzz_campaign.sh MINUTES
set -euo pipefail

minutes=${1:?usage: fuzz_campaign.sh MINUTES}
cd "$(dirname "$0")/.."
build=build/native-clang
[ -f "$build/build.ninja" ] || cmake --preset native-clang
targets=$(basename -s .cpp tests/fuzz/fuzz_*.cpp)
# shellcheck disable=SC2086
nice -n 5 cmake --build "$build" -j 2 --target $targets
VELOK3_FUZZ_SECONDS=$((minutes * 60)) nice -n 10 bash tests/fuzz/run.sh "$build"
