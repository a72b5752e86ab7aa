#pragma once

#include <string>

#include "tests/support/LogCapture.h"

inline const std::string managerLogger = "Ulvano.XMLConfig.XMLConfigManager";

/// A line that the manager logs at INFO.
inline LogLine info(const std::string& text) { return {managerLogger, "INFO", text}; }
