#include "store/Log.h"

#include <clocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"

using XMLConfig::detail::logError;
using XMLConfig::detail::logger;
using XMLConfig::detail::logInfo;
using XMLConfig::detail::logTrace;
using XMLConfig::detail::logWarn;

TEST(Log, LinesCarryLoggerLevelAndText) {
    LogCapture log;
    const auto target = logger(L"Ulvano.XMLConfig.LogTest");
    logTrace(target, L"one");
    logInfo(target, L"two");
    logWarn(target, L"three");
    logError(target, L"four");
    EXPECT_THAT(log.lines(), testing::ElementsAre(LogLine{"Ulvano.XMLConfig.LogTest", "TRACE", "one"},
                                                  LogLine{"Ulvano.XMLConfig.LogTest", "INFO", "two"},
                                                  LogLine{"Ulvano.XMLConfig.LogTest", "WARN", "three"},
                                                  LogLine{"Ulvano.XMLConfig.LogTest", "ERROR", "four"}));
}

TEST(Log, TextIsUtf8UnderTheCLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    LogCapture log;
    logInfo(logger(L"Ulvano.XMLConfig.LogTest"), L"B\u00fchne \u65e5\u672c \U0001F4FD");
    std::setlocale(LC_ALL, before.c_str());
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0].text, "B\xC3\xBChne \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xBD");
}

TEST(Log, NothingIsLoggedBelowTheLoggersLevel) {
    LogCapture log;
    const auto target = logger(L"Ulvano.XMLConfig.LogTest.Quiet");
    target->setLevel(log4cxx::Level::getWarn());
    logInfo(target, L"unheard");
    logWarn(target, L"heard");
    target->setLevel(nullptr);
    EXPECT_THAT(log.lines(), testing::ElementsAre(LogLine{"Ulvano.XMLConfig.LogTest.Quiet", "WARN", "heard"}));
}

TEST(Log, OneLoggerForAName) { EXPECT_EQ(logger(L"Ulvano.XMLConfig.LogTest"), logger(L"Ulvano.XMLConfig.LogTest")); }
