#pragma once

#include "platform/Export.h"

namespace XMLConfig {

/// Whether someone may be watching standard error: false where it goes to a file or another program.
XMLCONFIG_API bool isErrorATerminal();

}  // namespace XMLConfig
