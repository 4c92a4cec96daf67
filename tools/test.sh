#!/usr/bin/env bash
# Sets up, builds and runs every test: unit tests under ASan and UBSan with g++ and with clang,
# the fuzz targets for a bounded time, the 32-bit think timer against the recorded engine results,
# the release and both Windows builds, the release zip with the compiled manual, and the
# end-to-end tests of the real program under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

bash tools/setup.sh
jobs=$(nproc)

step() { printf '\n== %s ==\n' "$*"; }

step "native (g++, ASan + UBSan)"
cmake --preset native >/dev/null
cmake --build --preset native -j "$jobs"
ctest --preset native -j "$jobs"

step "native (clang, ASan + UBSan, fuzz targets)"
cmake --preset native-clang >/dev/null
cmake --build --preset native-clang -j "$jobs"
ctest --preset native-clang -j "$jobs"
if ls build/native-clang/fuzz_* >/dev/null 2>&1; then
  bash tests/fuzz/run.sh build/native-clang
fi

step "release (benchmarks and console programs)"
cmake --preset release >/dev/null
cmake --build --preset release -j "$jobs"

step "32-bit think timer (g++ -m32): levels 1 and 2 of the suite against the recorded results"
cmake --preset bench32 >/dev/null
cmake --build --preset bench32 -j "$jobs"
./build/bench32/velok3_think_timer 1 2

step "Windows cross builds (i686 shipped, x86_64 for Wine)"
for preset in win32 win64; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
done

step "release zip (i686 program, manual compiled without warnings)"
bash tools/release.sh win32

if [ -x tests/e2e/run.sh ]; then
  step "end to end under Wine, with the release folder unpacked from its x86_64 zip"
  bash tests/e2e/run.sh
fi

step "all tests passed"
