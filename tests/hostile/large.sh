#!/bin/sh
# hostile/large.sh [TOOL]: files of 100 MB, each made of what is dearest to load or to look through, beside an ordinary
# configuration of that size. Tells of each how it ended, in what time of the processor and with how much memory. Each must be
# loaded or refused in at most 20 times the time of the ordinary one. TOOL should be a release; it takes about 20 GB of memory.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
tool=${1:-$here/../../build/release/bin/xmlconfig}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
broken=0
most=20
ordinary=

# try NAME ADDRESS: loads the file and looks up an address.
try() {
    status=0
    bytes=$(wc -c < "$work/$1")
    limit=$(awk "BEGIN { print int($most * ${ordinary:-30} * 1.5) + 1 }")  # ends what runs away; the system counts it roughly
    (ulimit -t "$limit"; ulimit -v 18000000; exec /usr/bin/time -q -f '%U %S %M' -o "$work/figures" "$tool" get "$work/$1" "$2" > "$work/out" 2> "$work/message") || status=$?
    read -r user system kilobytes < "$work/figures" || true
    seconds=$(awk "BEGIN { print $user + $system }")
    ordinary=${ordinary:-$seconds}
    case $status in
        0) outcome=loaded ;;
        1 | 3) grep -q ': holds no ' "$work/message" && outcome='loaded, not found' ||
            outcome=$(tr '\n' ' ' < "$work/message" | sed 's/.*XML message is: //' | cut -c 1-70) ;;
        *) outcome="BROKEN: status $status"; broken=$((broken + 1)) ;;
    esac
    times=$(awk "BEGIN { printf \"%.1f\", $seconds / $ordinary }")
    if awk "BEGIN { exit !($seconds > $most * $ordinary) }"; then
        outcome="BROKEN: too slow: $outcome"
        broken=$((broken + 1))
    fi
    printf '| %s | %d | %s | %s | %s | %d |\n' "$1" "$((bytes / 1000000))" "$outcome" "$seconds" "$times" "$((kilobytes / 1024))"
    rm -f "$work/$1"
}

# made NAME HEAD BODY TAIL: a configuration of 100 MB that holds HEAD, then what the expression BODY gives for n = 1, 2 and so on,
# then TAIL.
made() {
    perl -e '
        my ($head, $body, $tail) = @ARGV;
        ($head, $tail) = ("<ConfigInfo><Version>9.000</Version>$head", "$tail</ConfigInfo>\n");
        my $next = eval "my \$n = 0; sub { ++\$n; $body }" or die;
        my $size = length($head) + length($tail);
        print $head;
        while ($size < 1e8) { my $text = $next->(); $size += length $text; print $text }
        print $tail' -- "$2" "$3" "$4" > "$work/$1"
}

echo '| file | MB | outcome | seconds | times the ordinary one | MB of memory |'
echo '|---|---|---|---|---|---|'
perl -e '
    local $/;
    my ($head, $projector, $tail) = <STDIN> =~ m{^(.*?)(  <Projector ID=.*?</Projector>\n)(.*)$}s or die;
    my $size = length($head) + length($tail);
    print $head;
    for (my $n = 1; $size < 1e8; ++$n) {
        (my $one = $projector) =~ s/ID="[^"]*"/ID="VELDAR***$n"/;
        $size += length $one;
        print $one;
    }
    print $tail' < "$here/../../examples/dome.skorrax" > "$work/ordinary"
try ordinary 'Projector[VELDAR***100]/Name'
[ "$outcome" = loaded ] || { echo 'large: the ordinary file is not loaded' >&2; exit 1; }

made 'one text' '<S>' '"x" x 1000' '</S>'
try 'one text' Version
made 'one attribute' '<S a="' '"x" x 1000' '"/>'
try 'one attribute' Version
made 'one comment' '<!--' '"x" x 1000' '-->'
try 'one comment' Version
made 'one name' '<' '"x" x 1000' '/>'
try 'one name' Version
made 'one element of many attributes' '<S' '" a$n=\"\""' '/>'
try 'one element of many attributes' Version
made 'empty elements' '' '"<a/>"' ''
try 'empty elements' Version
made 'other names each' '' '"<T$n/>"' ''
try 'other names each' Version
made 'other attributes each' '' '"<S a$n=\"\"/>"' ''
try 'other attributes each' Version
made '1000 attributes each' '' '"<S" . join("", map { " a$_=\"\"" } 1 .. 1000) . "/>"' ''
try '1000 attributes each' Version
made '1000 namespaces each' '' '"<S" . join("", map { " xmlns:n$_=\"u$_\"" } 1 .. 1000) . "/>"' ''
try '1000 namespaces each' Version
made 'sections of one ID' '' '"<S ID=\"1\"/>"' ''
try 'sections of one ID' 'S[1]/A'
made 'sections of other IDs' '' '"<S ID=\"$n\"/>"' ''
try 'sections of other IDs' 'S[5]/A'
made 'items of one name' '<S>' '"<A>1</A>"' '</S>'
try 'items of one name' S/A
made 'nested as deep as may be' '' '"<a>" x 990 . "</a>" x 990' ''
try 'nested as deep as may be' Version
made 'nested for ever' '' '"<a>"' ''
try 'nested for ever' Version
made 'texts between elements' '' '"x<a/>"' ''
try 'texts between elements' Version
made 'character references' '<S>' '"&#x41;&amp;"' '</S>'
try 'character references' Version
made 'comments' '' '"<!---->"' ''
try 'comments' Version
made 'instructions' '' '"<?a?>"' ''
try 'instructions' Version
made 'character data' '' '"<S><![CDATA[]]></S>"' ''
try 'character data' Version
made 'lines' '' '"\n"' ''
try 'lines' Version
made 'line ends of two' '' '"\r\n"' ''
try 'line ends of two' Version
perl -e 'print "\0" x 1e8' > "$work/zeros"
try zeros Version
perl -e 'print "<ConfigInfo><Version>9.000</Version></ConfigInfo>", " " x 1e8, "x"' > "$work/blanks after the root"
try 'blanks after the root' Version
echo "$broken broken promises"
[ "$broken" = 0 ]
