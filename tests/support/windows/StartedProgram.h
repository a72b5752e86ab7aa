#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "platform/Text.h"
#include "tests/support/ToolRun.h"

/// A word of a command line as programs take it apart: quotes and the backslashes before them get a backslash each.
inline std::wstring quotedWord(const std::wstring& word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : word) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

/// A program that runs beside the test; what it prints and complains about goes to files, what it reads comes from one.
class StartedProgram {
public:
    explicit StartedProgram(const std::vector<std::string>& command, const std::wstring& output = L"NUL",
                            const std::wstring& errors = L"NUL", const std::wstring& input = L"NUL")
        : StartedProgram(wideWords(command), output, errors, input) {}
    explicit StartedProgram(const std::vector<std::wstring>& command, const std::wstring& output = L"NUL",
                            const std::wstring& errors = L"NUL", const std::wstring& input = L"NUL") {
        std::wstring line;
        for (const std::wstring& word : command) line += quotedWord(word) + L' ';
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        const auto opened = [&inherited](const std::wstring& path, DWORD disposition) {
            return ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                 disposition, 0, nullptr);
        };
        const auto target = [&opened](const std::wstring& path) {
            return opened(path, path == L"NUL" || path == L"CONOUT$" ? OPEN_EXISTING : CREATE_ALWAYS);
        };
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = opened(input, OPEN_EXISTING);
        startup.hStdOutput = target(output);
        startup.hStdError = target(errors);
        PROCESS_INFORMATION process{};
        const BOOL isStarted =
            ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
        for (const HANDLE file : {startup.hStdInput, startup.hStdOutput, startup.hStdError}) ::CloseHandle(file);
        if (isStarted == 0) throw std::runtime_error("cannot start " + XMLConfig::detail::toUtf8(command[0]));
        ::CloseHandle(process.hThread);
        m_process = process.hProcess;
    }
    ~StartedProgram() {
        if (m_process == nullptr) return;
        kill();
        end();
    }
    StartedProgram(StartedProgram&& other) noexcept : m_process(std::exchange(other.m_process, nullptr)) {}
    StartedProgram& operator=(StartedProgram&&) = delete;

    void kill() const { ::TerminateProcess(m_process, killedStatus); }
    /// Waits for its end; its exit status.
    int end() {
        DWORD status = 0;
        ::WaitForSingleObject(m_process, INFINITE);
        ::GetExitCodeProcess(m_process, &status);
        ::CloseHandle(std::exchange(m_process, nullptr));
        return static_cast<int>(status);
    }

    static constexpr int killedStatus = 99;

private:
    static std::vector<std::wstring> wideWords(const std::vector<std::string>& words) {
        std::vector<std::wstring> wide;
        for (const std::string& word : words) wide.push_back(XMLConfig::detail::fromUtf8(word));
        return wide;
    }

    HANDLE m_process = nullptr;
};
