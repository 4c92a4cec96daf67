#!/usr/bin/env bash
# Takes the user manual's pictures anew from the running program (end-to-end scenario
# manual-shots, under Wine) and copies them into docs/manual/images/. Commit the changed PNGs.
# A new picture: picture it in tests/e2e/driver/scenario_manual.cpp under the name that the
# manual's page uses in its <img src="images/NAME.png">; this script copies every picture.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tests/e2e/run.sh manual-shots
shots=build/e2e/shots/manual-shots
# The scenario's own pictures have plain names; screenshots of failed checks are numbered.
pictures=("$shots"/[a-z]*.png)
if [ ! -e "${pictures[0]}" ]; then
  echo "manual pictures: the scenario left no pictures in $shots" >&2
  exit 1
fi
mkdir -p docs/manual/images
for picture in "${pictures[@]}"; do
  # Without the time stamps, an unchanged picture gives the same file and no change to commit.
  convert "$picture" -strip "docs/manual/images/$(basename "$picture")"
done
echo "manual pictures: ${#pictures[@]} copied to docs/manual/images"
