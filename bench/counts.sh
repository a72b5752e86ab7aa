#!/bin/sh
# Counts the instructions of fixed jobs and compares them with what is kept in counts.txt.
#   sh bench/counts.sh          fails where a job takes 3 % more than is kept
#   sh bench/counts.sh renew    keeps what was counted now; for a commit that says why
# A count depends on the compiler and on the libraries of the machine. So each job is counted against the same kind of work
# done by Xerces-C alone, in the same run.
set -eu
cd "$(dirname "$0")/.."
kept=bench/counts.txt
tolerance=3  # percent
. bench/counting.sh

# job, what it is compared with, projectors
jobs='load raw_load 100
save raw_save 100
get raw_load 100
set raw_load 100
first_read raw_load 100
upgrade raw_load_old 30
upgrade_receipt upgrade 30
round_trip raw_load 100
check raw_load 30'

counted=$(mktemp)
seen=$(mktemp)
trap 'rm -f "$counted" "$seen"' EXIT
echo "$jobs" | while read -r job against projectors; do
    base=$(awk -v name="$against/$projectors" '$1 == name { print $2 }' "$seen")
    if [ -z "$base" ]; then
        base=$(count "$against" "$projectors")
        echo "$against/$projectors $base" >> "$seen"
    fi
    own=$(count "$job" "$projectors")
    if [ "${own:-0}" -eq 0 ] || [ "${base:-0}" -eq 0 ]; then
        echo "counts.sh: nothing was counted of $job or $against" >&2
        exit 1
    fi
    awk -v job="$job" -v against="$against" -v projectors="$projectors" -v own="$own" -v base="$base" \
        'BEGIN { printf "%s %s %d %.4f\n", job, against, projectors, own / base }'
done > "$counted"

if [ "${1:-}" = renew ]; then
    { echo '# job, what it is compared with, projectors, instructions of the job for one of the other; made by "sh bench/counts.sh renew"'
      cat "$counted"; } > "$kept"
    cat "$kept"
    exit 0
fi

awk -v tolerance="$tolerance" '
    /^#/ { next }
    NR == FNR { kept[$1 " " $2 " " $3] = $4; next }
    {
        name = $1 " " $2 " " $3
        if (!(name in kept)) { print "not kept: " name; failed = 1; next }
        change = ($4 / kept[name] - 1) * 100
        printf "%-11s of %-12s %4d projectors: %.4f, kept %.4f, %+.1f %%\n", $1, $2, $3, $4, kept[name], change
        seen++
        if (change > tolerance) { print "  takes more than " tolerance " % more instructions than before"; failed = 1 }
        if (change < -tolerance) print "  takes less: keep it with \"sh bench/counts.sh renew\""
    }
    END { if (seen != length(kept)) { print "not every job that is kept was counted"; failed = 1 }; exit failed }
' "$kept" "$counted"
