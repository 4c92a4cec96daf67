#!/usr/bin/env bash
# Sets up, builds and starts the program's main job.
set -euo pipefail
cd "$(dirname "$0")/.."

bash tools/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release -j "$(nproc)" --target velok3-demo
./build/release/velok3-demo "$@"
