#!/bin/sh
# tests/windows/package.sh BUILD: packs what users of Windows get, the library, its headers, the manual and, with the DLL, the
# tool, into BUILD/XMLConfig-VERSION-windows-x64.zip, or ...-static.zip where BUILD is of the static library, and builds and
# runs programs against what comes out of it, in an empty folder.
set -eu
cd "$(dirname "$0")/../.."
build=$(realpath "$1")
. tests/windows/wine.sh
work=$(mktemp -d)
trap 'endWine; rm -rf "$work"' EXIT

cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }
name=XMLConfig-$(cached CMAKE_PROJECT_VERSION)-windows-x64
libraries=$XMLCONFIG_WINDOWS_PREFIX
files='bin/xmlconfig.exe bin/libXMLConfig.dll lib/libXMLConfig.dll.a'
if [ "$(cached BUILD_SHARED_LIBS)" = OFF ]; then
    name=$name-static
    files=lib/libXMLConfig.a
else
    libraries=  # the DLL holds what it needs
fi

cmake --install "$build" --prefix "$work/packed/$name" > /dev/null
mkdir -p "$work/packed/$name/manual"
cp README.md CHANGELOG.md docs/*.md "$work/packed/$name/manual/"
rm -f "$build/$name.zip"
(cd "$work/packed" && cmake -E tar cf "$build/$name.zip" --format=zip "$name")

mkdir "$work/user"
(cd "$work/user" && cmake -E tar xf "$build/$name.zip")
package=$work/user/$name
for file in $files include/XMLConfig/store/ConfigInfo.h manual/README.md; do
    [ -s "$package/$file" ] || { echo "package: $file is missing" >&2; exit 1; }
done

# Nothing of the compiler's own goes with it, and the properties of its files tell the version.
for file in $files; do
    case $file in *.exe | *.dll) ;; *) continue ;; esac
    x86_64-w64-mingw32-objdump -p "$package/$file" | sed -n 's/.*DLL Name: //p' > "$work/needed"
    [ -s "$work/needed" ] || { echo "package: $file names no DLL, not even those of Windows" >&2; exit 1; }
    if grep -iE '^lib(stdc|gcc|winpthread)' "$work/needed" >&2; then
        echo "package: $file needs a DLL of the compiler" >&2
        exit 1
    fi
    strings -el "$package/$file" | grep -qxF "$(cached CMAKE_PROJECT_VERSION)" ||
        { echo "package: $file does not tell its version" >&2; exit 1; }
done

cmake -S tests/consumer -B "$work/consumer" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" \
    -DXMLCONFIG_WINDOWS_PREFIX="$package;$libraries" -DCMAKE_BUILD_TYPE=Release > "$work/log" &&
    cmake --build "$work/consumer" >> "$work/log" || { cat "$work/log"; exit 1; }
WINEPATH="Z:$(echo "$package/bin" | tr / '\\')"
export WINEPATH
for program in consumer early; do
    mkdir "$work/shows"
    "$wine" "$work/consumer/$program.exe" "Z:$(echo "$work/shows" | tr / '\\')"
    rm -rf "$work/shows"
done
if [ -e "$package/bin/xmlconfig.exe" ]; then "$wine" "$package/bin/xmlconfig.exe" --version; fi
echo "package: $build/$name.zip serves two programs"
