#!/bin/sh
# threads/run.sh PROGRAM: runs the program of many threads in a folder of its own, from the root of the sources.
set -eu
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for number in 0 1 2 3 4 5 6 7; do mkdir "$work/$number"; done
TSAN_OPTIONS="halt_on_error=1 suppressions=tests/threads/suppressions.txt" "$1" "$work"
