#!/bin/sh
# coverage/run.sh: runs the suite of the coverage preset and tells, a folder in a line, how many of the lines and branches of the
# sources it ran. Branches that only an exception takes out of a call are left out. The table by files goes to
# build/coverage/files.csv. Fails where a folder is below its bound.
set -eu
cd "$(dirname "$0")/../.."
find build/coverage -name '*.gcda' -delete
# One test is left out: its limit on the size of files falls on the counters that the tool writes at its end.
XMLCONFIG_TOOL="$PWD/build/coverage/bin/xmlconfig" build/coverage/bin/xmlconfig_tests --gtest_brief=1 \
    --gtest_filter=-Tool.SetTellsOnceThatTheFileCannotBeSaved
# What a test's own object holds of a header is the linker's choice, and gcov does not say of branches in a copy that never runs
# which are taken by exceptions alone: only the objects of the library and the tool are read.
gcovr --root . --object-directory build/coverage --filter '(platform|store|base|sections|manager|tools)/' \
    --exclude-throw-branches --exclude-unreachable-branches --csv --output build/coverage/files.csv --print-summary \
    build/coverage/CMakeFiles build/coverage/tools > /dev/null
awk -F , '
    NR == 1 { next }
    {
        folder = $1
        sub("/[^/]*$", "", folder)
        lines[folder] += $2; linesRun[folder] += $3; branches[folder] += $5; branchesRun[folder] += $6
    }
    function share(part, whole) { return whole == 0 ? 100 : 100 * part / whole }
    END {
        count = split("platform platform/posix store base sections manager manager/check manager/diff manager/layout " \
                      "manager/upgrade tools tools/static", order, " ")
        for (i = 2; i < count - 1; i++) bound[order[i]] = 97
        bound["manager/upgrade"] = 100
        printf "%-18s %7s %7s %9s %7s\n", "folder", "lines", "run", "branches", "run"
        for (i = 1; i <= count; i++) {
            f = order[i]
            low = lines[f] == 0 || share(linesRun[f], lines[f]) < bound[f] || (bound[f] == 100 && branchesRun[f] < branches[f])
            isListed[f] = 1
            printf "%-18s %7d %6.1f%% %9d %6.1f%%%s\n", f, lines[f], share(linesRun[f], lines[f]), branches[f],
                   share(branchesRun[f], branches[f]), low ? lines[f] == 0 ? "  nothing was counted" : "  below " bound[f] "%" : ""
            failed += low
        }
        for (f in lines) if (!(f in isListed)) { print f ": a folder without a bound"; failed++ }
        exit failed > 0
    }' build/coverage/files.csv
