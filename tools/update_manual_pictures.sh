#!/usr/bin/env bash
# Takes the user manual's pictures anew from the running program under Wine (the driver's command
# "pictures", tests/e2e/driver/main.cpp) and copies them into docs/manual/images/. A new picture
# is taken there under the name that the manual's page uses in its <img src="images/NAME.png">.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tests/e2e/run.sh pictures
shots=build/e2e/shots/pictures
# Pictures have plain names; screenshots of failed checks start with their number.
pictures=("$shots"/[a-z]*.png)
if [ ! -e "${pictures[0]}" ]; then
  echo "manual pictures: none were taken in $shots" >&2
  exit 1
fi
mkdir -p docs/manual/images
for picture in "${pictures[@]}"; do
  # Without the time stamps, an unchanged picture gives the same file and no change to commit.
  convert "$picture" -strip "docs/manual/images/$(basename "$picture")"
done
echo "manual pictures: ${#pictures[@]} copied to docs/manual/images"
