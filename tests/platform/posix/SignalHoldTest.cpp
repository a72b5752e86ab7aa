#include "platform/SignalHold.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <functional>

#include "tests/support/TemporaryFolder.h"

namespace {

/// How a process ends that does this.
int statusOf(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

}  // namespace

TEST(SignalHold, LetsTheWorkBeFinishedFirst) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const TemporaryFolder folder;
        const int status = statusOf([&] {
            std::signal(signal, SIG_DFL);
            const XMLConfig::SignalHold hold;
            {
                const XMLConfig::SignalHold inner;
                ::kill(::getpid(), signal);
            }
            folder.write(L"done", "");
        });
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_TRUE(folder.has(L"done"));
    }
}

TEST(SignalHold, LeavesIgnoredAndOtherSignalsAlone) {
    EXPECT_EQ(statusOf([] {
                  std::signal(SIGHUP, SIG_IGN);
                  const XMLConfig::SignalHold hold;
                  ::kill(::getpid(), SIGHUP);
              }),
              0);
    const int status = statusOf([] {
        const XMLConfig::SignalHold hold;
        ::kill(::getpid(), SIGKILL);
    });
    EXPECT_TRUE(WIFSIGNALED(status));
}
