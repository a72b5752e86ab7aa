#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <sddl.h>

#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/windows/System.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FileErrors.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;

/// Another program's open file.
class Opened {
public:
    Opened(const std::wstring& path, DWORD access, DWORD sharing)
        : m_handle(::CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    ~Opened() { ::CloseHandle(m_handle); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

private:
    HANDLE m_handle;
};

/// In the system's text form.
std::wstring accessListOf(const std::wstring& path) {
    unsigned char descriptor[4096];
    DWORD size = 0;
    wchar_t* text = nullptr;
    EXPECT_NE(::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor, sizeof descriptor, &size), 0);
    EXPECT_NE(::ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION,
                                                                     &text, nullptr),
              0);
    const std::wstring result = text == nullptr ? L"" : text;
    ::LocalFree(text);
    return result;
}

std::wstring ownerOf(const std::wstring& path) {
    unsigned char descriptor[4096];
    DWORD size = 0;
    PSID owner = nullptr;
    BOOL isDefault = FALSE;
    wchar_t* text = nullptr;
    EXPECT_NE(::GetFileSecurityW(path.c_str(), OWNER_SECURITY_INFORMATION, descriptor, sizeof descriptor, &size), 0);
    EXPECT_NE(::GetSecurityDescriptorOwner(descriptor, &owner, &isDefault), 0);
    EXPECT_NE(::ConvertSidToStringSidW(owner, &text), 0);
    const std::wstring result = text == nullptr ? L"" : text;
    ::LocalFree(text);
    return result;
}

void closeToOthers(const std::wstring& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_NE(
        ::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;BA)", SDDL_REVISION_1, &descriptor, nullptr),
        0);
    EXPECT_NE(::SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor), 0);
    ::LocalFree(descriptor);
}

/// Makes another user the owner; false where that cannot be. Wine, when a superuser runs it, can have its own system do it.
bool giveAway(const std::wstring& path) {
    const std::wstring own = ownerOf(path);
    using UnixName = char*(__cdecl*)(const wchar_t*);
    const auto unixName = reinterpret_cast<UnixName>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
    if (unixName == nullptr) return false;
    std::wstring line = L"chown 12345 " + fromUtf8(unixName(path.c_str()));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const BOOL isStarted =
        ::CreateProcessW(L"Z:\\bin\\chown", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process);
    if (isStarted == 0) return false;
    ::CloseHandle(process.hProcess);
    ::CloseHandle(process.hThread);
    for (int i = 0; i < 100 && ownerOf(path) == own; ++i) ::Sleep(10);
    return ownerOf(path) != own;
}

/// What the calls that tests put in the place of the system's leave behind.
std::wstring listOfTheNewFile;
std::unique_ptr<Opened> held;
std::thread heldUntil;

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class ReplaceFileOnWindows : public testing::Test {
protected:
    TemporaryFolder m_folder;
};

TEST_F(ReplaceFileOnWindows, RefusesAFileThatIsReadOnly) {
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_NE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": Permission denied");
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
    ASSERT_NE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
}

TEST_F(ReplaceFileOnWindows, RefusesAFileThatAnotherKeepsForItself) {
    const std::wstring path = m_folder.write(L"a", "old");
    {
        const Opened other(path, GENERIC_READ, FILE_SHARE_READ);
        EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": The file is in use");
        EXPECT_EQ(m_folder.entries(), 1u);
    }
    EXPECT_EQ(m_folder.read(L"a"), "old");
    replaceFile(path, "new");
    EXPECT_EQ(m_folder.read(L"a"), "new");
}

TEST_F(ReplaceFileOnWindows, ReplacesAFileThatIsBeingRead) {
    const std::wstring path = m_folder.write(L"a", "old");
    FileReader reader(path);
    replaceFile(path, "new");
    char buffer[4] = {};
    EXPECT_EQ(reader.read(buffer, 3), 3u);
    EXPECT_STREQ(buffer, "old");
    EXPECT_EQ(m_folder.read(L"a"), "new");
}

