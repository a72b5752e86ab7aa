#!/bin/sh
# The one way to build, try, test and install XMLConfig on Debian 12. ./do help lists the verbs.
set -eu
cd "$(dirname "$0")"
root=$(pwd)
jobs=$(nproc)
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=1

# What each verb needs, by Debian's names.
forBuilding='cmake ninja-build ccache g++ pkg-config libxerces-c-dev liblog4cxx-dev libxxhash-dev libcli11-dev nlohmann-json3-dev libfmt-dev libpugixml-dev libutf8proc-dev'
forTesting='libgtest-dev libgmock-dev locales'
forBenchmarks='libbenchmark-dev libxml2-dev'
forFuzzing='clang libclang-rt-14-dev'
forCoverage='gcovr'
forTracing='strace time'
forWindows='g++-mingw-w64-x86-64-posix wine64 googletest clang dpkg-dev patch curl xz-utils'
forChecking='clang-format clang-tidy valgrind'

doing=
say() { doing=$*; printf '\n== %s\n' "$*"; }
fail() { printf './do: %s\n' "$*" >&2; exit 1; }
asRoot() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }
isInstalled() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# The logs of a run are long: at the end, however it comes, stand the verdicts of all that ran, and what failed.
verdicts=$(mktemp -d)
tellVerdicts() {
    status=$?
    [ ! -s "$verdicts/all" ] || { printf '\n== verdicts\n'; cat "$verdicts/all"; }
    rm -rf "$verdicts"
    [ "$status" -eq 0 ] || [ -z "$doing" ] || printf '\n== FAILED: %s\n' "$doing"
}
trap tellVerdicts EXIT

# judge PATTERN COMMAND...: runs a program and keeps those lines of its output for the end.
judge() {
    pattern=$1
    shift
    { status=0; "$@" || status=$?; echo "$status" > "$verdicts/status"; } | tee "$verdicts/said"
    { echo "$doing:"; grep -E "$pattern" "$verdicts/said" || echo 'no verdict'; } >> "$verdicts/all"
    return "$(cat "$verdicts/status")"
}
# judgeTests PRESET [OPTION]...
judgeTests() { judge 'tests passed, [0-9]+ tests failed out of' ctest --preset "$@"; }

# Installs those of the named packages that are missing; asks nothing.
need() {
    command -v dpkg-query > /dev/null || return 0
    missing=
    for package in "$@"; do
        isInstalled "$package" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "installing$missing"
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get update -q
    # shellcheck disable=SC2086 # one word a package
    asRoot env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing < /dev/null
}

# build PRESET [CMAKE OPTION]...
build() {
    preset=$1
    shift
    say "building $preset"
    cmake --preset "$preset" "$@"
    cmake --build --preset "$preset" -j "$jobs"
}

buildRelease() {
    # shellcheck disable=SC2086
    need $forBuilding
    build release -DBUILD_TESTING=OFF -DXMLCONFIG_BUILD_BENCHMARKS=OFF "$@"
}

doRun() {
    buildRelease
    say 'running the example'
    sh examples/run-example.sh
}

doTest() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting
    build dev
    say 'testing'
    judgeTests dev -j "$jobs"
}

doBench() {
    # shellcheck disable=SC2086
    need $forBuilding $forBenchmarks
    build release -DBUILD_TESTING=OFF -DXMLCONFIG_BUILD_BENCHMARKS=ON
    say 'measuring'
    build/release/bin/xmlconfig_bench "$@"
    say 'editing a document a million times'
    build/release/bin/xmlconfig_growth
}

# What is built for Windows with mingw-w64, tried under Wine: the suite, the tool's bytes, what users get.
# tryWindows PREFIX, the folder of what the library needs.
tryWindows() {
    export XMLCONFIG_WINDOWS_PREFIX="$1" CCACHE_SLOPPINESS=pch_defines,time_macros
    say 'asking for what the compiler of Visual Studio would refuse'
    judge '^msvc: ' sh tests/windows/msvc.sh
    build dev
    build windows
    say 'testing for Windows'
    judge '^under Wine: ' sh tests/windows/suite.sh build/windows
    judge '^same-bytes: ' sh tests/windows/same-bytes.sh build/windows build/dev/bin/xmlconfig
    judge '^package: ' sh tests/windows/package.sh build/windows
    build windows-static
    judge '^package: ' sh tests/windows/package.sh build/windows-static
}

doWindows() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting $forWindows
    say 'building what the library needs for Windows'
    prefix=$(sh cmake/windows/dependencies.sh)
    tryWindows "$prefix"
}

# All for Windows where what the library needs is kept or its sources can be had, else what is particular to it.
checkWindows() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting $forWindows
    say 'building what the library needs for Windows'
    status=0
    prefix=$(sh cmake/windows/dependencies.sh) || status=$?
    case $status in
        0) tryWindows "$prefix" ;;
        3)
            say 'testing what is particular to Windows and no more, for want of the sources above'
            judge '^\[  (PASSED|FAILED)  \] [0-9]+ test' sh tests/windows/run.sh
            ;;
        *) exit "$status" ;;
    esac
}

