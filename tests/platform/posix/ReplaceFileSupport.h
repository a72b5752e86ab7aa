#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"

/// What the tests of the safe write share.
namespace replacetests {

using namespace XMLConfig::detail;
namespace fs = std::filesystem;

inline std::wstring replaceError(const std::wstring& path, std::string_view bytes = "new") {
    try {
        replaceFile(path, bytes);
    } catch (const FileError& error) {
        return error.message();
    }
    return L"no error";
}

inline std::wstring refusal(const std::wstring& path, const std::wstring& reason) {
    return L"Can not write file " + path + L": " + reason;
}

inline mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

inline ino_t inodeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_ino;
}

class ReplaceFile : public testing::Test {
protected:
    ReplaceFile() { ::umask(022); }
    void giveToNobody(const fs::path& path) {
        if (::geteuid() != 0) return;
        ASSERT_EQ(::chown(path.c_str(), Unprivileged::nobody, Unprivileged::nobody), 0);
    }
    TemporaryFolder m_folder;
};

/// Files of this process end at a size, as on a disk that is full there.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    rlimit m_before{};
};

}  // namespace replacetests
