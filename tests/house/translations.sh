#!/bin/bash
# translations.sh ROOT: the English translation must hold every text of ROOT/src, finished and not empty. The texts
# are collected into a copy, so that the file itself stays as it is.
set -euo pipefail
cd "${1:?usage: translations.sh ROOT}"

translation=resources/lang/Kronalys_en.ts
if [ ! -f "$translation" ]; then
    echo "translations.sh: no $translation"
    exit 1
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
copy=$scratch/Kronalys_en.ts
cp "$translation" "$copy"
chmod u+w "$copy"
if ! QT_SELECT=5 lupdate src -ts "$copy" -source-language ru -target-language en -locations relative -no-obsolete \
    > "$scratch/log" 2>&1; then
    cat "$scratch/log"
    exit 1
fi

# Prints the context and the text of each message that has no finished translation.
LC_ALL=C awk '
/<name>/ { context = $0; gsub(/^.*<name>|<\/name>.*$/, "", context) }
/<message/ { source = ""; faulty = 0; ++messages }
/<source>/ { inSource = 1 }
inSource { line = $0; gsub(/^.*<source>|<\/source>.*$/, "", line); source = source (source == "" ? "" : "\\n") line }
/<\/source>/ { inSource = 0 }
/type="unfinished"/ || /<translation( [^>]*)?><\/translation>/ || /<translation( [^>]*)?\/>/ { faulty = 1 }
/<numerusform><\/numerusform>/ || /<numerusform\/>/ { faulty = 1 }
/<\/message>/ && faulty { print context ": " source; ++bad }
END {
    if (!messages)
        print "no texts at all"
    else if (bad)
        print bad " of " messages " texts have no translation"
    exit bad || !messages
}
' "$copy"
