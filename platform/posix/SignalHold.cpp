#include "platform/SignalHold.h"

#include <initializer_list>

#include <signal.h>

namespace XMLConfig {

struct SignalHold::EarlierHandling {
    sigset_t mask;
};

SignalHold::SignalHold() : m_before(std::make_unique<EarlierHandling>()) {
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&held, signal);
    ::pthread_sigmask(SIG_BLOCK, &held, &m_before->mask);
}

SignalHold::~SignalHold() { ::pthread_sigmask(SIG_SETMASK, &m_before->mask, nullptr); }

}  // namespace XMLConfig
