#!/bin/sh
# Measures and makes docs/performance.md of what was measured.
#   sh bench/report.sh                  all parts that take minutes: times, counts, start, growth
#   sh bench/report.sh PART...          these parts: times, counts, start, growth, or get and large, which take minutes and 5 GB
#   sh bench/report.sh page             only the page, of what bench/results/ keeps
# Fails, after the page is made, where a part did.
# ROUNDS=N: how often times are measured (11). The release must have been built with its benchmarks, as ./do bench does.
set -eu
export LC_ALL=C
cd "$(dirname "$0")/.."
. bench/counting.sh
programs=build/release/bin
results=bench/results

machine() {
    echo "$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1), $(nproc) cores, $(. /etc/os-release; echo "$PRETTY_NAME"), $(c++ --version | head -n 1)"
}

measureTimes() { "$programs/xmlconfig_bench" --rounds="${ROUNDS:-11}" 2> /dev/null; }

measureLarge() { "$programs/xmlconfig_bench" --large; }

# countJob JOB PROJECTORS...: instructions of a job of all libraries, a line a size
countJob() {
    job=$1
    shift
    for projectors in "$@"; do
        line="$job $projectors"
        for library in '' raw_ pugixml_ libxml2_; do line="$line $(count "$library$job" "$projectors")"; done
        echo "$line"
    done
}

measureCounts() {
    {
        for job in load save get; do countJob "$job" 4 100; done
        countJob round_trip 4 100 1000  # the last takes minutes, for Xerces-C finds names by walking
    } | awk '
        function shown(count) { return count == "" ? "-" : sprintf("%.2f M", count / 1e6) }
        function ratio(count) { return count == "" ? "-" : sprintf("%.3f", $3 / count) }
        BEGIN {
            printf "%-10s %10s %11s %11s %11s %11s   %s\n", "job", "projectors", "XMLConfig", "Xerces-C", "pugixml", "libxml2",
                "ratio to each"
        }
        {
            printf "%-10s %10d %11s %11s %11s %11s  %7s %7s %7s\n", $1, $2, shown($3), shown($4), shown($5), shown($6),
                ratio($4), ratio($5), ratio($6)
        }'
    echo
    sh bench/counts.sh
}

measureGet() {
    for projectors in 100 1000 10000 100000; do echo "$projectors $(count get "$projectors")"; done | awk '
        { one = $2 / ($1 * 57.5) }  # items that a projector and half a camera have
        NR == 1 { first = one }
        { printf "a get of %6d projectors takes %.0f instructions, %.3f of what it takes of 100\n", $1, one, one / first }'
}

measureStart() {
    runs=200
    tool=$programs/xmlconfig
    seconds=$(/usr/bin/time -f '%U %S' sh -c "i=0; while [ \$i -lt $runs ]; do $tool --version > /dev/null; i=\$((i + 1)); done" \
        2>&1 | awk '{ print $1 + $2 }')
    echo "$seconds $runs $(ldd "$tool" | wc -l)" |
        awk '{ printf "%.1f ms of CPU a start of xmlconfig --version, mean of %d; %d libraries\n", 1000 * $1 / $2, $2, $3 }'
}

# measure PART: keeps what is told, with the machine that it was measured on
measure() {
    echo "measuring $1" >&2
    case $1 in
        times) measureTimes ;;
        counts) measureCounts ;;
        get) measureGet ;;
        start) measureStart ;;
        growth) "$programs/xmlconfig_growth" ;;
        large) measureLarge ;;
        *) echo "report.sh: there is no part $1" >&2; exit 2 ;;
    esac > "$results/$1.new" || { echo "report.sh: measuring $1 failed" >&2; failed=1; }
    [ -s "$results/$1.new" ] || { echo "report.sh: $1: nothing was measured" >&2; exit 1; }
    { cat "$results/$1.new"; echo; machine; } > "$results/$1.txt"
    rm "$results/$1.new"
}

page() {
    awk -v results="$results" '
        /^@[a-z]+@$/ {
            file = results "/" substr($0, 2, length($0) - 2) ".txt"
            print "```"
            found = 0
            while ((getline line < file) > 0) { print line; found = 1 }
            if (!found) print "not measured yet: sh bench/report.sh " substr($0, 2, length($0) - 2)
            print "```"
            next
        }
        { print }' bench/performance.md.in > docs/performance.md
}

mkdir -p "$results"
failed=0
[ $# -gt 0 ] || set -- times counts start growth
for part in "$@"; do
    [ "$part" = page ] || measure "$part"
done
page
exit $failed
