#include "platform/FileStamp.h"

#include <gtest/gtest.h>

#include "platform/CreateFile.h"
#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using XMLConfig::detail::createFile;
using XMLConfig::detail::FileStamp;
using XMLConfig::detail::fileStamp;
using XMLConfig::detail::isSurelyUnchanged;

namespace {

FileStamp settled(FileStamp stamp) {
    stamp.isSettled = true;
    return stamp;
}

}  // namespace

TEST(FileStamp, IsOfRegularFilesOnly) {
    const TemporaryFolder folder;
    EXPECT_FALSE(fileStamp(folder.file(L"missing")));
    EXPECT_FALSE(fileStamp(wideOf(folder.path())));
    EXPECT_TRUE(fileStamp(folder.write(L"a", "text")));
}

TEST(FileStamp, OfAFileJustWrittenLeavesADoubt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a", "text");
    EXPECT_FALSE(fileStamp(path)->isSettled);
    EXPECT_FALSE(isSurelyUnchanged(*fileStamp(path), *fileStamp(path)));
}

TEST(FileStamp, OfAnOldFileLeavesNone) {
    const std::optional<FileStamp> stamp = fileStamp(wideOf(std::filesystem::current_path() / "README.md"));
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->size, std::filesystem::file_size("README.md"));
    EXPECT_TRUE(isSurelyUnchanged(settled(*stamp), *stamp));
}

TEST(FileStamp, TellsAFileThatWasReplacedOrWritten) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a", "text");
    const FileStamp before = settled(*fileStamp(path));
    EXPECT_TRUE(isSurelyUnchanged(before, *fileStamp(path)));
    XMLConfig::detail::replaceFile(path, "TEXT");
    const FileStamp replaced = settled(*fileStamp(path));
    EXPECT_FALSE(isSurelyUnchanged(before, replaced));
    folder.write(L"a", "longer text");
    EXPECT_FALSE(isSurelyUnchanged(replaced, *fileStamp(path)));
}

TEST(FileStamp, EachPartCounts) {
    const FileStamp stamp = {1, 2, 3, 4, 5, true};
    EXPECT_TRUE(isSurelyUnchanged(stamp, {1, 2, 3, 4, 5, false}));
    for (const FileStamp& other :
         {FileStamp{0, 2, 3, 4, 5, true}, FileStamp{1, 0, 3, 4, 5, true}, FileStamp{1, 2, 0, 4, 5, true},
          FileStamp{1, 2, 3, 0, 5, true}, FileStamp{1, 2, 3, 4, 0, true}})
        EXPECT_FALSE(isSurelyUnchanged(stamp, other));
}

TEST(CreateFile, MakesACompleteFileOnce) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"new.skorrax");
    EXPECT_TRUE(createFile(path, [](const auto& sink) {
        sink("one");
        sink("two");
    }));
    EXPECT_EQ(folder.read(L"new.skorrax"), "onetwo");
    EXPECT_FALSE(createFile(path, [](const auto& sink) { sink("three"); }));
    EXPECT_EQ(folder.read(L"new.skorrax"), "onetwo");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(CreateFile, LeavesNothingBehindWhereTheSourceFails) {
    const TemporaryFolder folder;
    const auto failing = [](const auto& sink) {
        sink("one");
        throw std::runtime_error("no more");
    };
    EXPECT_THROW(createFile(folder.file(L"new.skorrax"), failing), std::runtime_error);
    EXPECT_THROW(createFile(folder.file(L"missing") + L"/new.skorrax", failing), XMLConfig::detail::FileError);
    EXPECT_EQ(folder.entries(), 0u);
}
