#include "platform/SignalHold.h"

#include <mutex>

#include "platform/windows/System.h"

namespace XMLConfig {
namespace {

/// Locked while any thread holds signals back.
std::recursive_mutex held;
/// How many holds of this thread lie in each other.
thread_local int depth = 0;

/// The system calls this in a thread of its own and ends the program when it returns.
BOOL WINAPI waitForHolders(DWORD) {
    const std::lock_guard<std::recursive_mutex> all(held);
    return FALSE;
}

}  // namespace

struct SignalHold::EarlierHandling {
    std::unique_lock<std::recursive_mutex> holding{held, std::defer_lock};
};

// While a handler runs, the system lets nobody add or remove one: who holds must not ask for that, for the handler waits.
SignalHold::SignalHold() : m_before(std::make_unique<EarlierHandling>()) {
    if (depth++ == 0) ::SetConsoleCtrlHandler(&waitForHolders, TRUE);
    m_before->holding.lock();
}

SignalHold::~SignalHold() {
    m_before->holding.unlock();
    if (--depth == 0) ::SetConsoleCtrlHandler(&waitForHolders, FALSE);  // where the handler runs, the program ends here
}

}  // namespace XMLConfig
