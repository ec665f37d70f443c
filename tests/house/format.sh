#!/bin/bash
# format.sh ROOT: every C++ file of src, tests, bench and samples must stand as clang-format leaves it.
# Files that git ignores are passed over.
set -euo pipefail
cd "${1:?usage: format.sh ROOT}"

listed=()
if git rev-parse --is-inside-work-tree > /dev/null 2>&1; then
    mapfile -d '' listed < <(git ls-files -z --cached --others --exclude-standard -- src tests bench samples)
else # an unpacked archive
    mapfile -d '' listed < <(find src tests bench samples -type f -print0 2> /dev/null)
fi
files=()
for file in "${listed[@]}"; do
    case "$file" in
    *.cpp | *.h) [ -f "$file" ] && files+=("$file") ;;
    esac
done
if [ ${#files[@]} -eq 0 ]; then
    echo "format.sh: no C++ files"
    exit 1
fi
printf '%s\0' "${files[@]}" | xargs -0 -n 16 -P "$(nproc)" clang-format --dry-run -Werror --ferror-limit=1
