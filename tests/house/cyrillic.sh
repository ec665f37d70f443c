#!/bin/bash
# cyrillic.sh ROOT: a string literal with Cyrillic letters in ROOT/src must be an argument of tr, translate,
# QT_TR_NOOP or QT_TRANSLATE_NOOP, so that it can be translated. A line that ends with the comment "// verbatim" is
# left alone: such texts are log lines, or have their English form beside them and are chosen by the language.
set -euo pipefail
export LC_ALL=C # letters as bytes
cd "${1:?usage: cyrillic.sh ROOT}"

mapfile -d '' sources < <(find src -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
if [ ${#sources[@]} -eq 0 ]; then
    echo "cyrillic.sh: no sources below src"
    exit 1
fi

awk '
# Takes n characters off the text at hand.
function take(n) { text = substr(text, n + 1) }

# Notes code that holds none of the characters which the walk looks for.
function code(piece) {
    if (match(piece, /[^ \t\r][ \t\r]*$/)) {
        before = substr(piece, RSTART, 1)
        word = piece
    }
}

function literal(content) {
    if (content ~ /[\320-\323][\200-\277]/ || content ~ /\\u04[0-9a-fA-F][0-9a-fA-F]/) {
        # the literal is a whole argument, or goes on from the literal before it
        if (!(depth > 0 && translated[depth] && before ~ /[(,"]/) && !verbatim) {
            printf "%s:%d: \"%s\" cannot be translated\n", FILENAME, FNR, content
            bad = 1
        }
    }
    before = "\""
    word = ""
}

function opening() {
    sub(/[ \t\r]+$/, "", word)
    translated[++depth] = match(word, /(^|[^A-Za-z0-9_])(tr|translate|QT_TR_NOOP|QT_TRANSLATE_NOOP)$/) > 0
    before = "("
    word = ""
}

# One quoted text, the opening quote taken off already; how many characters it has up to the closing quote.
function quotedLength(quote,   i, c) {
    for (i = 1; i <= length(text); ++i) {
        c = substr(text, i, 1)
        if (c == "\\")
            ++i
        else if (c == quote)
            return i - 1
    }
    return length(text)
}

function walk(   at, c, n) {
    while (text != "") {
        if (inComment) {
            at = index(text, "*/")
            if (!at)
                return
            take(at + 1)
            inComment = 0
        } else if (rawEnd != "") {
            at = index(text, rawEnd)
            if (!at) {
                raw = raw text "\n"
                return
            }
            raw = raw substr(text, 1, at - 1)
            take(at + length(rawEnd) - 1)
            rawEnd = ""
            literal(raw)
        } else if (!match(text, /["\047()\/]/)) {
            code(text)
            return
        } else {
            c = substr(text, RSTART, 1)
            at = RSTART
            piece = substr(text, 1, at - 1)
            take(at)
            if (c == "\"" && piece ~ /(^|[^A-Za-z0-9_])(u8|u|U|L)?R$/) {
                n = index(text, "(")
                rawEnd = ")" substr(text, 1, n - 1) "\""
                raw = ""
                take(n)
            } else if (c == "\"") {
                sub(/(u8|u|U|L)$/, "", piece)
                code(piece)
                n = quotedLength("\"")
                content = substr(text, 1, n)
                take(n + 1)
                literal(content)
            } else if (c == "\047" && piece ~ /[0-9a-fA-F]$/ && piece !~ /(^|[^A-Za-z0-9_])u8$/) {
                code(piece) # a digit separator
            } else if (c == "\047") {
                n = quotedLength("\047")
                take(n + 1)
                before = word = "x"
            } else if (c == "(") {
                code(piece)
                opening()
            } else if (c == ")") {
                code(piece)
                if (depth > 0)
                    --depth
                before = word = ")"
            } else if (substr(text, 1, 1) == "/") {
                code(piece)
                return
            } else if (substr(text, 1, 1) == "*") {
                code(piece)
                take(1)
                inComment = 1
            } else {
                code(piece "/")
            }
        }
    }
}

FNR == 1 {
    depth = inComment = 0
    rawEnd = before = word = ""
}

{
    verbatim = $0 ~ /\/\/ verbatim[ \t\r]*$/
    text = $0
    walk()
}

END { exit bad }
' "${sources[@]}"
