#include "platform/FileLock.h"

#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using std::chrono::milliseconds;
using XMLConfig::detail::FileError;
using XMLConfig::detail::FileLock;

TEST(FileLock, HasOneHolder) {
    const TemporaryFolder folder;
    FileLock second(folder.file(L"hall.skorrax"));
    {
        FileLock first(folder.file(L"hall.skorrax"));
        EXPECT_TRUE(first.tryTake());
        EXPECT_FALSE(second.tryTake());
    }
    EXPECT_TRUE(second.take(std::chrono::seconds(10)));
}

TEST(FileLock, IsOneForAFolderAndLeavesNothingInIt) {
    const TemporaryFolder folder;
    const TemporaryFolder other;
    FileLock held(folder.file(L"hall.skorrax"));
    ASSERT_TRUE(held.tryTake());
    EXPECT_FALSE(FileLock(folder.file(L"dome.skorrax")).tryTake());
    EXPECT_TRUE(FileLock(other.file(L"hall.skorrax")).tryTake());
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(FileLock, HoldsWhileTheFileIsReplaced) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"hall.skorrax", "old");
    FileLock held(path);
    ASSERT_TRUE(held.tryTake());
    XMLConfig::detail::replaceFile(path, "new");
    EXPECT_FALSE(FileLock(path).tryTake());
    EXPECT_TRUE(XMLConfig::detail::canOpenForUpdate(path));
}

TEST(FileLock, OneThreadAtATimeHasIt) {
    const TemporaryFolder folder;
    std::atomic<int> inside{0};
    std::atomic<int> turns{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < 10; ++turn) {
                FileLock lock(folder.file(L"hall.skorrax"));
                if (!lock.take(std::chrono::seconds(60)) || ++inside != 1) return;
                std::this_thread::yield();
                --inside;
                ++turns;
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(turns, 80);
}

TEST(FileLock, IsWaitedForAsLongAsItWasAsked) {
    const TemporaryFolder folder;
    FileLock held(folder.file(L"hall.skorrax"));
    ASSERT_TRUE(held.tryTake());
    FileLock waiting(folder.file(L"hall.skorrax"));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(waiting.take(milliseconds(120)));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(120));
    EXPECT_FALSE(waiting.take(milliseconds(0)));
    EXPECT_FALSE(waiting.take(milliseconds(-1)));
}

TEST(FileLock, IsHadAsSoonAsItIsFree) {
    const TemporaryFolder folder;
    auto held = std::make_unique<FileLock>(folder.file(L"hall.skorrax"));
    ASSERT_TRUE(held->tryTake());
    std::thread waiting([&folder] { EXPECT_TRUE(FileLock(folder.file(L"hall.skorrax")).take(milliseconds::max())); });
    std::this_thread::sleep_for(milliseconds(60));
    held.reset();
    waiting.join();
}

TEST(FileLock, FolderThatIsNotThereIsAnError) {
    const TemporaryFolder folder;
    EXPECT_THROW(FileLock(folder.file(L"missing") + L"/hall.skorrax"), FileError);
    EXPECT_THROW(FileLock(std::wstring(L"a\0b", 3)), FileError);
}
