#!/bin/sh
# tests/windows/suite.sh BUILD [OPTION]...: runs the whole suite of a build for Windows under Wine, in as many processes as
# there are processors; options go to it. What cannot be tried there is left out by name, as skipped.txt tells with the
# reasons, and counted.
set -eu
cd "$(dirname "$0")/../.."
build=$1
shift
. tests/windows/wine.sh
work=$(mktemp -d)
trap 'endWine; rm -rf "$work"' EXIT
tests=$build/bin/xmlconfig_tests.exe

"$wine" "$tests" --gtest_list_tests | tr -d '\r' |
    awk '/^[^ ]/ { suite = $1 } /^ / { print suite $1 }' > "$work/known"
sed -e '/^#/d' -e '/^ *$/d' -e 's/ .*//' tests/windows/skipped.txt > "$work/skipped"
while read -r name; do
    grep -qxF "$name" "$work/known" || { echo "skipped.txt names a test that there is not: $name" >&2; exit 1; }
done < "$work/skipped"

XMLCONFIG_TOOL="Z:$(realpath "$build/bin/xmlconfig.exe" | tr / '\\')"
GTEST_TOTAL_SHARDS=$(nproc)
export XMLCONFIG_TOOL GTEST_TOTAL_SHARDS
# shard NUMBER OPTION...: the numbers of tests that passed and that skipped themselves go to a file.
shard() {
    number=$1
    shift
    status=0
    GTEST_SHARD_INDEX=$number timeout 1800 "$wine" "$tests" --gtest_brief=1 \
        --gtest_filter="*-$(paste -s -d : "$work/skipped")" "$@" > "$work/said-$number" 2>&1 || status=$?
    return $status
}
processes=
for number in $(seq 0 $((GTEST_TOTAL_SHARDS - 1))); do
    shard "$number" "$@" &
    processes="$processes $!"
done
failed=0
# windowsPath PATH: how a program under Wine names it.
windowsPath() { printf 'Z:%s' "$(realpath "$1" | tr / '\\')"; }
for number in 0 1 2 3 4 5 6 7; do mkdir -p "$work/threads/$number"; done
"$wine" "$build/bin/xmlconfig_threads.exe" "$(windowsPath "$work/threads")" || failed=1
env -u GTEST_TOTAL_SHARDS timeout 1800 "$wine" "$build/bin/xmlconfig_shortage_tests.exe" --gtest_brief=1 > "$work/said-shortage" 2>&1 || failed=1
for process in $processes; do
    wait "$process" || failed=1
done
# total WORD FILE...: how many tests ended so
total() {
    word=$1
    shift
    cat "$@" | tr -d '\r' | sed -n "s/^\[ *$word *\] \([0-9]*\) tests\{0,1\}.*/\1/p" | awk '{ sum += $1 } END { print sum + 0 }'
}
cat "$work"/said-* | tee "$work/all"
passed=$(total PASSED "$work/all")
# Each process tells of its tests at its end; a program that a test starts tells of one test, and so does not count.
ended=$(sed -n 's/^\[==========\] \([0-9]*\) tests from [0-9]* test suites ran.*/\1/p' "$work"/said-[0-9]* | awk '{ sum += $1 } END { print sum + 0 }')
asked=$(($(grep -vc 'DISABLED_' "$work/known") - $(wc -l < "$work/skipped")))
[ $# -gt 0 ] || [ "$ended" -eq "$asked" ] || { echo "suite: $ended tests came to an end, not $asked" >&2; failed=1; }
grep '^\[  FAILED  \] .* ms)' "$work/all" | tee "$work/failed" >&2 || true
echo "under Wine: $passed tests passed, $(wc -l < "$work/failed") failed, $(total SKIPPED "$work/all") skipped themselves, $(wc -l < "$work/skipped") of $(wc -l < "$work/known") skipped by name, see tests/windows/skipped.txt"
exit $failed