TEST_F(ReplaceFileOnWindows, WritesStraightToAFileThatAReaderLetsNotBeTakenAway) {
    const std::wstring path = m_folder.write(L"a", "old and long");
    const Opened reader(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(replaceError(path), L"no error");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFileOnWindows, WaitsForOneThatHoldsTheFileForAMoment) {
    const std::wstring path = m_folder.write(L"a", "old");
    auto other = std::make_unique<Opened>(path, GENERIC_READ, FILE_SHARE_READ);
    std::thread end([&other] {
        ::Sleep(60);
        other.reset();
    });
    EXPECT_EQ(replaceError(path), L"no error");
    end.join();
    EXPECT_EQ(m_folder.read(L"a"), "new");
}

TEST_F(ReplaceFileOnWindows, IsReadWhileItIsReplaced) {
    const std::wstring path = m_folder.write(L"a", "old");
    std::atomic<bool> isDone{false};
    std::atomic<int> failures{0};
    std::vector<std::thread> readers;
    for (int i = 0; i < 2; ++i)
        readers.emplace_back([&] {
            while (!isDone) {
                try {
                    if (!canOpenForUpdate(path) || readWholeFile(path).size() != 3) ++failures;
                } catch (const FileError&) {
                    ++failures;
                }
            }
        });
    int failedSaves = 0;
    for (int i = 0; i < 100; ++i) failedSaves += replaceError(path) == L"no error" ? 0 : 1;
    isDone = true;
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(failedSaves, 0);
}

TEST_F(ReplaceFileOnWindows, TakesAShortNameInALongFolder) {
    std::wstring folder = m_folder.file(L"");
    for (int i = 0; i < 6 && folder.size() < 235; ++i) ASSERT_TRUE(makeFolder(folder += L"\\" + std::wstring(30, L'f')));
    const std::filesystem::path before = std::filesystem::current_path();
    ASSERT_NE(::SetCurrentDirectoryW(folder.c_str()), 0);
    const std::wstring name = std::wstring(60, L'n');
    EXPECT_EQ(replaceError(name), L"no error");
    EXPECT_EQ(readWholeFile(folder + L"\\" + name), "new");
    EXPECT_TRUE(removeFile(name));
    std::filesystem::current_path(before);
}

TEST_F(ReplaceFileOnWindows, WritesStraightToADevice) {
    EXPECT_EQ(replaceError(L"NUL"), L"no error");
    EXPECT_EQ(replaceError(L"\\\\.\\NUL"), L"no error");
}

TEST_F(ReplaceFileOnWindows, TakesAFileOfTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    replaceFile(L"bare", "one");
    replaceFile(L"bare", "two");
    std::filesystem::current_path(before);
    EXPECT_EQ(m_folder.read(L"bare"), "two");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFileOnWindows, RefusesNamesThatCannotBe) {
    EXPECT_EQ(replaceError(m_folder.file(L"a?b")), L"Can not write file " + m_folder.file(L"a?b") + L": Invalid file name");
}

TEST_F(ReplaceFileOnWindows, CanOpenForUpdateIsDeniedByAnotherWriter) {
    const std::wstring path = m_folder.write(L"a", "old");
    {
        const Opened other(path, GENERIC_WRITE, shareAll);
        EXPECT_FALSE(canOpenForUpdate(path));
        EXPECT_TRUE(isHeldByAnother(path));
    }
    EXPECT_TRUE(canOpenForUpdate(path));
    EXPECT_FALSE(isHeldByAnother(path));
    EXPECT_FALSE(isHeldByAnother(m_folder.file(L"none")));
    const Opened reader(path, GENERIC_READ, shareAll);
    EXPECT_TRUE(canOpenForUpdate(path));
}

TEST_F(ReplaceFileOnWindows, RemovesWhatAKilledSaveHasLeft) {
    const std::wstring path = m_folder.write(L"a", "old");
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::minutes(11);
    for (const wchar_t* name : {L".saving-0123456789abcdef0123", L".saving-0123456789abcdef012x"}) {
        std::filesystem::last_write_time(m_folder.write(name, "left"), longAgo);
    }
    m_folder.write(L".saving-0123456789abcdef0124", "perhaps a living save's");
    replaceFile(path, "new");
    EXPECT_EQ(m_folder.entries(), 3u);
    EXPECT_FALSE(m_folder.has(L".saving-0123456789abcdef0123"));
}

// Not for itself: the next test starts and kills it.
TEST(ReplaceFileVictim, DISABLED_NeverEndsItsSave) {
    wchar_t path[1000] = {};
    ASSERT_NE(::GetEnvironmentVariableW(L"XMLCONFIG_TEST_VICTIM", path, 1000), 0u);
    replaceFile(path, [](const ByteSink& sink) {
        sink("new");
        ::Sleep(60000);
    });
}

TEST_F(ReplaceFileOnWindows, LeavesNothingWhereItsProcessIsKilled) {
    const std::wstring path = m_folder.write(L"a", "old");
    wchar_t program[1000] = {};
    ASSERT_NE(::GetModuleFileNameW(nullptr, program, 1000), 0u);
    ASSERT_NE(::SetEnvironmentVariableW(L"XMLCONFIG_TEST_VICTIM", path.c_str()), 0);
    // Its one test is to run in whatever part of the suite this is.
    const EnvironmentVariable noParts("GTEST_TOTAL_SHARDS");
    const EnvironmentVariable noPart("GTEST_SHARD_INDEX");
    std::wstring line =
        L'"' + std::wstring(program) + L"\" --gtest_also_run_disabled_tests --gtest_filter=ReplaceFileVictim.*";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ASSERT_NE(::CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process), 0);
    for (int i = 0; i < 3000 && m_folder.entries() < 2; ++i) ::Sleep(10);
    EXPECT_EQ(m_folder.entries(), 2u);
    ::Sleep(50);  // from the file's making to its mark
    EXPECT_NE(::TerminateProcess(process.hProcess, 1), 0);
    EXPECT_EQ(::WaitForSingleObject(process.hProcess, 30000), static_cast<DWORD>(WAIT_OBJECT_0));
    ::CloseHandle(process.hProcess);
    ::CloseHandle(process.hThread);
    for (int i = 0; i < 500 && m_folder.entries() > 1; ++i) ::Sleep(10);
    EXPECT_EQ(m_folder.entries(), 1u);
    EXPECT_EQ(m_folder.read(L"a"), "old");
}

