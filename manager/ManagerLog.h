#pragma once

#include "store/Log.h"

namespace XMLConfig::detail {

/// The manager's logger, made when the library is loaded.
extern const LoggerPtr managerLog;

}  // namespace XMLConfig::detail
