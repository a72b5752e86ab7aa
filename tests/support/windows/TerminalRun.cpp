#include "tests/support/TerminalRun.h"

std::optional<TerminalRun> runOnATerminal(const std::vector<std::string>& /*arguments*/, ToTerminal /*stream*/,
                                          const std::string& /*environment*/) {
    return std::nullopt;
}
