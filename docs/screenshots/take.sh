#!/usr/bin/env bash
# Takes the pictures of this folder anew: builds takescreenshots, which works the program's own windows, and runs it
# without a display. ./run or ./check have installed what it needs.
# docs/screenshots/take.sh [TREE]      TREE is the build tree, build/release by default
set -euo pipefail
cd "$(dirname "$0")/../.."
tree=${1:-build/release}
cmake -S . -B "$tree" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$tree" --target takescreenshots
# Pictures that are no longer taken shall not stay.
rm -f docs/screenshots/ru/*.png docs/screenshots/en/*.png
QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC "$tree/bin/takescreenshots" docs/screenshots 2>"$tree/takescreenshots.log" ||
    { cat "$tree/takescreenshots.log" >&2; exit 1; }
