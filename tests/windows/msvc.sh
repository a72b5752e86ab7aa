#!/bin/sh
# tests/windows/msvc.sh: Clang, told to be the compiler of Visual Studio, accepts every public header alone, as a user of the
# DLL includes it, and every source of the library that needs no other library. It reads the headers of mingw-w64, for those
# of Visual Studio are not free; what only those would refuse is not seen.
set -eu
cd "$(dirname "$0")/../.."
library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# One warning is off as it is for Visual Studio, with the reason, in CMakeLists.txt.
accepted() {
    clang++ --target=x86_64-pc-windows-msvc -std=c++17 -fsyntax-only -fexceptions -fcxx-exceptions -fgnuc-version=12.2.0 \
        -D__MINGW32__ -D__MINGW64__ -D_UCRT -D__STRICT_ANSI__ -nostdinc -isystem "$library/include/c++" \
        -isystem "$library/include/c++/x86_64-w64-mingw32" -isystem "$(clang++ -print-resource-dir)/include" \
        -isystem /usr/x86_64-w64-mingw32/include -I. -Wall -Wextra -Werror \
        -Wno-dllexport-explicit-instantiation-decl "$@"
}

failed=0
count=0
for header in $(sed -n 's/^ *\([a-z]*\/[A-Za-z0-9]*\.h\))*$/\1/p' cmake/PublicHeaders.cmake); do
    printf '#include "%s"\n' "$header" > "$work/header.cpp"
    count=$((count + 1))
    accepted "$work/header.cpp" || failed=$((failed + 1))
done
for source in $(git ls-files 'platform/*.cpp' 'base/*.cpp' 'sections/*.cpp' 'store/*.cpp' 'manager/*.cpp' ':!platform/posix/*' |
    xargs grep -LE 'xercesc|log4cxx|store/(Log|Xml|Tree|Document|Text)'); do
    count=$((count + 1))
    accepted -DXMLCONFIG_BUILDING "$source" 2> "$work/errors" && continue
    # Headers of this project that include the other libraries.
    grep -qE "fatal error: '(xercesc|log4cxx)/" "$work/errors" && count=$((count - 1)) && continue
    cat "$work/errors" >&2
    failed=$((failed + 1))
done
echo "msvc: $count headers and sources tried, $failed refused"
[ "$count" -gt 100 ] && [ "$failed" = 0 ]
