#!/bin/sh
# tests/windows/same-bytes.sh WINDOWS_BUILD LINUX_TOOL: the tool for Windows, run under Wine, writes what the one of this
# machine writes: its output, its complaints, its exit status and every file, byte for byte.
set -eu
cd "$(dirname "$0")/../.."
tool=$(realpath "$1/bin/xmlconfig.exe")
own=$(realpath "$2")
. tests/windows/wine.sh
work=$(mktemp -d)
trap 'endWine; rm -rf "$work"' EXIT

for system in linux windows; do
    mkdir "$work/$system" "$work/$system.said"
    cp examples/dome.skorrax examples/history/* "$work/$system/"
    sed 's/$/\r/' examples/dome.skorrax > "$work/$system/carriage-returns.skorrax"
done

runs=0
# say SYSTEM COMMAND...: what it says and how it ends, in that system's folder.
say() {
    system=$1
    shift
    status=0
    (cd "$work/$system" && exec "$@") > "$work/$system.said/$runs.out" 2> "$work/$system.said/$runs.err" || status=$?
    echo "$status" > "$work/$system.said/$runs.status"
}
# run ARGUMENT...: both tools, each in its folder.
run() {
    runs=$((runs + 1))
    printf '%s\n' "$*" > "$work/$runs.arguments"
    say linux "$own" "$@"
    say windows "$wine" "$tool" "$@"
}

# The first program makes the emulator's folder, and talks about it.
"$wine" "$tool" --version > "$work/first" 2>&1

run new new.skorrax
run new new.skorrax
run set new.skorrax 'System/RunType=CinemaRun' 'Geometry/Box_Spacing=1.75' 'Screen/Shape=Dome'
run set --force new.skorrax 'Projector[Größe 日本]/Name=Ü "&<>" 📽'
run get new.skorrax 'Projector[Größe 日本]/Name'
run show new.skorrax
run check new.skorrax
run show dome.skorrax
run check dome.skorrax
run layout --color never dome.skorrax
run layout --json dome.skorrax
run layout --svg dome.svg dome.skorrax
run show carriage-returns.skorrax
run set carriage-returns.skorrax 'System/RunType=CinemaRun'
run upgrade carriage-returns.skorrax -o copy.skorrax
run describe
run describe Geometry/Box_Spacing
run get none.skorrax System/RunType
run get dome.skorrax None/None
run set dome.skorrax 'System/RunType'
run nonsense
run --help
run upgrade --help
for file in examples/history/*; do
    name=$(basename "$file")
    run upgrade --explain "$name" -o "to-$name.skorrax"
    run upgrade --dry-run --json "$name"
    run upgrade "$name"
    run show "$name"
done
run diff dome.skorrax dome-1.500.skorra
run diff dome.skorrax dome.skorrax
run diff carriage-returns.skorrax dome.skorrax

diff -r "$work/linux" "$work/windows" && diff -r "$work/linux.said" "$work/windows.said" ||
    { echo 'same-bytes: the tool for Windows writes something else' >&2; exit 1; }
files=$(find "$work/linux" -type f | wc -l)
[ "$files" -gt 30 ] || { echo "same-bytes: only $files files were compared" >&2; exit 1; }
echo "same-bytes: $runs runs and $files files, all the same"
