#pragma once

#include <unistd.h>

/// While it lives, the process has no superuser's rights, which tests of permissions need.
class Unprivileged {
public:
    Unprivileged() : m_user(::geteuid()), m_group(::getegid()) {
        if (m_user != 0) return;
        m_isDone = ::setegid(nobody) == 0 && ::seteuid(nobody) == 0;
    }
    ~Unprivileged() {
        const bool isBack = m_user != 0 || (::seteuid(m_user) == 0 && ::setegid(m_group) == 0);
        if (!isBack) ::_exit(1);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

    bool isDone() const { return m_isDone; }

    static constexpr uid_t nobody = 65534;

private:
    uid_t m_user;
    gid_t m_group;
    bool m_isDone = true;
};
