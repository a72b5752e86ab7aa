#!/bin/sh
# fuzz/run.sh [SECONDS]: runs each fuzzer for so long (30), two at a time. What fails is kept in build/fuzz/found/.
# The inputs to begin with are the example files of every version and lines made from the reference of settings.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-30}
programs=build/fuzz/bin
work=build/fuzz/corpus
found=build/fuzz/found
rm -rf "$work" "$found"
mkdir -p "$found"
for fuzzer in RoundTrip Sequence TextForm Path Address; do mkdir -p "$work/$fuzzer"; done

cp examples/dome.skorrax examples/history/* tests/golden/steps/*.in.xml "$work/RoundTrip"
for file in examples/history/*; do
    # A whole file is too long a sequence of operations and too long a text.
    head -c 6000 "$file" | split -b 300 - "$work/Sequence/$(basename "$file")-"
    sed -n 's/^ *<[^>]*>\([^<]*\)<.*/\1/p' "$file" | sort -u | head -200 | split -l 1 - "$work/TextForm/$(basename "$file")-"
done
printf '/shows/hall.skorrax\n/shows/warps/a.skorrax' > "$work/Path/posix"
printf 'C:\\shows\\hall.skorrax\n..\\meshes\\dome.obj' > "$work/Path/drive"
printf '\\\\server\\share\\hall.skorrax\n/a/../b/./c.d' > "$work/Path/mixed"

# docs/settings.md has a table a section: the names of the sections and, between accents, those of the settings.
sed -n 's/^#* *\([A-Z][A-Za-z]*\)$/\1/p; s/^| *`\([^`]*\)` *|.*/\1/p' docs/settings.md | sort -u > "$work/names"
[ "$(wc -l < "$work/names")" -gt 100 ] || { echo 'fuzz: docs/settings.md names too few settings' >&2; exit 1; }
sed 's/[\\"]/\\&/g; s/.*/"&"/' "$work/names" > "$work/dictionary"
printf '"<ConfigInfo>"\n"</"\n"<!DOCTYPE"\n"<![CDATA["\n"<?xml"\n" ID=\\""\n"&#x"\n"<Version>9.000</Version>"\n"1.5e+00"\n"nan"\n"]]"\n' \
    >> "$work/dictionary"
sed 's/.*/System\/&=1.5/' "$work/names" > "$work/Address/settings"
sed 's/.*/Projector[1]\/&=a b/' "$work/names" > "$work/Address/devices"

run() {
    "$programs/xmlconfig_fuzz_$1" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2000 -max_len=20000 -print_final_stats=1 \
        -dict="$work/dictionary" -artifact_prefix="$found/$1-" "$work/$1" > "$work/$1.log" 2>&1 \
        || { tail -40 "$work/$1.log" >&2; echo "fuzz: $1 found something: see $found" >&2; exit 1; }
    printf '%s: %s inputs, covering %s edges\n' "$1" \
        "$(sed -n 's/^stat::number_of_executed_units: //p' "$work/$1.log")" "$(sed -n 's/.*cov: \([0-9]*\).*/\1/p' "$work/$1.log" | tail -1)"
}

failed=0
waiting=
for fuzzer in RoundTrip Sequence TextForm Path Address; do
    run "$fuzzer" &
    waiting="$waiting $!"
    set -- $waiting
    if [ $# -ge "$(nproc)" ]; then
        wait "$1" || failed=1
        shift
        waiting=$*
    fi
done
for one in $waiting; do wait "$one" || failed=1; done
rm -f "${TMPDIR:-/tmp}"/fuzz-[0-9]*.skorrax
exit "$failed"
