#include "manager/LogOutput.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <log4cxx/spi/loggingevent.h>

#include <string>
#include <type_traits>

#include "platform/Terminal.h"
#include "platform/Text.h"
#include "store/Log.h"

namespace XMLConfig {
namespace {

template <typename LogText>
std::string utf8Of(const LogText& text) {
    if constexpr (std::is_same_v<LogText, std::wstring>) return detail::toUtf8(text);
    else return text;
}

// log4cxx's own console appender converts to the locale's encoding.
class StandardError : public log4cxx::AppenderSkeleton {
public:
    void close() override {}
    bool requiresLayout() const override { return false; }

protected:
    void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool& /*pool*/) override {
        // The program may be showing its progress in an unfinished line; this message takes its place.
        const std::string line = std::string(detail::isErrorATerminal() ? "\r\x1b[K" : "") +
                                 "xmlconfig: " + utf8Of(event->getLevel()->toString()) + ": " +
                                 utf8Of(event->getRenderedMessage()) + "\n";
        detail::writeToError(line);
    }
};

log4cxx::LevelPtr levelOf(LogLevel level) {
    switch (level) {
        case LogLevel::Error:
            return log4cxx::Level::getError();
        case LogLevel::Trace:
            return log4cxx::Level::getTrace();
        case LogLevel::Off:
            return log4cxx::Level::getOff();
        case LogLevel::Info:
            return log4cxx::Level::getInfo();
        case LogLevel::Warn:
            break;
    }
    return log4cxx::Level::getWarn();
}

}  // namespace

void logToStandardError(LogLevel level) {
    static const auto appender = std::make_shared<StandardError>();
    const detail::LoggerPtr root = detail::logger(L"Ulvano");
    root->setAdditivity(false);
    root->addAppender(appender);
    root->setLevel(levelOf(level));
}

}  // namespace XMLConfig
