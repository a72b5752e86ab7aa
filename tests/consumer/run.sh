#!/bin/sh
# consumer/run.sh WORK [shared|static]: installs the library below WORK and uses it as its users do, through CMake and
# through pkg-config; every installed header must compile alone. WORK is kept, so that a second run is quick.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
sources=$(cd "$here/../.." && pwd)
mkdir -p "$1"
work=$(cd "$1" && pwd)
kind=${2:-shared}
compiler=${CXX:-c++}
prefix=$work/prefix
jobs=$(nproc)
export CCACHE_BASEDIR="$sources" CCACHE_NOHASHDIR=1

say() { printf 'consumer: %s\n' "$*"; }

case $kind in
    shared) shared=ON ;;
    static) shared=OFF ;;
    *) say "unknown kind '$kind'" >&2; exit 2 ;;
esac

say "installing the $kind library"
cmake -S "$sources" -B "$work/library" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_BUILD_TYPE="${XMLCONFIG_BUILD_TYPE:-Release}" -DCMAKE_CXX_FLAGS="${XMLCONFIG_FLAGS:-}" \
    -DCMAKE_CXX_FLAGS_DEBUG="${XMLCONFIG_FLAGS_DEBUG:--g}" -DCMAKE_CXX_COMPILER_LAUNCHER="${XMLCONFIG_LAUNCHER:-}" \
    --no-warn-unused-cli -DXMLCONFIG_WARNINGS_AS_ERRORS=ON -DBUILD_TESTING=OFF -DBUILD_SHARED_LIBS=$shared \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON
cmake --build "$work/library" -j "$jobs"
rm -rf "$prefix"
cmake --install "$work/library" > /dev/null

if [ "$kind" = static ] && command -v readelf > /dev/null; then
    # What is made at the usual time may be used before it is made: platform/Early.h
    late=$(readelf -SW "$(find "$prefix" -name libXMLConfig.a)" | grep -c '\.init_array ' || true)
    [ "$late" = 0 ] || { say "$late sources make static objects without XMLCONFIG_EARLY" >&2; exit 1; }
fi

say "compiling every installed header alone"
headers=$prefix/include/XMLConfig
(cd "$headers" && find . -name '*.h' | sort) > "$work/headers"
[ -s "$work/headers" ] || { say "no header was installed" >&2; exit 1; }
sed 's/^\.\///' "$work/headers" | xargs -P "$jobs" -I '{}' sh -c \
    'printf "#include \"%s\"\n" "$3" | "$1" -std=c++17 -Wall -Wextra -Wpedantic -Werror -I "$2" -fsyntax-only -x c++ -' \
    sh "$compiler" "$headers" '{}'
say "$(wc -l < "$work/headers") headers compile alone"

# The program runs where a file would have the log written to a file, of which a program that configures no log knows
# nothing: neither that file nor a complaint about the log may come of it.
tryProgram() {
    rm -rf "$work/files" "$work/current"
    mkdir "$work/files" "$work/current"
    cp "$here/log4cxx.properties" "$work/current"
    (cd "$work/current" && LC_ALL=C "$1" "$work/files") 2> "$work/errors" || { cat "$work/errors" >&2; exit 1; }
    [ ! -s "$work/errors" ] || { say "$2: on standard error: $(cat "$work/errors")" >&2; exit 1; }
    [ "$(ls "$work/current")" = log4cxx.properties ] || { say "$2: a file of the folder set up the log" >&2; exit 1; }
    say "$2: the program works"
}

rm -rf "$work/by-cmake"
cmake -S "$here" -B "$work/by-cmake" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_BUILD_TYPE=Release > /dev/null
cmake --build "$work/by-cmake"
tryProgram "$work/by-cmake/consumer" "by CMake"
tryProgram "$work/by-cmake/early" "before main and after it"

# shellcheck disable=SC2046 # the flags are words
pkgConfigFile=$(find "$prefix" -name XMLConfig.pc)
export PKG_CONFIG_PATH="${pkgConfigFile%/*}"
"$compiler" -std=c++17 "$here/main.cpp" -o "$work/by-pkg-config" $(pkg-config --cflags --libs XMLConfig) \
    "-Wl,-rpath,$(pkg-config --variable=libdir XMLConfig)"
tryProgram "$work/by-pkg-config" "by pkg-config"
pkg-config --exact-version=2.1.1.14 XMLConfig

tool=$prefix/bin/xmlconfig
if [ -x "$tool" ]; then
    "$tool" --help > /dev/null
    say "the installed tool starts"
fi
