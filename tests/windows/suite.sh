#!/bin/sh
# tests/windows/suite.sh BUILD [OPTION]...: runs the whole suite of a build for Windows under Wine; options go to it.
# What cannot be tried there is left out by name, as skipped.txt tells with the reasons, and counted.
set -eu
cd "$(dirname "$0")/../.."
build=$1
shift
. tests/windows/wine.sh
work=$(mktemp -d)
trap 'endWine; rm -rf "$work"' EXIT

"$wine" "$build/bin/xmlconfig_tests.exe" --gtest_list_tests | tr -d '\r' |
    awk '/^[^ ]/ { suite = $1 } /^ / { print suite $1 }' > "$work/known"
sed -e '/^#/d' -e '/^ *$/d' -e 's/ .*//' tests/windows/skipped.txt > "$work/skipped"
while read -r name; do
    grep -qxF "$name" "$work/known" || { echo "skipped.txt names a test that there is not: $name" >&2; exit 1; }
done < "$work/skipped"

XMLCONFIG_TOOL="Z:$(realpath "$build/bin/xmlconfig.exe" | tr / '\\')"
export XMLCONFIG_TOOL
status=0
timeout 1800 "$wine" "$build/bin/xmlconfig_tests.exe" --gtest_brief=1 --gtest_filter="*-$(paste -s -d : "$work/skipped")" "$@" || status=$?
echo "skipped by name on Windows: $(wc -l < "$work/skipped") of $(wc -l < "$work/known") tests, see tests/windows/skipped.txt"
exit $status
