#include "platform/Terminal.h"

#include "platform/windows/System.h"

namespace XMLConfig::detail {

bool isErrorATerminal() {
    constexpr DWORD followsSequences = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which older headers lack
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode) != 0 && (mode & followsSequences) != 0;
}

}  // namespace XMLConfig::detail
