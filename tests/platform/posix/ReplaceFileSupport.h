#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/Text.h"
#include "tests/support/FileErrors.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"

/// What the tests of the safe write share.
namespace replacetests {

using namespace XMLConfig::detail;
namespace fs = std::filesystem;

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

/// Ends half way with std::out_of_range.
inline ByteSource failingSource() {
    return [](const ByteSink& sink) {
        sink(std::string(100000, 'c'));
        throw std::out_of_range("no more");
    };
}

class ReplaceFile : public testing::Test {
protected:
    ReplaceFile() { ::umask(022); }
    void giveToNobody(const fs::path& path) {
        if (::geteuid() != 0) return;
        ASSERT_EQ(::chown(path.c_str(), Unprivileged::nobody, Unprivileged::nobody), 0);
    }
    /// An unprivileged user may write the file "a" but create no other file in the folder.
    void admitNoSecondFile() {
        giveToNobody(m_folder.path());
        giveToNobody(m_folder.at(L"a"));
        EXPECT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
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
