#!/bin/sh
# Builds the platform folder and its tests for Windows and runs them under Wine.
# Needs Debian's g++-mingw-w64-x86-64-posix, googletest and wine64; further arguments go to the tests.
set -eu
cd "$(dirname "$0")/../.."
build=build/mingw

cmake -S tests/windows -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG='-O1 -g0' -DCMAKE_CXX_COMPILER_LAUNCHER="$(command -v ccache || true)"
cmake --build "$build" -j "$(nproc)" --target platform_tests

wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
server=$(command -v wineserver64 || echo /usr/lib/wine/wineserver64)
WINEPREFIX=$(mktemp -d)
export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
# The prefix's server writes into it until it goes, shortly after the last program.
trap '"$server" -w || true; rm -rf "$WINEPREFIX"' EXIT
timeout 600 "$wine" "$build/platform_tests.exe" --gtest_brief=1 "$@"
