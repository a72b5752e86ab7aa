#include <filesystem>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;

std::wstring replaceError(const std::wstring& path, std::string_view bytes = "new") {
    try {
        replaceFile(path, bytes);
    } catch (const FileError& error) {
        return error.message();
    }
    return L"no error";
}

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

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class ReplaceFile : public testing::Test {
protected:
    TemporaryFolder m_folder;
};

TEST_F(ReplaceFile, RefusesAFileThatIsReadOnly) {
    const std::wstring path = m_folder.write(L"a", "old");
    ASSERT_NE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": Permission denied");
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
    ASSERT_NE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
}

TEST_F(ReplaceFile, RefusesAFileThatAnotherKeepsForItself) {
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

TEST_F(ReplaceFile, ReplacesAFileThatIsBeingRead) {
    const std::wstring path = m_folder.write(L"a", "old");
    FileReader reader(path);
    replaceFile(path, "new");
    char buffer[4] = {};
    EXPECT_EQ(reader.read(buffer, 3), 3u);
    EXPECT_STREQ(buffer, "old");
    EXPECT_EQ(m_folder.read(L"a"), "new");
}

TEST_F(ReplaceFile, WritesStraightToADevice) {
    EXPECT_EQ(replaceError(L"NUL"), L"no error");
    EXPECT_EQ(replaceError(L"\\\\.\\NUL"), L"no error");
}

TEST_F(ReplaceFile, TakesAFileOfTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.path());
    replaceFile(L"bare", "one");
    replaceFile(L"bare", "two");
    std::filesystem::current_path(before);
    EXPECT_EQ(m_folder.read(L"bare"), "two");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(ReplaceFile, RefusesNamesThatCannotBe) {
    EXPECT_EQ(replaceError(m_folder.file(L"a?b")), L"Can not write file " + m_folder.file(L"a?b") + L": Invalid file name");
}

TEST_F(ReplaceFile, CanOpenForUpdateIsDeniedByAnotherWriter) {
    const std::wstring path = m_folder.write(L"a", "old");
    {
        const Opened other(path, GENERIC_WRITE, shareAll);
        EXPECT_FALSE(canOpenForUpdate(path));
    }
    EXPECT_TRUE(canOpenForUpdate(path));
    const Opened reader(path, GENERIC_READ, shareAll);
    EXPECT_TRUE(canOpenForUpdate(path));
}

}  // namespace
