#!/bin/bash
# selftest.sh CHECK: runs CHECK.sh over small trees with planted faults, and over one without.
set -euo pipefail
check=${1:?usage: selftest.sh CHECK}
here=$(cd "$(dirname "$0")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# plant PATH: takes the content from standard input.
plant() {
    mkdir -p "$tree/$(dirname "$1")"
    cat > "$tree/$1"
}

# expect NAME pass|fail [TEXT]: TEXT must stand in what the check says. The tree is emptied afterwards.
expect() {
    local said status=pass
    said=$(bash "$here/$check.sh" "$tree" 2>&1) || status=fail
    if [ "$status" != "$2" ] || [[ "$said" != *"${3:-}"* ]]; then
        printf 'not as expected: %s, %s should %s\n%s\n' "$check" "$1" "$2" "$said"
        failures=$((failures + 1))
    fi
    find "$tree" -mindepth 1 -delete
}

# includes NAME FILE LINE pass|fail
includes() {
    mkdir -p "$tree/src"
    printf '%s\n' "$3" | plant "$2"
    expect "$1" "$4" "$([ "$4" = pass ] || echo "$2:1:")"
}

floors() {
    includes "own folder" src/table/a.cpp '#include "table/a.h"' pass
    includes "downward" src/plot/a.cpp '#include "record/record.h"' pass
    includes "own core" src/table/a.cpp '#include "table/core/a.h"' pass
    includes "foreign core" src/plot/a.cpp '#include "load/core/a.h"' pass
    includes "core inside" src/load/core/a.cpp '#include "load/core/a.h"' pass
    includes "generated" src/table/a.cpp '#include "ui_a.h"' pass
    includes "system" src/table/a.cpp '#include <QWidget>' pass
    includes "resources" src/app/a.cpp '#include "resources/resources.h"' pass
    includes "upward" src/record/a.h '#include "stats/a.h"' fail
    includes "upward, spaced" src/base/a.h ' #  include "prompt/a.h"' fail
    includes "same floor" src/load/a.cpp '#include "table/a.h"' fail
    includes "core to core" src/table/core/a.cpp '#include "load/core/a.h"' fail
    includes "core to its widgets" src/table/core/a.cpp '#include "table/a.h"' fail
    includes "core to a neighbour" src/plot/core/a.cpp '#include "device/a.h"' fail
    includes "bare name" src/table/a.cpp '#include "a.h"' fail
    includes "dotted" src/table/a.cpp '#include "../load/a.h"' fail
    includes "unknown target" src/table/a.cpp '#include "cellar/a.h"' fail
    includes "unknown folder" src/cellar/a.cpp 'int a;' fail
    includes "module folder" src/table/a.cpp '#include <QtWidgets/QWidget>' fail
    plant other/a.cpp <<< 'int a;'
    mkdir "$tree/src"
    expect "nothing to read" fail "no sources"
}

format() {
    for kind in archive git; do
        cp "$here/../../.clang-format" "$tree/"
        plant src/base/a.cpp <<< 'int a = 1;'
        [ "$kind" = git ] && git -C "$tree" init -q
        expect "well formed, $kind" pass
        cp "$here/../../.clang-format" "$tree/"
        plant tests/base/a.h <<< 'int   a=1;'
        [ "$kind" = git ] && git -C "$tree" init -q
        expect "ill formed, $kind" fail tests/base/a.h
    done
    git -C "$tree" init -q
    cp "$here/../../.clang-format" "$tree/"
    plant .gitignore <<< '/src/made/'
    plant src/made/a.cpp <<< 'int   a=1;'
    plant src/base/a.cpp <<< 'int a = 1;'
    expect "ignored" pass
    plant other/a.cpp <<< 'int   a=1;'
    expect "nothing to read" fail "no C++ files"
}

# letters NAME pass|fail: the source comes from standard input.
letters() {
    plant src/base/a.cpp
    expect "$1" "$2" "$([ "$2" = pass ] || echo src/base/a.cpp)"
}

cyrillic() {
    letters "translated" pass <<< 'a = tr("Файл"); b = QObject::tr ( "Файл", "note"); // "Файл"'
    letters "markers" pass <<< 'a = QT_TR_NOOP("Да"); b = QT_TRANSLATE_NOOP("A", "Да"); c = f.translate("A", "Да");'
    letters "adjacent" pass <<'END'
a = tr("Один \"раз\" (" /* "и" */
       "ещё"
       "раз").arg("x");
END
    letters "several lines" pass <<'END'
a = tr(
    // "комментарий" (
    "Один");
/* "два"
   "три" */
b = tr(R"(Сырая "строка")");
const int n = 1'000'000; // tick
END
    letters "log line" pass <<< 'DebugLOG("Не открылся"); // verbatim'
    letters "bare" fail <<< 'a = "Файл";'
    letters "escaped" fail <<< 'a = "\u0424";'
    letters "another function" fail <<< 'a = attr("Файл");'
    letters "after the call" fail <<< 'a = tr("x").arg("Файл");'
    letters "inside another call" fail <<< 'a = tr(f("Файл"));'
    letters "chosen inside the call" fail <<< 'a = tr(b ? "Да" : "Нет");'
    letters "after a comment end" fail <<< '/* a */ a = "Файл";'
    letters "after a quoted quote" fail <<< "a = '\"'; b = \"Файл\";"
    letters "second literal, other call" fail <<< 'a = tr("Да") + QStringLiteral("Нет");'
    letters "raw" fail <<< 'a = R"x(Файл)" )x";'
    letters "mark within the line" fail <<< 'a = "Файл"; // verbatim not'
    plant other/a.cpp <<< 'int a;'
    expect "nothing to read" fail "no sources"
}

# translated NAME pass|fail TRANSLATION-ELEMENT
translated() {
    plant src/base/a.cpp <<< 'void A::f() { a = QCoreApplication::translate("A", "Файл"); }'
    plant resources/lang/Kronalys_en.ts <<END
<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>A</name>
    <message>
        <source>${4:-Файл}</source>
        $3
    </message>
</context>
</TS>
END
    expect "$1" "$2" "$([ "$2" = pass ] || echo 'A: Файл')"
}

translations() {
    translated "complete" pass '<translation>File</translation>'
    translated "unfinished" fail '<translation type="unfinished">File</translation>'
    translated "empty" fail '<translation></translation>'
    translated "new text" fail '<translation>Folder</translation>' 'Папка'
    plant src/base/a.cpp <<< 'int a;'
    expect "no translation file" fail "no resources/lang"
}

"$check"
exit $((failures > 0))
