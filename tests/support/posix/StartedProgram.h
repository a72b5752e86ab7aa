#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/ToolRun.h"

/// A program that runs beside the test; what it prints is dropped, what it complains about goes to a file.
class StartedProgram {
public:
    StartedProgram(const std::vector<std::string>& command, const std::string& errors = "/dev/null") {
        std::vector<char*> words;
        for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        posix_spawn_file_actions_t files;
        ::posix_spawn_file_actions_init(&files);
        ::posix_spawn_file_actions_addopen(&files, 1, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addopen(&files, 2, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        posix_spawnattr_t attributes;
        ::posix_spawnattr_init(&attributes);
        sigset_t signals;  // a suite that runs in the background ignores some, and its programs with it
        ::sigemptyset(&signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&signals, signal);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        const int error = ::posix_spawnp(&m_process, words[0], &files, &attributes, words.data(), environ);
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&files);
        if (error != 0) throw std::runtime_error("cannot start " + command[0]);
    }
    ~StartedProgram() {
        if (m_process == 0) return;
        ::kill(m_process, SIGKILL);
        end();
    }
    StartedProgram(StartedProgram&& other) noexcept : m_process(std::exchange(other.m_process, 0)) {}
    StartedProgram& operator=(StartedProgram&&) = delete;

    pid_t process() const { return m_process; }
    void send(int signal) const { ::kill(m_process, signal); }
    /// Waits for its end. Its exit status, or minus the signal that ended it.
    int end() {
        int status = -1;
        while (::waitpid(m_process, &status, 0) == -1 && errno == EINTR) {
        }
        m_process = 0;
        return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    }

private:
    pid_t m_process = 0;
};

inline StartedProgram startTool(std::vector<std::string> arguments, const std::string& errors = "/dev/null") {
    arguments.insert(arguments.begin(), toolPath());
    return StartedProgram(arguments, errors);
}
