#!/bin/sh
# tests/windows/package.sh BUILD: packs what users of Windows get, the library, its headers, the tool and the manual, into
# BUILD/XMLConfig-VERSION-windows-x64.zip, and builds and runs a program against what comes out of it, in an empty folder.
set -eu
cd "$(dirname "$0")/../.."
build=$(realpath "$1")
. tests/windows/wine.sh
work=$(mktemp -d)
trap 'endWine; rm -rf "$work"' EXIT

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
name=XMLConfig-$version-windows-x64
cmake --install "$build" --prefix "$work/packed/$name" > /dev/null
mkdir -p "$work/packed/$name/manual"
cp README.md CHANGELOG.md docs/*.md "$work/packed/$name/manual/"
rm -f "$build/$name.zip"
(cd "$work/packed" && cmake -E tar cf "$build/$name.zip" --format=zip "$name")

mkdir "$work/user"
(cd "$work/user" && cmake -E tar xf "$build/$name.zip")
package=$work/user/$name
for file in bin/xmlconfig.exe bin/libXMLConfig.dll lib/libXMLConfig.dll.a include/XMLConfig/store/ConfigInfo.h manual/README.md; do
    [ -s "$package/$file" ] || { echo "package: $file is missing" >&2; exit 1; }
done

cmake -S tests/consumer -B "$work/consumer" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" \
    -DXMLCONFIG_WINDOWS_PREFIX="$package" -DCMAKE_BUILD_TYPE=Release > "$work/log" &&
    cmake --build "$work/consumer" >> "$work/log" || { cat "$work/log"; exit 1; }
WINEPATH="Z:$(echo "$package/bin" | tr / '\\')"
export WINEPATH
mkdir "$work/shows"
"$wine" "$work/consumer/consumer.exe" "Z:$(echo "$work/shows" | tr / '\\')"
"$wine" "$package/bin/xmlconfig.exe" --version
echo "package: $build/$name.zip serves a program"
