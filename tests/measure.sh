#!/bin/sh
# measure.sh [FOLDER]: the sizes of the sources in FOLDER (default: these), to be compared with those of another commit:
# lines of functions and files, decisions in a function, includes of a file, and how many lines name one setting, one step
# of the upgrade and one verb of the tool, without texts that only mention it. Functions are found by the braces of sources
# that clang-format has laid out.
set -eu
export LC_ALL=C
cd "${1:-$(dirname "$0")/..}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

find platform store base sections manager tools \( -name '*.h' -o -name '*.cpp' \) -type f | sort > "$work/files"

# One line a function: its lines, its decisions and one, where it begins.
cat > "$work/functions.awk" << 'AWK'
# Gives the line without strings, characters and comments.
function bare(line) {
    gsub(/\\./, "", line)
    gsub(/"[^"]*"/, "\"\"", line)
    gsub(/'[^']*'/, "''", line)
    sub(/\/\/.*/, "", line)
    return line
}
# Whether the text before a brace begins a function: parameters, and nothing that is set to a value.
function beginsFunction(text) {
    gsub(/operator[^ (]*/, "operator", text)
    while (gsub(/\([^()]*\)/, "@", text)) {}
    return text ~ /@/ && text !~ /=/ && text !~ /^ *(namespace|class|struct|enum|union|extern) /
}
function decisions(text,    count) {
    count = gsub(/(^|[^A-Za-z0-9_])(if|for|while|case|catch)[^A-Za-z0-9_]/, "&", text)
    return count + gsub(/ && /, "&", text) + gsub(/ \|\| /, "&", text) + gsub(/ \? /, "&", text)
}
FNR == 1 { depth = 0; inside = 0; text = ""; first = 0 }
/^ *#/ { next }
/^ *(public|private|protected):$/ { text = ""; first = 0; next }
{
    line = bare($0)
    if (inside) found += decisions(line)
    for (i = 1; i <= length(line); ++i) {
        c = substr(line, i, 1)
        if (c == "{") {
            before = i > 1 ? substr(line, i - 1, 1) : " "
            isBody = before == " " || before == ")"
            ++depth
            kept[depth] = text
            if (!inside && isBody && beginsFunction(text)) {
                inside = depth
                begin = first ? first : FNR
                found = 1 + decisions(substr(line, i))
            }
            isInitializer[depth] = !isBody
            if (!inside && isBody) { text = ""; first = 0 }
        } else if (c == "}") {
            if (inside == depth) {
                print FNR - begin + 1, found, FILENAME ":" begin
                inside = 0
                text = ""; first = 0
            } else if (!inside) {
                if (isInitializer[depth]) text = kept[depth] "{}"
                else { text = ""; first = 0 }
            }
            --depth
        } else if (!inside) {
            if (c == ";") { text = ""; first = 0 }
            else {
                if (!first && c != " ") first = FNR
                text = text c
            }
        }
    }
    if (!inside) text = text " "
}
AWK
xargs awk -f "$work/functions.awk" < "$work/files" > "$work/functions"

# spread TITLE < "NUMBER NAME" lines: the number in the middle, nine tenths up, and the largest with its name
spread() {
    sort -n | awk -v title="$1" '
        { number[NR] = $1; name[NR] = $2 }
        END {
            printf "%-28s %6d of them, median %d, p90 %d, most %d (%s)\n", title, NR, number[int((NR + 1) / 2)],
                number[int((9 * NR + 9) / 10)], number[NR], name[NR]
        }'
}

# places TITLE PATTERN PATH...: how many lines name it, in how many files
places() {
    title=$1
    pattern=$2
    shift 2
    for path in "$@"; do [ ! -e "$path" ] || printf '%s\n' "$path"; done \
        | xargs grep -rcE "$pattern" | awk -F : -v title="$title" '
            $2 > 0 { lines += $2; ++files }
            END { printf "%-28s %6d lines in %d files\n", title, lines, files }'
}

awk '{ print $1, $3 }' "$work/functions" | spread 'lines of a function'
awk '{ print $2, $3 }' "$work/functions" | spread 'complexity of a function'
xargs wc -l < "$work/files" | grep -v ' total$' | spread 'lines of a file'
xargs grep -c '^#include' < "$work/files" | awk -F : '{ print $2, $1 }' | spread 'includes of a file'
# The golden files hold values and no knowledge of the setting; the steps of the upgrade are history.
places 'a setting (ColourTolerance)' '[cC]olour_?Tolerance' base sections manager/*.cpp manager/*.h tests/base tests/sections \
    tests/support docs/settings.md
places 'the last step (to 9.0)' 'toVersion9|movesTo9|[^0-9.]9\.0(00)?[^0-9]' manager/upgrade manager/check/GoneSettings.h \
    manager/CheckRules.cpp store/BuildIdentity.h README.md docs/migrations.md docs/file-format.md \
    tests/manager/UpgradeGoldenTest.cpp tests/manager/UpgradeDriverTest.cpp
# Its functions, and its name where the program or its page is made of it; other verbs' texts may advise it.
places 'a verb (describe)' '(setUp|run)Describe\b|"describe"[,)]|^## describe' tools docs/scripting.md
