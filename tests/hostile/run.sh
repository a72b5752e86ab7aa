#!/bin/sh
# hostile/run.sh [TOOL]: loads files that are made to harm, and tells how each ended, in what time and with how much memory.
# Each must be over in 60 seconds of the processor and end as it is expected to; a trace of the calls of the system must show that no
# file but the one that was named is opened once that is open, and that no socket is made.
set -eu
tool=$(realpath "${1:-$(dirname "$0")/../../build/release/bin/xmlconfig}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
broken=0

# try NAME EXPECTED: EXPECTED is "loaded" or a part of the message of the refusal.
try() {
    status=0
    (ulimit -t 60; exec /usr/bin/time -q -f '%U %S %M' -o figures "$tool" get "$1" Version > out 2> message) || status=$?
    read -r user system kilobytes < figures || true
    case $status in
        0) outcome=loaded ;;
        3) outcome=$(tr '\n' ' ' < message | cut -c 1-400) ;;
        *) outcome="status $status" ;;
    esac
    case $outcome in
        *"$2"*) verdict=ok ;;
        *) verdict=BROKEN; broken=$((broken + 1)) ;;
    esac
    printf '%-28s %-6s %6s s %6d MB  %s\n' "$1" "$verdict" "$(awk "BEGIN { print $user + $system }")" "$((kilobytes / 1024))" \
        "$(printf '%s' "$outcome" | sed 's/.*XML message is: //; s/.*: Can not/Can not/' | cut -c 1-90)"
}

# trace NAME: what is opened after the file, and every socket.
trace() {
    strace -f -qq -e trace=%file,%network -o calls "$tool" get "$1" Version > out 2> message || true
    awk -v name="\"$1\"" '
        /socket\(|connect\(/ { print }
        /openat?\(/ && index($0, name) { isOpen = 1; next }
        isOpen && /open|creat/ && !/ENOENT/ { print }
        END { if (!isOpen) print "nothing was traced" }' calls > others
    [ -s others ] || return 0
    broken=$((broken + 1))
    echo "BROKEN: the trace of $1:"
    head -3 others
}

# made NAME: a file of that root's content, from standard input.
made() { { printf '<ConfigInfo><Version>9.000</Version>'; cat; printf '</ConfigInfo>\n'; } > "$1"; }
typed() { { printf '<?xml version="1.0"?><!DOCTYPE ConfigInfo %s>' "$2"; printf '<ConfigInfo><Version>9.000</Version><S>&a;</S></ConfigInfo>'; } > "$1"; }

echo secret > secret.txt
typed doctype-internal '[<!ENTITY a "x">]'
typed entities-nested "[<!ENTITY z \"xxxxxxxxxx\">$(perl -e 'my $b = "z"; for my $n ("b".."y", "a") { print "<!ENTITY $n \"", "&$b;" x 10, "\">"; $b = $n }')]"
typed entity-of-a-file "[<!ENTITY a SYSTEM \"file://$work/secret.txt\">]"
typed entity-of-the-network '[<!ENTITY a SYSTEM "http://127.0.0.1:9/secret">]'
typed doctype-of-a-file 'SYSTEM "secret.txt"'
typed doctype-of-the-network 'PUBLIC "-//A//B" "http://127.0.0.1:9/a.dtd"'
typed parameter-entity '[<!ENTITY % p SYSTEM "secret.txt">%p;]'
echo '<xi:include xmlns:xi="http://www.w3.org/2001/XInclude" href="secret.txt"/>' | made inclusion
echo '<S xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:noNamespaceSchemaLocation="secret.txt"/>' | made schema
echo '<?xml-stylesheet href="secret.txt"?>' | made stylesheet
for name in doctype-internal entities-nested entity-of-a-file entity-of-the-network doctype-of-a-file doctype-of-the-network \
    parameter-entity; do
    try "$name" 'Error during parsing'
    trace "$name"
done
for name in inclusion schema stylesheet; do
    try "$name" loaded
    trace "$name"
done

perl -e 'print "<a>" x 1e6, "</a>" x 1e6' | made nested-million
try nested-million 'Error during parsing'
perl -e 'print "<S>", "x" x 1e8, "</S>"' | made text-100-MB
try text-100-MB "${LARGE:-loaded}"
perl -e 'print "<S a=\"", "x" x 1e8, "\"/>"' | made attribute-100-MB
try attribute-100-MB "${LARGE:-loaded}"
perl -e 'print "<S ID=\"$_\"/>" for 1..1e6' | made sections-million
try sections-million loaded
perl -e 'print "<S"; print " a$_=\"\"" for 1..1e5; print "/>"' | made attributes-100000
try attributes-100000 'more than 1000 attributes'
perl -e 'print "<T$_/>" for 1..2e5' | made tags-200000
try tags-200000 loaded
perl -e 'print "<!--", "x" x 1e8, "-->"' | made comment-100-MB
try comment-100-MB "${LARGE:-loaded}"
perl -e 'print "\0" x 1e8' > zeros-100-MB
try zeros-100-MB 'Error during parsing'

text='<ConfigInfo><Version>9.000</Version><S>x</S></ConfigInfo>'
encoded() { printf '<?xml version="1.0" encoding="%s"?>%s' "$2" "$3" > "$1"; }
encoded encoding-unknown KOI-77 "$text"
encoded encoding-utf-7 UTF-7 "$text"
encoded encoding-utf-16-declared UTF-16 "$text"
encoded encoding-ebcdic-declared IBM037 "$text"
encoded utf-8-cut UTF-8 "$(printf '<ConfigInfo><S>\303</S></ConfigInfo>')"
encoded utf-8-overlong UTF-8 "$(printf '<ConfigInfo><S>\300\200</S></ConfigInfo>')"
encoded utf-8-surrogate UTF-8 "$(printf '<ConfigInfo><S>\355\240\200</S></ConfigInfo>')"
encoded utf-8-beyond-unicode UTF-8 "$(printf '<ConfigInfo><S>\365\200\200\200</S></ConfigInfo>')"
encoded utf-8-latin-1-bytes UTF-8 "$(printf '<ConfigInfo><S>\374</S></ConfigInfo>')"
printf '\377\376\0\0<' > utf-32-mark
perl -e 'print "\xff\xfe", map { "$_\0" } split //, q(<ConfigInfo>)' > utf-16-cut
perl -e 'print "\xff\xfe", (map { "$_\0" } split //, q(<ConfigInfo><S>)), "\x00\xd8", map { "$_\0" } split //, q(</S></ConfigInfo>)' > utf-16-lone-surrogate
printf '<ConfigInfo><S>\001</S></ConfigInfo>' > control-character
: > empty
# A text that is UTF-7 may say so, and one that begins with "<" in single bytes is not UTF-16 whatever it says.
for name in encoding-utf-7 encoding-utf-16-declared; do
    try "$name" loaded
    trace "$name"
done
for name in encoding-unknown encoding-ebcdic-declared utf-8-cut utf-8-overlong \
    utf-8-surrogate utf-8-beyond-unicode utf-8-latin-1-bytes utf-32-mark utf-16-cut utf-16-lone-surrogate control-character empty; do
    try "$name" 'Error during parsing'
done

mkfifo pipe
mkdir folder
for name in pipe folder /dev/zero /dev/null missing; do try "$name" 'Can not open file'; done
echo "$broken broken promises"
[ "$broken" = 0 ]
