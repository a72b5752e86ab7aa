#include <array>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/SignalHold.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/windows/StartedProgram.h"

namespace {

using testing::HasSubstr;

constexpr const char* nameOfFile = "XMLCONFIG_TEST_FILE";
/// The exit status of a program that has waited for itself.
constexpr DWORD stuck = 77;

/// A function of the system that older headers lack.
template <typename Function>
Function systemFunction(const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32"), name)));
}

/// A console that keeps what programs show on it.
class Console {
public:
    Console() {
        using Create = HRESULT(WINAPI*)(COORD, HANDLE, HANDLE, DWORD, void**);
        HANDLE input = nullptr;
        HANDLE output = nullptr;
        ::CreatePipe(&input, &m_keyboard, nullptr, 0);
        ::CreatePipe(&m_screen, &output, nullptr, 0);
        const auto create = systemFunction<Create>("CreatePseudoConsole");
        if (create == nullptr || create({120, 40}, input, output, 0, &m_console) != 0)
            throw std::runtime_error("cannot make a console");
        ::CloseHandle(input);
        ::CloseHandle(output);
        m_reader = std::thread([this] {
            std::array<char, 4096> bytes{};
            DWORD count = 0;
            while (::ReadFile(m_screen, bytes.data(), bytes.size(), &count, nullptr) != 0)
                m_shown.append(bytes.data(), count);
        });
    }
    ~Console() {
        if (m_reader.joinable()) shown();
    }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// The exit status of a program that sees this console.
    DWORD run(std::wstring line) {
        constexpr DWORD_PTR pseudoConsole = 0x00020016;  // PROC_THREAD_ATTRIBUTE_PSEUDOCONSOLE
        std::vector<unsigned char> attributes(1000);
        SIZE_T size = attributes.size();
        STARTUPINFOEXW startup{};
        startup.StartupInfo.cb = sizeof startup;
        startup.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes.data());
        ::InitializeProcThreadAttributeList(startup.lpAttributeList, 1, 0, &size);
        ::UpdateProcThreadAttribute(startup.lpAttributeList, 0, pseudoConsole, m_console, sizeof m_console, nullptr,
                                    nullptr);
        PROCESS_INFORMATION process{};
        if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                             &startup.StartupInfo, &process) == 0)
            throw std::runtime_error("cannot start a program");
        ::WaitForSingleObject(process.hProcess, INFINITE);
        DWORD status = 0;
        ::GetExitCodeProcess(process.hProcess, &status);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        return status;
    }
    /// Everything, with the sequences that move the cursor. The console ends.
    const std::string& shown() {
        using Close = void(WINAPI*)(void*);
        ::Sleep(300);  // the console shows it in its own time
        systemFunction<Close>("ClosePseudoConsole")(m_console);
        m_reader.join();
        ::CloseHandle(m_screen);
        ::CloseHandle(m_keyboard);
        return m_shown;
    }

private:
    void* m_console = nullptr;
    HANDLE m_keyboard = nullptr;
    HANDLE m_screen = nullptr;
    std::string m_shown;
    std::thread m_reader;
};

/// This program as the runner of one test that is not for itself, whatever part of the suite this is.
class Victim {
public:
    Victim(const std::string& file, std::wstring test) : m_file(nameOfFile, file), m_test(std::move(test)) {}

    std::wstring line() const {
        wchar_t program[1000] = {};
        ::GetModuleFileNameW(nullptr, program, 1000);
        return L'"' + std::wstring(program) + L"\" --gtest_brief=1 --gtest_also_run_disabled_tests --gtest_filter=" + m_test;
    }

private:
    EnvironmentVariable m_file;
    EnvironmentVariable m_noParts{"GTEST_TOTAL_SHARDS"};
    EnvironmentVariable m_noPart{"GTEST_SHARD_INDEX"};
    std::wstring m_test;
};

}  // namespace

// Not for itself: the next test runs it on a console.
TEST(ToolOnAConsoleVictim, DISABLED_ShowsANameAndAComplaint) {
    const char* const file = std::getenv(nameOfFile);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(StartedProgram({toolPath(), "get", file, "ProjMap/Site"}, L"CONOUT$", L"CONOUT$").end(), 0);
    EXPECT_EQ(StartedProgram({toolPath(), "get", file, "ProjMap/Größe"}, L"CONOUT$", L"CONOUT$").end(), 1);
}

TEST(ToolOnAConsole, ShowsEveryCharacter) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "hall.skorrax").u8string();
    ASSERT_EQ(runTool({"new", file}).status, 0);
    ASSERT_EQ(runTool({"set", "--force", file, "ProjMap/Site=Größe 日本 Ω"}).status, 0);
    const Victim victim(file, L"ToolOnAConsoleVictim.*");
    Console console;
    EXPECT_EQ(console.run(victim.line()), 0U);
    const std::string& shown = console.shown();
    EXPECT_THAT(shown, HasSubstr("Größe 日本 Ω"));
    EXPECT_THAT(shown, HasSubstr("ProjMap/Größe"));
}

// Not for itself: the next test runs it on a console.
TEST(SignalHoldVictim, DISABLED_IsEndedByItsKeyboard) {
    const char* const folder = std::getenv(nameOfFile);
    ASSERT_NE(folder, nullptr);
    std::thread([] {
        ::Sleep(10000);
        ::TerminateProcess(::GetCurrentProcess(), stuck);
    }).detach();
    const auto leave = [folder](const char* name) { std::ofstream(std::filesystem::u8path(folder) / name) << name; };
    {
        const XMLConfig::SignalHold hold;
        const XMLConfig::SignalHold inner;
        ASSERT_NE(::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0), 0);
        ::Sleep(500);
        const XMLConfig::SignalHold later;
        leave("held");
    }
    ::Sleep(5000);
    leave("late");
}

TEST(SignalHold, EndsTheProgramAfterwards) {
    const TemporaryFolder folder;
    const Victim victim(folder.path().u8string(), L"SignalHoldVictim.*");
    Console console;
    EXPECT_NE(console.run(victim.line()), stuck);
    EXPECT_TRUE(folder.has(L"held"));
    EXPECT_FALSE(folder.has(L"late"));
}
