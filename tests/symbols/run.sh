#!/bin/sh
# symbols/run.sh LIBRARY SOURCES: the shared library exports exactly what the public headers mark with XMLCONFIG_API.
set -eu
export LC_ALL=C
library=$1
sources=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The installed headers, as the installation lists them.
sed -n 's/^ *\([a-z]*\/[A-Za-z0-9]*\.h\))*$/\1/p' "$sources/cmake/PublicHeaders.cmake" > "$work/headers"
while read -r header; do
    [ ! -e "$sources/$header" ] || cat "$sources/$header"
done < "$work/headers" | grep 'XMLCONFIG_API' | grep -v '^ *\(#\|//\)' > "$work/marked"
sed -n 's/.*\(class\|struct\) XMLCONFIG_API \([A-Za-z0-9_]*\).*/class \2/p' "$work/marked" > "$work/names"
grep -v '\(class\|struct\) XMLCONFIG_API' "$work/marked" \
    | sed -n 's/[^(]*[ *&]\([A-Za-z0-9_]*\)(.*/function \1/p' >> "$work/names"

nm -D --defined-only -C "$library" | cut -d' ' -f3- > "$work/exported"
# The owners of a symbol: its name without what it is of, its arguments and its template arguments.
sed -e 's/^\(vtable\|VTT\|typeinfo\|typeinfo name\|guard variable\) for //' -e 's/^\(non-virtual\|virtual\) thunk to //' \
    -e 's/\[abi:[a-z0-9]*\]//g' "$work/exported" \
    | awk '{ name = $0; gsub(/operator[^ (]*/, "operator", name); sub(/[(<].*/, "", name); print name "\t" $0 }' > "$work/owners"

awk -F '\t' '
    FNR == NR { split($0, mark, " "); kind[mark[2]] = mark[1]; next }
    {
        count = split($1, parts, "::")
        known = 0
        for (i = 1; i <= count; i++)
            if (parts[i] in kind && (kind[parts[i]] == "class" || i == count)) { known = 1; seen[parts[i]] = 1 }
        if (!known || $2 ~ /XMLConfig::detail|xercesc|log4cxx::/) { print "exported, but in no public header: " $2; failed++ }
    }
    END {
        for (name in kind)
            if (!(name in seen)) { print "marked XMLCONFIG_API, but not exported: " name; failed++ }
        print NR - FNR, "names marked,", FNR, "symbols exported,", failed + 0, "wrong"
        exit failed > 0 || FNR == 0
    }' "$work/names" "$work/owners"