TEST_F(ReplaceFileOnWindows, IsNotCleanedUpByAnotherSaveMeanwhile) {
    const std::wstring path = m_folder.write(L"a", "old");
    replaceFile(path, [&](const ByteSink& sink) {
        sink("outer");
        replaceFile(path, "inner");
    });
    EXPECT_EQ(m_folder.read(L"a"), "outer");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFileOnWindows, KeepsTheAccessList) {
    const std::wstring path = m_folder.write(L"a", "old");
    closeToOthers(path);
    const std::wstring before = accessListOf(path);
    EXPECT_NE(before, accessListOf(m_folder.write(L"other", "")));
    replaceFileCall = [](const wchar_t* old, const wchar_t* created, const wchar_t*, DWORD, void*, void*) -> BOOL {
        listOfTheNewFile = accessListOf(created);
        return ::ReplaceFileW(old, created, nullptr, 0, nullptr, nullptr);
    };
    EXPECT_EQ(replaceError(path), L"no error");
    replaceFileCall = nullptr;
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(accessListOf(path), before);
    EXPECT_EQ(listOfTheNewFile, before);
}

TEST_F(ReplaceFileOnWindows, WritesStraightToAFileThatANewOneWouldTakeFromItsOwner) {
    const std::wstring path = m_folder.write(L"a", "old");
    if (!giveAway(path)) GTEST_SKIP() << "no file can be given to another here";
    const std::wstring another = ownerOf(path);
    EXPECT_EQ(replaceError(path), L"no error");
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(ownerOf(path), another);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFileOnWindows, PlacesTheNewFileWhereTheSystemHasOnlyTakenTheOldOneAway) {
    const std::wstring path = m_folder.write(L"a", "old");
    replaceFileCall = [](const wchar_t* old, const wchar_t* created, const wchar_t*, DWORD, void*, void*) -> BOOL {
        EXPECT_NE(::DeleteFileW(old), 0);
        // A search for viruses, say: for a moment the new file cannot be moved either.
        held = std::make_unique<Opened>(created, GENERIC_READ, FILE_SHARE_READ);
        heldUntil = std::thread([] {
            ::Sleep(60);
            held.reset();
        });
        ::SetLastError(ERROR_UNABLE_TO_MOVE_REPLACEMENT);
        return FALSE;
    };
    int asked = 0;
    EXPECT_EQ(replaceError(path,
                           [&](const ByteSink& sink) {
                               ++asked;
                               sink("new");
                           }),
              L"no error");
    heldUntil.join();
    replaceFileCall = nullptr;
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(m_folder.read(L"a"), "new");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST(SystemPath, HasTheLongFormWhereAFileBesideItWouldNeedIt) {
    const std::wstring drive = L"C:\\";
    for (std::size_t length = 1; length < 258; ++length) {
        const std::wstring folder = drive + std::wstring(length, L'f') + L'\\';
        const bool isLong = systemPath(folder + L'a').compare(0, 4, L"\\\\?\\") == 0;
        const std::size_t beside = folder.size() + savePrefix.size() + saveDigits;
        EXPECT_TRUE(isLong || beside < 260) << length;
        EXPECT_TRUE(!isLong || beside > 250) << length;
    }
}

TEST_F(ReplaceFileOnWindows, CopiesTheAccessList) {
    const std::wstring from = m_folder.write(L"from", "secret");
    closeToOthers(from);
    copyToNewFile(from, m_folder.file(L"to"));
    EXPECT_EQ(accessListOf(m_folder.file(L"to")), accessListOf(from));
    EXPECT_NE(accessListOf(from), accessListOf(m_folder.write(L"other", "")));
}

}  // namespace
