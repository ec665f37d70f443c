#!/bin/bash
# floors.sh ROOT: every include line of ROOT/src must point to the file's own folder or to a lower floor, and no
# file of src, tests, bench or samples may include a Qt header by its module's folder.
set -euo pipefail
export LC_ALL=C
cd "${1:?usage: floors.sh ROOT}"

mapfile -d '' sources < <(find src -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
if [ ${#sources[@]} -eq 0 ]; then
    echo "floors.sh: no sources below src"
    exit 1
fi

awk '
BEGIN {
    floorOf["resources"] = -1
    floorOf["base"] = 0
    floorOf["record"] = 1
    floorOf["stats"] = 2
    floorOf["device"] = 3
    floorOf["prompt"] = 4
    floorOf["plot"] = 5
    floorOf["store"] = floorOf["transfer"] = floorOf["sql"] = floorOf["update"] = floorOf["help"] = 6
    floorOf["load"] = floorOf["table"] = 7
    floorOf["app"] = floorOf["cli"] = floorOf["maintenance"] = 8
    coreFloor = 3
    abovePlainCores["store"] = 0.5 # it writes text through load/core
}

# The room of a path below src: "table", "table/core", or "" for a file without a folder.
function room(path,   step, n) {
    n = split(path, step, "/")
    if (n < 2)
        return ""
    return n > 2 && step[2] == "core" ? step[1] "/core" : step[1]
}

function level(name) {
    if (name ~ /\/core$/)
        return sub(/\/core$/, "", name) && (name in floorOf) ? coreFloor + abovePlainCores[name] : 99
    return name in floorOf ? floorOf[name] : 99
}

function complain(what) {
    printf "%s:%d: %s\n", FILENAME, FNR, what
    bad = 1
}

FNR == 1 {
    own = FILENAME
    sub(/^src\//, "", own)
    own = room(own)
    if (level(own) == 99) {
        complain("the folder \"" own "\" has no floor")
        nextfile
    }
}

/^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, quoted, "\"")
    target = quoted[2]
    other = room(target)
    if (target ~ /^ui_[^\/]*\.h$/ || target ~ /^[^\/]*\.moc$/ || target ~ /^moc_[^\/]*\.cpp$/)
        next
    if (target ~ /(^|\/)\.\.?(\/|$)/ || other == "")
        complain("include \"" target "\" does not start at src")
    else if (level(other) == 99)
        complain("include \"" target "\" names a folder without a floor")
    else if (other != own && level(other) >= level(own))
        complain("include \"" target "\" does not point downward from " own)
}

END { exit bad }
' "${sources[@]}" && upward=0 || upward=1

places=()
for place in src tests bench samples; do
    [ -d "$place" ] && places+=("$place")
done
if grep -rnE --include='*.cpp' --include='*.h' '^[[:space:]]*#[[:space:]]*include[[:space:]]*<Qt[A-Za-z0-9]*/' "${places[@]}"; then
    echo "include the plain form, as in <QWidget>"
    upward=1
fi
exit "$upward"
