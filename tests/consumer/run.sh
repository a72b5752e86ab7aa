#!/bin/sh
# consumer/run.sh WORK [shared|static]: installs the library below WORK and uses it as its users do, through CMake and
# through pkg-config, from folders below a prefix and from absolute ones, and as a part of another project; every installed
# header must compile alone. WORK is kept, so that a second run is quick.
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

# configureLibrary PREFIX LIBDIR INCLUDEDIR
configureLibrary() {
    cmake -S "$sources" -B "$work/library" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_BUILD_TYPE="${XMLCONFIG_BUILD_TYPE:-Release}" -DCMAKE_CXX_FLAGS="${XMLCONFIG_FLAGS:-}" \
        -DCMAKE_CXX_FLAGS_DEBUG="${XMLCONFIG_FLAGS_DEBUG:--g}" -DCMAKE_CXX_COMPILER_LAUNCHER="${XMLCONFIG_LAUNCHER:-}" \
        --no-warn-unused-cli -DXMLCONFIG_WARNINGS_AS_ERRORS=ON -DBUILD_TESTING=OFF -DBUILD_SHARED_LIBS=$shared \
        -DCMAKE_INSTALL_PREFIX="$1" -DCMAKE_INSTALL_LIBDIR="$2" -DCMAKE_INSTALL_INCLUDEDIR="$3" \
        -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON
}

say "installing the $kind library"
configureLibrary "$prefix" lib include
cmake --build "$work/library" -j "$jobs"
rm -rf "$prefix"
cmake --install "$work/library" > /dev/null

if [ "$kind" = static ] && command -v readelf > /dev/null; then
    # What is made at the usual time may be used before it is made: platform/Early.h
    readelf -SW "$prefix/lib/libXMLConfig.a" > "$work/parts"
    late=$(grep -c '\.init_array ' "$work/parts" || true)
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

# useByPkgConfig LIBDIR WHAT
useByPkgConfig() {
    export PKG_CONFIG_PATH="$1/pkgconfig"
    libraries=$1
    what=$2
    # The flags are words of the shell, in which pkg-config escapes the blanks of paths.
    eval "set -- $(pkg-config --cflags --libs XMLConfig)"
    "$compiler" -std=c++17 "$here/main.cpp" -o "$work/by-pkg-config" "$@" "-Wl,-rpath,$libraries"
    tryProgram "$work/by-pkg-config" "$what"
    pkg-config --exact-version=2.1.1.14 XMLConfig
}
useByPkgConfig "$prefix/lib" "by pkg-config"

if [ "$kind" = static ]; then
    say "looking for the package without what it needs"
    # notFound REASON OPTION: the configuration goes on, and the reason is told
    notFound() {
        rm -rf "$work/optional"
        cmake -S "$here/optional" -B "$work/optional" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
            -DCMAKE_PREFIX_PATH="$prefix" -DREASON="$1" "$2" > /dev/null
    }
    notFound XercesC -DCMAKE_DISABLE_FIND_PACKAGE_XercesC=ON
    notFound PkgConfig -DCMAKE_DISABLE_FIND_PACKAGE_PkgConfig=ON
    (export PKG_CONFIG_LIBDIR="$work/none" PKG_CONFIG_PATH=; notFound liblog4cxx --no-warn-unused-cli)
fi

say "installing to folders given as absolute paths"
# CMake refuses folders of headers below the sources, where this script may be told to work.
apart=$(mktemp -d)
trap 'rm -rf "$apart"' EXIT
configureLibrary "$apart/prefix" "$apart/libraries" "$apart/headers" > /dev/null
cmake --build "$work/library" -j "$jobs" > /dev/null
cmake --install "$work/library" > /dev/null
[ -f "$apart/headers/XMLConfig/store/ConfigInfo.h" ] || { say "the headers are elsewhere" >&2; exit 1; }
useByPkgConfig "$apart/libraries" "by pkg-config, from absolute folders"

say "taking the sources in"
# A project that says nothing of libraries gets static ones, as from CMake itself.
case $kind in
    shared) shareAll=-DBUILD_SHARED_LIBS=ON ;;
    static) shareAll=-UBUILD_SHARED_LIBS ;;
esac
cmake -S "$here/subdirectory" -B "$work/subdirectory" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DSOURCES="$sources" \
    -DCMAKE_BUILD_TYPE="${XMLCONFIG_BUILD_TYPE:-Release}" -DCMAKE_CXX_FLAGS="${XMLCONFIG_FLAGS:-}" \
    -DCMAKE_CXX_FLAGS_DEBUG="${XMLCONFIG_FLAGS_DEBUG:--g}" -DCMAKE_CXX_COMPILER_LAUNCHER="${XMLCONFIG_LAUNCHER:-}" \
    -DXMLCONFIG_WARNINGS_AS_ERRORS=ON $shareAll > /dev/null
cmake --build "$work/subdirectory" -j "$jobs" --target consumer
tryProgram "$work/subdirectory/consumer" "by add_subdirectory"

"$prefix/bin/xmlconfig" --help > /dev/null
say "the $kind library serves its users, and the installed tool starts"
