#include "platform/Terminal.h"

#include "platform/Environment.h"

namespace XMLConfig {

bool isErrorATerminal() { return detail::isTerminal(2); }

}  // namespace XMLConfig
