#!/bin/sh
# Builds the libraries that XMLConfig needs for 64-bit Windows, static, with Debian's mingw-w64, and prints the folder that holds them.
#
# The sources are Debian's source packages; apt reads them with lists of this script's own, so that the machine's stay as they are.
# log4cxx 1.0 is not among Debian's original archives: it is taken from the folder that XMLCONFIG_SOURCES names, else from the
# project's archive on the network, and only if its sum is the one below.
#
# What was built is kept below XMLCONFIG_WINDOWS_KEEP (default ~/.cache/xmlconfig-windows), in a folder named after this script,
# its patches, the toolchain file and the compiler: a second run costs nothing. With --kept it builds nothing and fails where
# nothing is kept. The status is 3 where the sources cannot be had.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
toolchain=$here/../mingw-w64.cmake
keep=${XMLCONFIG_WINDOWS_KEEP:-$HOME/.cache/xmlconfig-windows}
jobs=$(nproc)

log4cxxArchive=log4cxx-1.0.0.tar.xz
log4cxxAddress=https://github.com/apache/logging-log4cxx/archive/refs/tags/rel/v1.0.0.tar.gz
# The sum of the archive, and that of the files which are built: the archive on the network packs more, and in another way.
log4cxxArchiveSum=b788a552947ac6b778f0c9e3c3ce591effea0f6bf298ba0247a715aa408f98c5
log4cxxSum=c872195d7333b14ca40a2595cf56ded25d1ed9785db6c1daeeddfdd3b8e9fb4d

say() { printf '== %s\n' "$*" >&2; }
fail() { printf 'dependencies.sh: %s\n' "$*" >&2; exit 1; }
missing() { printf 'dependencies.sh: %s\n' "$*" >&2; exit 3; }

key=$({ cat "$0" "$toolchain" "$here"/patches/*; x86_64-w64-mingw32-g++-posix --version; } | sha256sum | cut -c 1-16)
prefix=$keep/$key
if [ -e "$prefix/complete" ]; then
    printf '%s\n' "$prefix"
    exit 0
fi
[ "${1:-}" != --kept ] || exit 1

mkdir -p "$keep"
work=$(mktemp -d "$keep/building-XXXXXX")
trap 'rm -rf "$work"' EXIT
export WINEPREFIX="$work/wine" WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' PKG_CONFIG_LIBDIR="$prefix/lib/pkgconfig" PKG_CONFIG_PATH=
launcher=$(command -v ccache || true)

# Source packages of the release that the machine runs, from the archives that it uses.
fetchSources() {
    mkdir -p "$work/apt/lists/partial" "$work/apt/empty"
    apt-get indextargets --format '$(CREATED_BY) $(REPO_URI) $(RELEASE) $(COMPONENT)' |
        sed -n 's/^Packages \([^ ]* [^ -]*\) main$/deb-src \1 main/p' | sort -u > "$work/apt/sources.list"
    [ -s "$work/apt/sources.list" ] || missing 'apt names no archive of packages; run apt-get update first'
    set -- -q -o Dir::Etc::sourcelist="$work/apt/sources.list" -o Dir::Etc::sourceparts="$work/apt/empty" \
        -o Dir::State::lists="$work/apt/lists" -o APT::Sandbox::User=root
    apt-get "$@" --error-on=any update >&2 && (cd "$work" && apt-get "$@" source xerces-c apr apr-util expat pugixml utf8proc fmtlib >&2) ||
        missing "Debian's source packages cannot be fetched"
}

sumOfLog4cxx() {
    (cd "$1" && find CMakeLists.txt src/CMakeLists.txt src/cmake src/site/CMakeLists.txt src/main/CMakeLists.txt src/main/cpp src/main/include \
        src/main/resources -type f ! -path '*log4cxx-qt*' | LC_ALL=C sort | xargs sha256sum | sha256sum | cut -c 1-64)
}

fetchLog4cxx() {
    mkdir -p "$work/log4cxx-1.0.0"
    if [ -e "${XMLCONFIG_SOURCES:-/nowhere}/$log4cxxArchive" ]; then
        archive=$XMLCONFIG_SOURCES/$log4cxxArchive
        printf '%s  %s\n' "$log4cxxArchiveSum" "$archive" | sha256sum -c --quiet - >&2 || fail "$archive is not the archive that is expected"
    else
        archive=$work/log4cxx.tar.gz
        curl -fsSL --connect-timeout 20 --max-time 300 -o "$archive" "$log4cxxAddress" ||
            missing "$log4cxxArchive is not in the folder that XMLCONFIG_SOURCES names (${XMLCONFIG_SOURCES:-none}), nor can $log4cxxAddress be fetched"
    fi
    tar -C "$work/log4cxx-1.0.0" --strip-components 1 -xf "$archive"
    [ "$(sumOfLog4cxx "$work/log4cxx-1.0.0")" = "$log4cxxSum" ] || fail "$archive does not hold log4cxx 1.0.0"
}

# patched NAME: applies the patch of that name to the sources of that name.
patched() { patch -s -d "$work/$1"-[0-9]* -p1 < "$here/patches/$1.patch"; }

# make SOURCES TARGET [CMAKE OPTION]...
make() {
    sources=$1
    target=$2
    shift 2
    say "building $(basename "$sources")"
    cmake -S "$sources" -B "$sources/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DXMLCONFIG_WINDOWS_PREFIX="$prefix" \
        -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
        -DCMAKE_C_COMPILER_LAUNCHER="$launcher" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" "$@" > "$work/log" 2>&1 &&
        cmake --build "$sources/build" -j "$jobs" --target "$target" >> "$work/log" 2>&1 ||
        { tail -n 60 "$work/log" >&2; fail "$(basename "$sources") cannot be built"; }
}

buildXerces() {
    folder=$(echo "$work"/xerces-c-*/)
    sed -i -E '/^add_subdirectory\((doc|tests|samples)\)/d' "$folder/CMakeLists.txt"
    make "$folder" install -Dtranscoder=windows -Dnetwork=OFF -Dmessage-loader=inmemory
}

