#include <clocale>
#include <cstdlib>
#include <locale>

#include <gtest/gtest.h>

namespace {

/// With XMLCONFIG_TEST_LOCALE set, each test begins under the locale of the environment, as in an application that speaks
/// its user's language; otherwise under "C", as every program begins.
class ProcessLocale : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& /*info*/) override {
        std::locale::global(std::locale(""));
        std::setlocale(LC_ALL, "");
    }
};

const bool isFollowed = [] {
    if (std::getenv("XMLCONFIG_TEST_LOCALE") == nullptr) return false;
    testing::UnitTest::GetInstance()->listeners().Append(new ProcessLocale);
    return true;
}();

}  // namespace
