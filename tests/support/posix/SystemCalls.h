#pragma once

#include <functional>
#include <string>
#include <vector>

/// One call of the system that changes or asks a file, as the code under test makes it.
struct SystemCall {
    std::string name;  ///< of the C library's function
    std::string path;  ///< the first it names, "" where it names none
    int descriptor;    ///< that it works on, -1 where it works on none
    int flags;         ///< of an open
};

/// While it lives, it sees this thread's calls before the system does, and may let them fail.
class SystemCallWatch {
public:
    /// Gives the error a call shall fail with, 0 to let it through.
    using Answer = std::function<int(const SystemCall&)>;
    explicit SystemCallWatch(Answer answer);
    ~SystemCallWatch();
    SystemCallWatch(const SystemCallWatch&) = delete;
    SystemCallWatch& operator=(const SystemCallWatch&) = delete;

    /// Those that were let through or failed, in order.
    const std::vector<SystemCall>& calls() const { return m_calls; }
    /// How often a function was called.
    int count(const std::string& name) const;

private:
    friend int answerTo(const SystemCall& call);
    Answer m_answer;
    std::vector<SystemCall> m_calls;
    SystemCallWatch* m_before;
};

/// Fails every call of one function.
inline SystemCallWatch::Answer failing(const std::string& name, int error) {
    return [name, error](const SystemCall& call) { return call.name == name ? error : 0; };
}
