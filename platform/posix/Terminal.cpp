#include "platform/Terminal.h"

#include <unistd.h>

namespace XMLConfig::detail {

bool isErrorATerminal() { return ::isatty(STDERR_FILENO) != 0; }
bool isOutputATerminal() { return ::isatty(STDOUT_FILENO) != 0; }

}  // namespace XMLConfig::detail
