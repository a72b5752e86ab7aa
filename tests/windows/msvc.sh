#!/bin/sh
# tests/windows/msvc.sh: Clang, told to be the compiler of Visual Studio, accepts every public header alone, as a user of the
# DLL includes it, and every source of the library that needs no other library. It reads the headers of mingw-w64, for those
# of Visual Studio are not free; what only those would refuse is not seen.
set -eu
cd "$(dirname "$0")/../.."
gcc=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")
resources=$(clang++ -print-resource-dir)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export gcc resources work

# One file, with a report of its own: refused, needs another library, or accepted.
# One warning is off as it is for Visual Studio, with the reason, in CMakeLists.txt.
cat > "$work/try" <<'TRY'
case $1 in
    *.h) printf '#include "%s"\n' "$1" > "$work/$$.cpp"; source=$work/$$.cpp; of= ;;
    *) source=$1; of=-DXMLCONFIG_BUILDING ;;
esac
clang++ --target=x86_64-pc-windows-msvc -std=c++17 -fsyntax-only -fexceptions -fcxx-exceptions -fgnuc-version=12.2.0 \
    -D__MINGW32__ -D__MINGW64__ -D_UCRT -D__STRICT_ANSI__ -nostdinc -isystem "$gcc/include/c++" \
    -isystem "$gcc/include/c++/x86_64-w64-mingw32" -isystem "$resources/include" \
    -isystem /usr/x86_64-w64-mingw32/include -I. -Wall -Wextra -Werror \
    -Wno-dllexport-explicit-instantiation-decl $of "$source" 2> "$work/$$.errors" && echo "accepted $1" && exit
# Internal headers may include the other libraries, public ones not.
[ -n "$of" ] && grep -qE "fatal error: '(xercesc/|log4cxx/|xxhash.h)" "$work/$$.errors" && echo "needs $1" && exit
cat "$work/$$.errors" >&2
echo "refused $1"
TRY

# Users of other code pages compile them too, without /utf-8.
sed -n 's/^ *\([a-z]*\/[A-Za-z0-9]*\.h\))*$/\1/p' cmake/PublicHeaders.cmake > "$work/headers"
if LC_ALL=C xargs grep -nE '[^ -~	]' < "$work/headers" >&2; then
    echo 'msvc: a public header holds a character that is not of ASCII' >&2
    exit 1
fi

git ls-files 'platform/*.cpp' 'base/*.cpp' 'sections/*.cpp' 'store/*.cpp' 'manager/*.cpp' ':!platform/posix/*' > "$work/sources"
xargs grep -LE 'xercesc|log4cxx|store/(Log|Xml|Tree|Document|Text)' < "$work/sources" > "$work/own"
cat "$work/headers" "$work/own" > "$work/asked"
xargs -n 1 -P "$(nproc)" sh "$work/try" < "$work/asked" > "$work/answers"
accepted=$(grep -c '^accepted' "$work/answers" || true)
refused=$(grep -c '^refused' "$work/answers" || true)
echo "msvc: $accepted headers and sources accepted, $refused refused"
[ "$accepted" -gt 100 ] && [ "$refused" = 0 ] && [ "$(wc -l < "$work/answers")" = "$(wc -l < "$work/asked")" ]
