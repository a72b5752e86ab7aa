#!/bin/sh
# start/run.sh TOOL: the tool loads none of the libraries that it was linked without, for they would be most of its start.
set -eu
loaded=$(ldd "$1")
echo "$(echo "$loaded" | wc -l) libraries"
if echo "$loaded" | grep -E 'libcurl|libxerces|libXMLConfig'; then
    echo 'the tool was linked so that it starts without these' >&2
    exit 1
fi
