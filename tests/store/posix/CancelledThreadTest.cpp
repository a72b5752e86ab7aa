#include <pthread.h>

#include <chrono>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "manager/ConfigLock.h"
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

/// Asks for a lock that another thread holds until its thread is cancelled.
template <int patience>
void* askForEver(void* path) {
    const std::wstring& file = *static_cast<const std::wstring*>(path);
    for (;;) {
        try {
            const XMLConfig::ConfigLock lock(file, std::chrono::milliseconds(patience));
        } catch (const XMLConfig::ConfigBusyException&) {
            ::pthread_testcancel();
        }
    }
    return nullptr;
}

/// Who looks at the open files of this process in /proc keeps its lock a moment longer.
constexpr std::chrono::seconds soon{10};

/// Takes a lock and gives it back until its thread is cancelled.
void* lockForEver(void* path) {
    const std::wstring& file = *static_cast<const std::wstring*>(path);
    for (;;) {
        const XMLConfig::ConfigLock lock(file, soon);
        ::pthread_testcancel();
    }
    return nullptr;
}

/// What the thread ended with when it was cancelled after that time.
void* cancelledAfter(std::chrono::microseconds time, std::wstring path, void* (*run)(void*) = saveAndLoadForEver) {
    pthread_t thread{};
    if (::pthread_create(&thread, nullptr, run, &path) != 0) return nullptr;
    std::this_thread::sleep_for(time);
    ::pthread_cancel(thread);
    void* result = nullptr;
    ::pthread_join(thread, &result);
    return result;
}

/// Cancellation leaves frames without the address sanitizer's notice, which then takes what the next thread finds on that
/// stack for a fault.
constexpr bool canLeaveDeepFrames() {
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return true;
#endif
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

TEST(CancelledThread, EndsWhileItAsksForALock) {
    if (!canLeaveDeepFrames()) GTEST_SKIP() << "not with the address sanitizer";
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.skorrax");
    std::minstd_rand random(20260102);
    for (int i = 0; i < 40; ++i) {
        const std::chrono::microseconds time(100 + random() % 4000);
        ASSERT_EQ(cancelledAfter(time, path, lockForEver), PTHREAD_CANCELED);
        const XMLConfig::ConfigLock held(path, soon);
        ASSERT_EQ(cancelledAfter(time, path, askForEver<0>), PTHREAD_CANCELED);
        ASSERT_EQ(cancelledAfter(time, path, askForEver<1>), PTHREAD_CANCELED);
    }
}

TEST(CancelledThread, DoesNotWaitForALockToTheEnd) {
    if (!canLeaveDeepFrames()) GTEST_SKIP() << "not with the address sanitizer";
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.skorrax");
    const XMLConfig::ConfigLock held(path, std::chrono::milliseconds::zero());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(cancelledAfter(std::chrono::milliseconds(5), path, askForEver<60000>), PTHREAD_CANCELED);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}
