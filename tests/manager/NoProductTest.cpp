#include <gtest/gtest.h>

#include "manager/UlvanoDiagnostics.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

namespace {

constexpr const wchar_t* complaint = L"Error getConfigFileExtension: there is no product information";

std::unique_ptr<XMLConfigManager> newWithoutProduct() {
    return std::unique_ptr<XMLConfigManager>(XMLConfigManager::newConfiguration(nullptr));
}

}  // namespace

TEST(NoProduct, LoadIsRefused) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText());
    EXPECT_EQ(messageOf([&] { std::unique_ptr<XMLConfigManager>(XMLConfigManager::loadConfiguration(nullptr, path)); }),
              complaint);
}

TEST(NoProduct, NewConfigurationIsCopiedButNotSaved) {
    const TemporaryFolder folder;
    const auto manager = newWithoutProduct();
    EXPECT_EQ(manager->getProductInfo(), nullptr);
    EXPECT_EQ(messageOf([&] { manager->saveConfiguration(folder.file(L"a.skorrax")); }), complaint);
    EXPECT_EQ(manager->getFileName(), L"");
    EXPECT_EQ(folder.entries(), 0u);
    manager->copyConfiguration(folder.file(L"a.skorrax"));
    EXPECT_TRUE(folder.has(L"a.skorrax"));
}

TEST(NoProduct, SnapshotOfAnUntitledConfigurationIsLoggedAsFailed) {
    const auto manager = newWithoutProduct();
    const LogCapture log;
    UlvanoDiagnostics::saveConfiguration(manager.get());
    EXPECT_EQ(log.linesOf("Ulvano.UlvanoDiagnostics").size(), 1u);
}
