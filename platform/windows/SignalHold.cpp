#include "platform/SignalHold.h"

#include <mutex>

#include "platform/windows/System.h"

namespace XMLConfig {
namespace {

/// Locked as long as somebody holds.
std::recursive_mutex held;

/// The system calls this in a thread of its own and ends the program when it returns.
BOOL WINAPI waitForHolders(DWORD) {
    const std::lock_guard<std::recursive_mutex> all(held);
    return FALSE;
}

}  // namespace

struct SignalHold::Before {
    std::lock_guard<std::recursive_mutex> holding{held};
};

SignalHold::SignalHold() : m_before(std::make_unique<Before>()) { ::SetConsoleCtrlHandler(&waitForHolders, TRUE); }

SignalHold::~SignalHold() { ::SetConsoleCtrlHandler(&waitForHolders, FALSE); }

}  // namespace XMLConfig
