#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/UlvanoDiagnostics.h"
#include "tests/manager/TestManager.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// The diagnostics data of the test go into a folder of its own.
class Diagnostics : public testing::Test {
protected:
    void SetUp() override {
        m_before = UlvanoDiagnostics::getDataSubDirectory();
        UlvanoDiagnostics::setDataSubDirectory(wideOf(folder.path()));
    }
    void TearDown() override { UlvanoDiagnostics::setDataSubDirectory(m_before); }

    TemporaryFolder folder;

private:
    std::wstring m_before;
};

}  // namespace

TEST(VirtualLoad, IsFalseUntilItIsSet) {
    EXPECT_FALSE(UlvanoDiagnostics::doVirtualLoad());
    UlvanoDiagnostics::setVirtualLoad(true);
    EXPECT_TRUE(UlvanoDiagnostics::doVirtualLoad());
    UlvanoDiagnostics::setVirtualLoad(false);
    EXPECT_FALSE(UlvanoDiagnostics::doVirtualLoad());
}

TEST_F(Diagnostics, UntitledConfigurationIsSavedUnderTheProductsExtension) {
    const auto manager = newManager(".show");
    manager->setConfigDirty(true);
    UlvanoDiagnostics::saveConfiguration(manager.get());
    EXPECT_TRUE(folder.has(L"untitled.show"));
    EXPECT_EQ(manager->getFileName(), L"");
    EXPECT_TRUE(manager->isConfigDirty());
}

TEST_F(Diagnostics, NamedConfigurationIsSavedUnderItsLastComponent) {
    for (const wchar_t* name : {L"D:\\shows\\hall.skorrax", L"/shows/hall.skorrax", L"hall.skorrax"}) {
        std::filesystem::remove(folder.path() / "hall.skorrax");
        TestManager manager(name);
        manager.setConfigDirty(false);
        UlvanoDiagnostics::saveConfiguration(&manager);
        EXPECT_TRUE(folder.has(L"hall.skorrax"));
        EXPECT_EQ(manager.getFileName(), name);
        EXPECT_FALSE(manager.isConfigDirty());
    }
}

TEST_F(Diagnostics, SnapshotHoldsWhatTheDocumentHolds) {
    TestManager manager(L"/shows/hall.skorrax");
    manager.document.setStringItem(L"System", L"Site", L"dome", {}, {}, {});
    UlvanoDiagnostics::saveConfiguration(&manager);
    EXPECT_NE(folder.read(L"hall.skorrax").find("<Site>dome</Site>"), std::string::npos);
    EXPECT_TRUE(manager.isConfigDirty());
}

TEST_F(Diagnostics, FailedSaveIsLoggedAndNotPassedOn) {
    const LogCapture log;
    UlvanoDiagnostics::setDataSubDirectory(folder.file(L"missing"));
    const auto manager = newManager();
    manager->setConfigDirty(true);
    EXPECT_NO_THROW(UlvanoDiagnostics::saveConfiguration(manager.get()));
    EXPECT_THAT(log.linesOf("Ulvano.UlvanoDiagnostics"),
                testing::ElementsAre(LogLine{"Ulvano.UlvanoDiagnostics", "WARN",
                                             "Error saveConfiguration(): An error occurred trying to save configuration"}));
    EXPECT_EQ(manager->getFileName(), L"");
    EXPECT_TRUE(manager->isConfigDirty());
}