checkFormat() {
    say 'checking the format'
    sources=$(git ls-files -- '*.h' '*.cpp')
    echo "$sources" | xargs clang-format --dry-run --Werror
}

# The sources that other people's programs run; clang-tidy and the headers of GoogleTest would take an hour together.
checkTidy() {
    say 'running clang-tidy'
    sources=$(git ls-files -- 'platform/*.cpp' 'store/*.cpp' 'base/*.cpp' 'sections/*.cpp' 'manager/*.cpp' 'tools/*.cpp' \
        ':!platform/windows/*')
    echo "$sources" | xargs -n 1 -P "$jobs" clang-tidy --quiet -p build/dev
}

# The release's instructions for nine fixed jobs, of which none may grow by more than 3 % unseen.
checkCounts() {
    cmake --preset release -DBUILD_TESTING=OFF -DXMLCONFIG_BUILD_BENCHMARKS=ON
    cmake --build --preset release -j "$jobs" --target xmlconfig_counts
    say 'counting instructions'
    judge ' projectors: |^  takes |^not ' sh bench/counts.sh
}

doCheck() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting $forBenchmarks $forChecking
    checkFormat
    build dev
    checkTidy
    build asan
    say 'testing with the sanitizers'
    judgeTests asan -j "$jobs"
    build tsan
    say 'testing threads with the thread sanitizer'
    judgeTests tsan
    checkWindows
    checkCounts
    doFuzz 30
    say 'using the static library as a consumer'
    judge '^consumer: .* serves ' env XMLCONFIG_BUILD_TYPE=Debug XMLCONFIG_FLAGS_DEBUG=-O0 XMLCONFIG_LAUNCHER=ccache \
        sh tests/consumer/run.sh build/consumer-static static
    say 'all checks passed'
}

doInstall() {
    prefix=${1:-/usr/local}
    case $prefix in
        /*) ;;
        *) prefix=$root/$prefix ;;
    esac
    buildRelease -DCMAKE_INSTALL_PREFIX="$prefix"
    say "installing below $prefix"
    if mkdir -p "$prefix" 2> /dev/null && [ -w "$prefix" ]; then
        cmake --install build/release
    else
        asRoot cmake --install build/release
    fi
    if [ "$prefix" = /usr/local ]; then asRoot ldconfig; fi
    say "installed below $prefix"
}

# Inputs that nobody thought of: so many seconds for each fuzzer.
doFuzz() {
    # shellcheck disable=SC2086
    need $forBuilding $forFuzzing
    build fuzz
    say 'fuzzing'
    judge ' inputs, covering ' sh fuzz/run.sh "$@"
}

# What no test runs, a folder in a line.
doCoverage() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting $forCoverage
    build coverage
    sh tests/coverage/run.sh
}

# Files made to harm, calls of the system that fail, and kills at any time.
doFaults() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting $forTracing
    build dev
    build release -DBUILD_TESTING=OFF
    say 'every call of the system fails'
    build/dev/bin/xmlconfig_faults errors
    say 'killed at every call of the system and at random'
    build/dev/bin/xmlconfig_faults kills 2000
    say 'hostile files'
    sh tests/hostile/run.sh build/release/bin/xmlconfig
    sh tests/hostile/large.sh build/release/bin/xmlconfig
    sh tests/hostile/growth.sh build/release/bin/xmlconfig
}

# The whole suite as other users, languages and places see it.
doSuites() {
    # shellcheck disable=SC2086
    need $forBuilding $forTesting
    sh tests/suites/run.sh "$@"
}

doClean() {
    rm -rf build out
    say 'removed build/ and out/'
}

doHelp() {
    cat <<'TEXT'
./do run                build the release and run the shipped example
./do test               build and run every test
./do bench [OPTION]...  measure against other XML libraries, and memory over a million edits; options go to xmlconfig_bench
./do measure [FOLDER]    sizes of the sources, here or in the checkout of another commit
./do check              format, clang-tidy, sanitizers, threads, fuzzers, Windows parts, static consumer
./do fuzz [SECONDS]     five fuzzers, each for so long (30)
./do coverage           lines and branches that the tests run, a folder in a line
./do faults             failing calls of the system, kills at any time, files made to harm
./do suites             every test in four languages, odd time zones and paths, as a user who is not root
./do windows            build all for Windows with mingw-w64 and try it under Wine
./do install [PREFIX]   build the release and install it (default /usr/local)
./do clean              remove what was built
./do help               this list

Missing Debian packages are installed by name, with sudo where it is needed.
TEXT
}

verb=${1:-help}
[ $# -eq 0 ] || shift
case $verb in
    run) doRun ;;
    test) doTest ;;
    bench) doBench "$@" ;;
    measure) sh tests/measure.sh "${1:-.}" ;;
    check) doCheck ;;
    fuzz) doFuzz "$@" ;;
    coverage) doCoverage ;;
    faults) doFaults ;;
    suites) doSuites "$@" ;;
    windows) doWindows ;;
    install) doInstall "$@" ;;
    clean) doClean ;;
    help | -h | --help) doHelp ;;
    *) doHelp >&2; fail "there is no verb '$verb'" ;;
esac
