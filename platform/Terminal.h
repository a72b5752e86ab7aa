#pragma once

#include "platform/Export.h"

namespace XMLConfig {

/// Whether someone may be watching standard error, on a terminal that follows escape sequences: false where it goes to a
/// file or another program.
XMLCONFIG_API bool isErrorATerminal();

}  // namespace XMLConfig