buildExpat() {
    patched expat
    make "$(echo "$work"/expat-*/)expat" install -DEXPAT_BUILD_TESTS=OFF -DEXPAT_BUILD_TOOLS=OFF -DEXPAT_BUILD_EXAMPLES=OFF \
        -DEXPAT_BUILD_DOCS=OFF -DEXPAT_SHARED_LIBS=OFF
}

# APR and APR-util are installed by hand: their own installation wants the DLLs and libaprapp, too.
buildApr() {
    patched apr
    folder=$(echo "$work"/apr-1*/)
    make "$folder" apr-1 -DAPR_HAVE_IPV6=OFF -DINSTALL_PDB=OFF -DCMAKE_C_FLAGS='-DHAVE_ATOMIC_BUILTINS=1 -DHAVE_ATOMIC_BUILTINS64=1'
    cp "$folder/build/libapr-1.a" "$prefix/lib/"
    cp "$folder"/include/apr_*.h "$folder/build/apr.h" "$prefix/include/"
}

buildAprUtil() {
    folder=$(echo "$work"/apr-util-*/)
    make "$folder" aprutil-1 -DAPU_HAVE_ODBC=OFF -DAPR_HAS_LDAP=OFF -DINSTALL_PDB=OFF -DAPR_INCLUDE_DIR="$prefix/include" \
        -DAPR_LIBRARIES="$prefix/lib/libapr-1.a"
    cp "$folder/build/libaprutil-1.a" "$prefix/lib/"
    cp "$folder"/include/ap[ru]_*.h "$folder/build/"apu*.h "$prefix/include/"
}

buildLog4cxx() {
    patched log4cxx
    make "$(echo "$work"/log4cxx-*/)" install -DAPR_STATIC=ON -DAPU_STATIC=ON -DAPR_CONFIG_EXECUTABLE=none -DAPR_UTIL_CONFIG_EXECUTABLE=none \
        -DLOG4CXX_NETWORKING_SUPPORT=OFF -DENABLE_FMT_LAYOUT=OFF -DBUILD_TESTING=OFF -DCMAKE_CXX_FLAGS=-DXML_STATIC
}

buildToolLibraries() {
    make "$(echo "$work"/pugixml-*/)" install
    make "$(echo "$work"/utf8proc-*/)" install -DUTF8PROC_INSTALL=ON -DUTF8PROC_ENABLE_TESTING=OFF
    make "$(echo "$work"/fmtlib-*/)" install -DFMT_TEST=OFF -DFMT_DOC=OFF
}

# Libraries that are headers only; the compiler for Windows must not see the machine's own folder of headers.
copyHeaders() {
    mkdir -p "$prefix/share/cmake"
    cp -r /usr/include/CLI /usr/include/nlohmann /usr/include/xxhash.h "$prefix/include/"
    cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$prefix/share/cmake/"
}

rm -rf "$prefix"
mkdir -p "$prefix/lib" "$prefix/include"
fetchLog4cxx
fetchSources
buildXerces
buildExpat
buildApr
buildAprUtil
buildLog4cxx
buildToolLibraries
copyHeaders
touch "$prefix/complete"
say "the dependencies for Windows stand in $prefix"
printf '%s\n' "$prefix"
