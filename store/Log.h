#pragma once

#include <memory>
#include <string>

namespace log4cxx {
class Logger;
}

/// Wide text to the log, character by character the same under every locale.
namespace XMLConfig::detail {

using LoggerPtr = std::shared_ptr<log4cxx::Logger>;

/// The logger of that name; the same one each time. Asking for it configures nothing.
LoggerPtr logger(const std::wstring& name);

void logTrace(const LoggerPtr& logger, const std::wstring& text);
void logInfo(const LoggerPtr& logger, const std::wstring& text);
void logWarn(const LoggerPtr& logger, const std::wstring& text);
void logError(const LoggerPtr& logger, const std::wstring& text);

}  // namespace XMLConfig::detail
