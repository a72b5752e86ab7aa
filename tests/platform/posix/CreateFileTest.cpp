#include "platform/CreateFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "tests/support/TemporaryFolder.h"

using XMLConfig::detail::createFile;

TEST(CreateFileOfPosix, RefusesWhatAppearsWhileItIsWritten) {
    const TemporaryFolder folder;
    EXPECT_FALSE(createFile(folder.file(L"new.skorrax"), [&folder](const auto& sink) {
        sink("ours");
        folder.write(L"new.skorrax", "theirs");
    }));
    EXPECT_EQ(folder.read(L"new.skorrax"), "theirs");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(CreateFileOfPosix, IsNotSeenBeforeItIsComplete) {
    const TemporaryFolder folder;
    EXPECT_TRUE(createFile(folder.file(L"new.skorrax"), [&folder](const auto& sink) {
        sink("part");
        EXPECT_EQ(folder.entries(), 0u);
    }));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(CreateFileOfPosix, RefusesALinkToNothing) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("missing", folder.at(L"new.skorrax"));
    EXPECT_FALSE(createFile(folder.file(L"new.skorrax"), [](const auto& sink) { sink("text"); }));
    EXPECT_FALSE(folder.has(L"missing"));
}

TEST(CreateFileOfPosix, HasTheModeOfANewFile) {
    const TemporaryFolder folder;
    const mode_t before = ::umask(027);
    createFile(folder.file(L"new.skorrax"), [](const auto& sink) { sink("text"); });
    ::umask(before);
    struct stat status {};
    ASSERT_EQ(::stat(folder.at(L"new.skorrax").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}
