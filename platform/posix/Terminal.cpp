#include "platform/Terminal.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace XMLConfig::detail {

bool isErrorATerminal() { return ::isatty(STDERR_FILENO) != 0; }
bool isOutputATerminal() { return ::isatty(STDOUT_FILENO) != 0; }

void writeToError(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

void prepareStandardStreams() {}

void outliveReader() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace XMLConfig::detail
