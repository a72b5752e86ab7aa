#include <pthread.h>

#include <chrono>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// Saves and loads one file until its thread is cancelled.
void* saveAndLoadForEver(void* path) {
    const std::wstring& file = *static_cast<const std::wstring*>(path);
    ConfigInfo document;
    document.setStringItem(L"S", L"Text", std::wstring(20000, L'x'), {}, {}, {});
    for (;;) {
        document.save(file);
        const ConfigInfo loaded(file);
        ::pthread_testcancel();
    }
    return nullptr;
}

/// What the thread ended with when it was cancelled after that time.
void* cancelledAfter(std::chrono::microseconds time, std::wstring path) {
    pthread_t thread{};
    if (::pthread_create(&thread, nullptr, saveAndLoadForEver, &path) != 0) return nullptr;
    std::this_thread::sleep_for(time);
    ::pthread_cancel(thread);
    void* result = nullptr;
    ::pthread_join(thread, &result);
    return result;
}

}  // namespace

TEST(CancelledThread, EndsBetweenLoadsAndSaves) {
    const TemporaryFolder folder;
    std::minstd_rand random(20260101);
    for (int i = 0; i < 60; ++i) {
        const std::chrono::microseconds time(1000 + random() % 8000);
        ASSERT_EQ(cancelledAfter(time, folder.file(L"a.skorrax")), PTHREAD_CANCELED);
        ASSERT_EQ(folder.entries(), folder.has(L"a.skorrax") ? 1u : 0u);
    }
    EXPECT_EQ(ConfigInfo(folder.file(L"a.skorrax")).getStringItem(L"S", L"Text", {}, {}, {}, {}).size(), 20000u);
}
