#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolRun.h"

TEST(ManualPage, IsReadByGroffWithoutAWarning) {
    if (shellStatus("command -v groff > /dev/null") != 0) GTEST_SKIP() << "groff is not installed";
    const TemporaryFolder folder;
    const std::string warnings = shellQuoted((folder.path() / "warnings").string());
    for (const char* const name :
         {"xmlconfig", "new", "show", "get", "set", "unset", "describe", "check", "layout", "diff", "upgrade"}) {
        const std::string page = shellQuoted(toolPath()) + " --man " + name;
        EXPECT_EQ(shellStatus(page + " | groff -man -ww -z > " + warnings + " 2>&1 && test ! -s " + warnings), 0) << name;
    }
}
