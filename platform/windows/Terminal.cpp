#include "platform/Terminal.h"

#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

bool isTerminal(DWORD stream) {
    constexpr DWORD followsSequences = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which older headers lack
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0 && (mode & followsSequences) != 0;
}

}  // namespace

bool isErrorATerminal() { return isTerminal(STD_ERROR_HANDLE); }
bool isOutputATerminal() { return isTerminal(STD_OUTPUT_HANDLE); }

}  // namespace XMLConfig::detail
