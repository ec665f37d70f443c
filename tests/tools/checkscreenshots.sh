#!/bin/bash
# checkscreenshots.sh PROGRAM FOLDER: takes the pictures into FOLDER, and expects the same names there, in docs/screenshots
# and on its page, in both languages. Run from the root of the source tree.
set -euo pipefail
program=${1:?usage: checkscreenshots.sh PROGRAM FOLDER} folder=${2:?}
rm -rf "$folder"
"$program" "$folder"
names() { (cd "$1" && find ru en -name '*.png' | sort); }
diff <(names "$folder") <(names docs/screenshots)
diff <(names "$folder") <(grep -o '(\(ru\|en\)/[a-z-]*\.png)' docs/screenshots/README.md | tr -d '()' | sort)
large=$(find docs/screenshots -name '*.png' -size +99999c)
[ -z "$large" ] || { echo "100 kB or more: $large"; exit 1; }
