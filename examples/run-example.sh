#!/bin/sh
# Shows the example, changes a setting in a copy of it, shows what that changed, tours it through the manager, and upgrades
# the dome's file of 1.5.
# XMLCONFIG_TOOL names the tool; without it the release build's is taken.
set -eu
examples=$(cd "$(dirname "$0")" && pwd)
xmlconfig=${XMLCONFIG_TOOL:-$examples/../build/release/bin/xmlconfig}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$examples/dome.skorrax" "$work/dome.skorrax"
chmod u+w "$work/dome.skorrax"
cd "$work"

say() { printf '\n$ %s\n' "$*"; }

say xmlconfig show dome.skorrax
"$xmlconfig" show dome.skorrax

say xmlconfig check dome.skorrax
"$xmlconfig" check dome.skorrax
echo 'nothing found'

say xmlconfig describe Geometry/Box_Spacing
"$xmlconfig" describe Geometry/Box_Spacing

say xmlconfig get dome.skorrax Geometry/Box_Spacing
"$xmlconfig" get dome.skorrax Geometry/Box_Spacing

say xmlconfig set dome.skorrax Geometry/Box_Spacing=1.75 "'Projector[VELDAR***00:0a:0b:0c:0d:02]/Name=Dome, left of the middle'"
"$xmlconfig" set dome.skorrax Geometry/Box_Spacing=1.75 'Projector[VELDAR***00:0a:0b:0c:0d:02]/Name=Dome, left of the middle'

say diff before after
if diff "$examples/dome.skorrax" dome.skorrax; then
    echo 'run-example.sh: the file was not changed' >&2
    exit 1
fi

say tour dome.skorrax spare/dome.skorrax
mkdir spare
"$(dirname "$xmlconfig")/tour" dome.skorrax spare/dome.skorrax

say xmlconfig upgrade --explain history/dome-1.500.skorra -o upgraded.skorrax
mkdir history
cp "$examples/history/dome-1.500.skorra" history/
chmod u+w history/dome-1.500.skorra
# Status 1: a camera of a type that is not known any more is lost.
status=0
"$xmlconfig" upgrade --explain history/dome-1.500.skorra -o upgraded.skorrax || status=$?
if [ "$status" -ne 1 ]; then
    echo "run-example.sh: the upgrade ended with status $status, not 1" >&2
    exit 1
fi

say xmlconfig show upgraded.skorrax
"$xmlconfig" show upgraded.skorrax
