#pragma once

#include <vector>

#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

struct OtherUser {
    uid_t user;
    std::vector<gid_t> groups;  ///< the first is the one that new files get
};

/// Calls in a child process that is this user for good; true when the call gives true. Only the superuser may.
template <typename Call>
bool holdsFor(const OtherUser& user, Call call) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isUser = ::setgroups(user.groups.size(), user.groups.data()) == 0 && ::setgid(user.groups.front()) == 0 &&
                            ::setuid(user.user) == 0;
        bool result = false;
        try {
            result = isUser && call();
        } catch (...) {  // counts as false
        }
        ::_exit(result ? 0 : 1);
    }
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
