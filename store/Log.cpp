#include "store/Log.h"

#include <type_traits>

#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <log4cxx/logmanager.h>
#include <log4cxx/spi/loggerrepository.h>

#include "platform/Cancellation.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

// log4cxx's own conversion of wide text goes through the process's locale.
template <typename LogText>
LogText toLogText(const std::wstring& text) {
    if constexpr (std::is_same_v<LogText, std::wstring>) return text;
    else return toUtf8(text);
}

// Without an appender log4cxx complains on standard error, in programs that do not use it themselves.
bool hasAppender(const LoggerPtr& logger) {
    for (LoggerPtr one = logger; one != nullptr; one = one->getParent()) {
        if (!one->getAllAppenders().empty()) return true;
        if (!one->getAdditivity()) return false;
    }
    return false;
}

void log(const LoggerPtr& logger, const log4cxx::LevelPtr& level, const std::wstring& text) {
    const HeldCancellation held;
    if (logger->isEnabledFor(level) && hasAppender(logger))
        logger->forcedLogLS(level, toLogText<log4cxx::LogString>(text),
                            log4cxx::spi::LocationInfo::getLocationUnavailable());
}

}  // namespace

// Logger::getLogger is not called, because it looks for files such as log4cxx.properties in the current folder and obeys
// them.
LoggerPtr logger(const std::wstring& name) {
    return log4cxx::LogManager::getLoggerRepository()->getLogger(toLogText<log4cxx::LogString>(name));
}

void logTrace(const LoggerPtr& logger, const std::wstring& text) { log(logger, log4cxx::Level::getTrace(), text); }
void logInfo(const LoggerPtr& logger, const std::wstring& text) { log(logger, log4cxx::Level::getInfo(), text); }
void logWarn(const LoggerPtr& logger, const std::wstring& text) { log(logger, log4cxx::Level::getWarn(), text); }
void logError(const LoggerPtr& logger, const std::wstring& text) { log(logger, log4cxx::Level::getError(), text); }

}  // namespace XMLConfig::detail
