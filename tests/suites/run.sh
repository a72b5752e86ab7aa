#!/bin/sh
# suites/run.sh: the whole suite, shuffled and twice in a process, by a user who is not root, in four languages and two time
# zones with odd offsets, with the checkout, the build and the temporary folder in paths that hold blanks and umlauts.
set -eu
sources=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
place="$work/Prüf stand"
checkout="$place/Bühne 日本"
jobs=$(nproc)

say() { printf '\n== %s\n' "$*"; }

say "building in $checkout"
mkdir -p "$checkout" "$place/locales"
(cd "$sources" && git ls-files -z > "$work/files" && tar --null -T "$work/files" -cf "$work/sources.tar")
tar -xf "$work/sources.tar" -C "$checkout"
cd "$checkout"
export CCACHE_BASEDIR="$checkout" CCACHE_NOHASHDIR=1
cmake --preset dev > "$work/log" || { cat "$work/log"; exit 1; }
cmake --build --preset dev -j "$jobs" > "$work/log" || { cat "$work/log"; exit 1; }
ctest --preset dev -L package

for language in de_DE tr_TR ja_JP; do
    localedef -i "$language" -f UTF-8 "$place/locales/$language.UTF-8"
done
if [ "$(id -u)" -eq 0 ]; then
    user='setpriv --reuid=65534 --regid=65534 --clear-groups'
    chown -R 65534:65534 "$place"
else
    user=
fi

# suite LOCALE TIME-ZONE: the offsets of Asia/Kathmandu and Pacific/Chatham as POSIX writes them, which needs no tzdata.
suite() {
    say "the suite under $1, TZ=$2"
    folder="$place/Zwischen ablage $1"
    mkdir -m 777 "$folder"
    # shellcheck disable=SC2086 # $user is words
    LC_ALL=$1 TZ=$2 TMPDIR=$folder LOCPATH="$place/locales" XMLCONFIG_TEST_LOCALE=1 HOME="$folder" \
        XMLCONFIG_TOOL="$checkout/build/dev/bin/xmlconfig" \
        $user build/dev/bin/xmlconfig_tests --gtest_shuffle --gtest_repeat=2 --gtest_brief=1
}

suite C '<+0545>-5:45'
suite de_DE.UTF-8 '<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45'
suite tr_TR.UTF-8 '<+0545>-5:45'
suite ja_JP.UTF-8 '<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45'
say 'all suites passed'
