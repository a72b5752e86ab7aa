#include <algorithm>
#include <clocale>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/AssetManager.h"
#include "manager/Check.h"
#include "manager/Upgrade.h"
#include "platform/Clock.h"
#include "platform/IResourceCache.h"
#include "sections/CameraConfig.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ProjMapConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManagerLine.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlots.h"

using testing::ElementsAre;

static_assert(std::has_virtual_destructor_v<XMLConfigManager>);
static_assert(std::is_copy_constructible_v<XMLConfigManager> && std::is_copy_assignable_v<XMLConfigManager>);

namespace {

class FixedClock {
public:
    explicit FixedClock(std::int64_t seconds) {
        XMLConfig::detail::setClock([seconds] { return seconds; });
    }
    ~FixedClock() { XMLConfig::detail::setClock({}); }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
};

class Cache : public IResourceCache {};

std::wstring olderFile(const TemporaryFolder& folder) {
    return folder.write(L"old.skorrax", fileText("<Screen><Unit>Feet</Unit></Screen>", "8.000"));
}
void expectReceiptOfOlderFile(const XMLConfig::UpgradeReceipt& receipt) {
    EXPECT_EQ(receipt.fromVersion, 8.0);
    ASSERT_EQ(receipt.steps.size(), 1u);
    EXPECT_EQ(receipt.steps[0].version, 9.0);
    const auto isUnit = [](const XMLConfig::UpgradeChange& change) { return change.newKey == L"Length_Unit"; };
    EXPECT_TRUE(std::any_of(receipt.steps[0].changes.begin(), receipt.steps[0].changes.end(), isUnit));
}

}  // namespace

TEST(ManagerLifeCycle, NewConfigurationIsUntitledAndDirty) {
    LogCapture log;
    const auto manager = newManager();
    EXPECT_EQ(manager->getFileName(), L"");
    EXPECT_EQ(manager->getFileNameNoPath(), L"");
    EXPECT_EQ(manager->getFileNameNoPathNoExtension(), L"");
    EXPECT_EQ(manager->getMpcdiOutputFilename(), L"mpcdi.xml");
    EXPECT_EQ(manager->getVersionUpgradeStatus(), 0);
    EXPECT_EQ(manager->getAssetManager()->getRootPath(), L"");
    EXPECT_TRUE(manager->isConfigDirty());
    EXPECT_EQ(manager->getCameraConfigCount(), 0);
    EXPECT_EQ(manager->getProjectorConfigCount(), 0);
    EXPECT_THAT(log.lines(), ElementsAre(info("newConfiguration()")));
}

TEST(ManagerLifeCycle, NewConfigurationHoldsInitialValues) {
    const TemporaryFolder folder;
    const auto manager = newManager();
    manager->saveConfiguration(folder.file(L"new.skorrax"));
    const ConfigInfo document(folder.file(L"new.skorrax"));
    for (const wchar_t* section : {L"Color", L"Geometry", L"Screen", L"System", L"TargetLocator"})
        EXPECT_TRUE(document.doesSectionExist(section, L"")) << XMLConfig::detail::toUtf8(section);
    for (const wchar_t* section : {L"ProjectorApprovedSlots", L"SiteAnalytics", L"ProjMap", L"MediaServer"})
        EXPECT_FALSE(document.doesSectionExist(section, L"")) << XMLConfig::detail::toUtf8(section);
    struct Row {
        const wchar_t* section;
        const wchar_t* key;
        const wchar_t* text;
    };
    for (const Row& row : {Row{L"Color", L"AdvColor_TargetSizeX", L"0"}, Row{L"Geometry", L"Projector_Count", L"0"},
                           Row{L"Screen", L"Screen_Radius", L"2.100000000000000e+00"}, Row{L"Screen", L"Shape", L"Flat"},
                           Row{L"System", L"Parallelize_Sends", L"true"},
                           Row{L"TargetLocator", L"Horizontal_Overlap", L"5.000000000000000e-02"}})
        EXPECT_EQ(XMLConfig::tests::storedText(document, row.section, row.key), row.text)
            << XMLConfig::detail::toUtf8(row.key);
}

TEST(ManagerLifeCycle, SectionsStandInTheOrderOfInitialisation) {
    const TemporaryFolder folder;
    newManager()->saveConfiguration(folder.file(L"new.skorrax"));
    const std::string text = folder.read(L"new.skorrax");
    std::size_t last = 0;
    for (const char* tag : {"<Version>", "<BuildDate>", "<BuildNumber>", "<DevelopedBy>", "<Color>", "<Geometry>",
                            "<Screen>", "<System>", "<TargetLocator>"}) {
        const std::size_t position = text.find(tag);
        ASSERT_NE(position, std::string::npos) << tag;
        EXPECT_GT(position, last) << tag;
        last = position;
    }
}

TEST(ManagerLifeCycle, SectionsAreThereAndBoundToTheDocument) {
    TestManager manager;
    EXPECT_EQ(manager.getColorConfig()->getSectionName(), L"Color");
    EXPECT_EQ(manager.getGeometryConfig()->getSectionName(), L"Geometry");
    EXPECT_EQ(manager.getScreenConfig()->getSectionName(), L"Screen");
    EXPECT_EQ(manager.getSystemConfig()->getSectionName(), L"System");
    EXPECT_EQ(manager.getTargetLocatorConfig()->getSectionName(), L"TargetLocator");
    EXPECT_EQ(manager.getProjectorApprovedSlotsConfig()->getSectionName(), L"ProjectorApprovedSlots");
    EXPECT_EQ(manager.getSiteAnalyticsConfig()->getSectionName(), L"SiteAnalytics");
    EXPECT_EQ(manager.getProjMapConfig()->getSectionName(), L"ProjMap");
    EXPECT_EQ(manager.getMediaServerConfig()->getSectionName(), L"MediaServer");
    EXPECT_EQ(manager.getColorConfig()->getSectionID(), L"");
    EXPECT_FALSE(manager.isConfigDirty());
    const XMLConfigManager& constant = manager;
    EXPECT_EQ(constant.getTargetLocatorConfig(), manager.getTargetLocatorConfig());
    EXPECT_EQ(constant.getProjMapConfig(), manager.getProjMapConfig());
    EXPECT_EQ(constant.getMediaServerConfig(), manager.getMediaServerConfig());
    manager.getColorConfig()->setTargetSizeX(77);
    EXPECT_EQ(manager.document.getIntegerItem(L"Color", L"AdvColor_TargetSizeX", 0, L""), 77);
}

TEST(ManagerLifeCycle, LoadedFileAtTheLatestVersionIsUnchangedAndClean) {
    LogCapture log;
    const TemporaryFolder folder;
    const std::string text = fileText("<SiteAnalytics><VisitTimestamp>5</VisitTimestamp></SiteAnalytics>");
    const std::wstring path = folder.write(L"hall.skorrax", text);
    const auto manager = loadedManager(path);
    EXPECT_EQ(manager->getFileName(), path);
    EXPECT_EQ(manager->getVersionUpgradeStatus(), XMLConfig::NoUpgradeRequired);
    EXPECT_EQ(manager->getAssetManager()->getRootPath(), wideOf(folder.path()));
    EXPECT_FALSE(manager->isConfigDirty());
    EXPECT_EQ(folder.read(L"hall.skorrax"), text);
    EXPECT_EQ(manager->getSystemConfig()->getFileVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_THAT(log.linesOf(managerLogger),
                ElementsAre(info("loadConfiguration('" + XMLConfig::detail::toUtf8(path) + "')")));
}

TEST(ManagerLifeCycle, LoadBeginsTheVisitWithoutDirtyingTheDocument) {
    const FixedClock clock(1700000000);
    const TemporaryFolder folder;
    const auto manager = loadedManager(folder.write(L"hall.skorrax", fileText()));
    EXPECT_EQ(manager->getSiteAnalyticsConfig()->getVisitTimestamp(), 1700000000);
    EXPECT_TRUE(manager->getSiteAnalyticsConfig()->isSiteVisit());
    EXPECT_FALSE(manager->isConfigDirty());
}

TEST(ManagerLifeCycle, LoadEndsAVisitOfLongAgo) {
    const FixedClock clock(1700000000 + 72 * 3600 + 1);
    const TemporaryFolder folder;
    const auto manager = loadedManager(folder.write(
        L"hall.skorrax", fileText("<SiteAnalytics><VisitTimestamp>1700000000</VisitTimestamp></SiteAnalytics>")));
    EXPECT_FALSE(manager->getSiteAnalyticsConfig()->isSiteVisit());
    EXPECT_FALSE(manager->isConfigDirty());
}

TEST(ManagerLifeCycle, LoadedFileOfAForeignExtensionIsUntitled) {
    const TemporaryFolder folder;
    const std::wstring path =
        folder.write(L"hall.skorra", fileText("<System><Skorra_File>w.skorrax</Skorra_File></System>"));
    const auto manager = loadedManager(path);
    EXPECT_EQ(manager->getFileName(), L"");
    EXPECT_EQ(manager->getSystemConfig()->getSkorraFilename(), L"w.skorrax");
    EXPECT_EQ(manager->getAssetManager()->getRootPath(), wideOf(folder.path()));
    EXPECT_EQ(loadedManager(path, ".skorra")->getFileName(), path);
    EXPECT_EQ(loadedManager(path, ".SKORRA")->getFileName(), L"");
}

TEST(ManagerLifeCycle, ExtensionsOutsideAsciiAreUtf8) {
    const TemporaryFolder folder;
    const std::wstring path = wideOf(folder.path()) + L"/hall.\u00fcx";
    newManager(".\xC3\xBCx")->saveConfiguration(path);
    EXPECT_EQ(loadedManager(path, ".\xC3\xBCx")->getFileName(), path);
}

TEST(ManagerLifeCycle, MissingFileIsRefusedByTheDocument) {
    LogCapture log;
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"none.skorrax");
    EXPECT_EQ(messageOf([&] { loadedManager(path); }), L"Error parseDataFile: Can not open file: " + path);
    EXPECT_THAT(log.linesOf(managerLogger),
                ElementsAre(info("loadConfiguration('" + XMLConfig::detail::toUtf8(path) + "')")));
}

TEST(ManagerLifeCycle, MalformedFileIsRefusedByTheDocument) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"bad.skorrax", "<ConfigInfo>");
    EXPECT_EQ(messageOf([&] {
                  loadedManager(path);
              }).rfind(L"Error parseDataFile: Error during parsing: " + path + L" XML message is: line ", 0),
              0u);
}

TEST(ManagerLifeCycle, NewerFileIsRefusedWithTheNameInTheMessage) {
    LogCapture log;
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"hall.skorrax", fileText("", "9.001"));
    const std::wstring message =
        L"Error loadConfiguration(): doFileVersionUpgrade() failed attempting to upgrade file: " + path;
    const auto product = TestProduct::make();
    EXPECT_EQ(messageOf([&] { XMLConfigManager::loadConfiguration(product, path); }), message);
    EXPECT_EQ(product.use_count(), 1);
    EXPECT_THAT(log.linesOf(managerLogger), ElementsAre(info("loadConfiguration('" + XMLConfig::detail::toUtf8(path) + "')"),
                                                        LogLine{managerLogger, "WARN", XMLConfig::detail::toUtf8(message)}));
    EXPECT_THAT(
        log.linesOf("Ulvano.XMLConfig.VersionUpgrade"),
        ElementsAre(LogLine{"Ulvano.XMLConfig.VersionUpgrade", "TRACE", "doFileVersionConversion(9.001) -> 9.000"},
                    LogLine{"Ulvano.XMLConfig.VersionUpgrade", "ERROR", "   -> ERROR:  unsupported file version #: 9.001"}));
}

TEST(ManagerLifeCycle, NamesOutsideAsciiAreLoadedLoggedAndSavedUnderTheCLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    LogCapture log;
    const TemporaryFolder folder;
    newManager()->saveConfiguration(folder.file(L"made.skorrax"));
    const std::wstring path = wideOf(folder.path()) + L"/B\u00fchne \u65e5\u672c.skorrax";
    auto manager = loadedManager(folder.file(L"made.skorrax"));
    manager->saveConfiguration(path);
    EXPECT_EQ(log.linesOf(managerLogger).back(),
              info("saveConfiguration('" + folder.path().string() + "/B\xC3\xBChne \xE6\x97\xA5\xE6\x9C\xAC.skorrax')"));
    manager = loadedManager(path);
    EXPECT_EQ(manager->getFileNameNoPathNoExtension(), L"B\u00fchne \u65e5\u672c");
    EXPECT_EQ(log.linesOf(managerLogger).back(),
              info("loadConfiguration('" + folder.path().string() + "/B\xC3\xBChne \xE6\x97\xA5\xE6\x9C\xAC.skorrax')"));
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ManagerLifeCycle, DirtyFlagIsTheDocuments) {
    TestManager manager;
    EXPECT_FALSE(manager.isConfigDirty());
    manager.getSystemConfig()->setSkorraFilename(L"x.skorrax");
    EXPECT_TRUE(manager.isConfigDirty());
    EXPECT_TRUE(manager.document.isDirty());
    manager.setConfigDirty(false);
    EXPECT_FALSE(manager.document.isDirty());
    manager.document.setDirty(true);
    EXPECT_TRUE(manager.isConfigDirty());
}

TEST(ManagerLifeCycle, DocumentIsLookedAtWithItsUnsavedChanges) {
    TestManager manager;
    EXPECT_EQ(&manager.getDocument(), &manager.document);
    EXPECT_TRUE(manager.check().empty());
    manager.getProjectorConfig(L"a");
    manager.document.setStringItem(L"Projector", L"Gamma", L"high", L"a", L"", L"");
    const auto findings = manager.check();
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings[0].rule, L"XC103");
    EXPECT_EQ(findings[0].address, L"Projector[a]/Gamma");
    EXPECT_EQ(XMLConfig::sectionElements(manager.getDocument(), L"Projector").at(0).id(), L"a");
}

TEST(ManagerLifeCycle, LoadGivesTheReceiptOfItsUpgrade) {
    const TemporaryFolder folder;
    XMLConfig::UpgradeReceipt receipt;
    const std::unique_ptr<XMLConfigManager> manager(
        XMLConfigManager::loadConfiguration(TestProduct::make(), olderFile(folder), &receipt));
    EXPECT_EQ(manager->getVersionUpgradeStatus(), XMLConfig::Upgraded);
    expectReceiptOfOlderFile(receipt);
    EXPECT_EQ(manager->getUpgradeReceipt(), nullptr);
}

TEST(ManagerLifeCycle, LoadKeepsTheReceiptWhereAsked) {
    const TemporaryFolder folder;
    std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::loadWithReceipt(TestProduct::make(), olderFile(folder)));
    EXPECT_EQ(manager->getVersionUpgradeStatus(), XMLConfig::Upgraded);
    const XMLConfigManager copy = *manager;
    manager.reset();
    ASSERT_NE(copy.getUpgradeReceipt(), nullptr);
    expectReceiptOfOlderFile(*copy.getUpgradeReceipt());
}

TEST(ManagerLifeCycle, KeptReceiptHasNoStepsWhereNothingWasUpgraded) {
    const TemporaryFolder folder;
    const std::unique_ptr<XMLConfigManager> manager(
        XMLConfigManager::loadWithReceipt(TestProduct::make(), folder.write(L"new.skorrax", fileText())));
    ASSERT_NE(manager->getUpgradeReceipt(), nullptr);
    EXPECT_TRUE(manager->getUpgradeReceipt()->steps.empty());
    EXPECT_EQ(newManager()->getUpgradeReceipt(), nullptr);
}

TEST(ManagerLifeCycle, LoadWithoutUpgradeLeavesTheReceiptEmpty) {
    const TemporaryFolder folder;
    XMLConfig::UpgradeReceipt receipt;
    const std::unique_ptr<XMLConfigManager> manager(
        XMLConfigManager::loadConfiguration(TestProduct::make(), folder.write(L"new.skorrax", fileText()), &receipt));
    EXPECT_TRUE(receipt.steps.empty());
    EXPECT_EQ(receipt.toVersion, 0.0);
}

TEST(ManagerLifeCycle, ResourceCacheIsOnlyPassedOn) {
    Cache cache;
    const auto manager = newManager();
    EXPECT_EQ(manager->getResourceCache(), nullptr);
    manager->setResourceCache(&cache);
    EXPECT_EQ(manager->getResourceCache(), &cache);
    manager->setResourceCache(nullptr);
    EXPECT_EQ(manager->getResourceCache(), nullptr);
}

TEST(ManagerLifeCycle, SharesAreReleasedWithTheManager) {
    const auto product = TestProduct::make();
    std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::newConfiguration(product));
    EXPECT_EQ(manager->getProductInfo(), product.get());
    EXPECT_EQ(product.use_count(), 2);
    const std::weak_ptr<AssetManager> assets = manager->getAssetManager();
    EXPECT_EQ(assets.use_count(), 3);  // the manager's, the screen's and the system's
    EXPECT_EQ(manager->getAssetManager(), manager->getAssetManager());
    manager.reset();
    EXPECT_EQ(product.use_count(), 1);
    EXPECT_TRUE(assets.expired());
}

namespace {

// Notes whether the asset manager was gone when it was destroyed itself.
class WatchingProduct : public TestProduct {
public:
    WatchingProduct(const std::weak_ptr<AssetManager>& assets, bool& sawThemGone)
        : TestProduct(".skorrax"), m_assets(assets), m_sawThemGone(sawThemGone) {}
    ~WatchingProduct() override { m_sawThemGone = m_assets.expired(); }

private:
    const std::weak_ptr<AssetManager>& m_assets;
    bool& m_sawThemGone;
};

}  // namespace

TEST(ManagerLifeCycle, ProductInformationIsReleasedLast) {
    std::weak_ptr<AssetManager> assets;
    bool sawThemGone = false;
    std::unique_ptr<XMLConfigManager> manager(
        XMLConfigManager::newConfiguration(std::make_shared<WatchingProduct>(assets, sawThemGone)));
    assets = manager->getAssetManager();
    manager.reset();
    EXPECT_TRUE(sawThemGone);
}

TEST(ManagerLifeCycle, EverythingIsFreedWithTheManager) {  // the sanitizers look on
    const auto manager = newManager();
    manager->getCameraConfig(L"a");
    manager->getCameraConfig(L"b");
    manager->getCameraConfig(L"c");
    manager->renameCameraConfig(L"a", L"b");
    manager->renameCameraConfig(L"b", L"c");
    manager->getProjectorConfig(L"p");
    manager->getProjectorConfig(L"q");
    manager->removeProjectorConfig(L"p");
    EXPECT_EQ(manager->getCameraConfigCount(), 3);
    EXPECT_EQ(manager->getProjectorConfigCount(), 1);
}

TEST(ManagerLifeCycle, CopyRefersToTheSameObjects) {
    const auto manager = newManager();
    Cache cache;
    manager->setResourceCache(&cache);
    CameraConfig* camera = manager->getCameraConfig(L"a");
    ProjectorConfig* projector = manager->getProjectorConfig(L"a");
    XMLConfigManager copy(*manager);
    EXPECT_EQ(copy.getColorConfig(), manager->getColorConfig());
    EXPECT_EQ(copy.getGeometryConfig(), manager->getGeometryConfig());
    EXPECT_EQ(copy.getScreenConfig(), manager->getScreenConfig());
    EXPECT_EQ(copy.getSystemConfig(), manager->getSystemConfig());
    EXPECT_EQ(copy.getTargetLocatorConfig(), manager->getTargetLocatorConfig());
    EXPECT_EQ(copy.getProjectorApprovedSlotsConfig(), manager->getProjectorApprovedSlotsConfig());
    EXPECT_EQ(copy.getSiteAnalyticsConfig(), manager->getSiteAnalyticsConfig());
    EXPECT_EQ(copy.getProjMapConfig(), manager->getProjMapConfig());
    EXPECT_EQ(copy.getMediaServerConfig(), manager->getMediaServerConfig());
    EXPECT_EQ(copy.getCameraConfig(L"a"), camera);
    EXPECT_EQ(copy.getProjectorConfig(L"a"), projector);
    EXPECT_EQ(copy.getAssetManager(), manager->getAssetManager());
    EXPECT_EQ(copy.getProductInfo(), manager->getProductInfo());
    EXPECT_EQ(copy.getResourceCache(), &cache);
    EXPECT_EQ(copy.getVersionUpgradeStatus(), manager->getVersionUpgradeStatus());
    manager->setConfigDirty(false);
    EXPECT_FALSE(copy.isConfigDirty());
    copy.getColorConfig()->setTargetSizeX(99);
    EXPECT_TRUE(manager->isConfigDirty());
}

TEST(ManagerLifeCycle, CopyOutlivesItsOriginal) {  // the sanitizers look on
    const auto product = TestProduct::make();
    auto manager = std::unique_ptr<XMLConfigManager>(XMLConfigManager::newConfiguration(product));
    CameraConfig* camera = manager->getCameraConfig(L"a");
    auto copy = std::make_unique<XMLConfigManager>(*manager);
    const std::weak_ptr<AssetManager> assets = copy->getAssetManager();
    manager.reset();
    camera->setCameraGain(7);
    EXPECT_EQ(copy->getCameraConfig(L"a"), camera);
    EXPECT_EQ(copy->getCameraConfig(L"a")->getCameraGain(), 7);
    EXPECT_EQ(copy->getSystemConfig()->getFileVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(copy->getProductInfo(), product.get());
    copy.reset();
    EXPECT_TRUE(assets.expired());
    EXPECT_EQ(product.use_count(), 1);
}

TEST(ManagerLifeCycle, AssignmentFreesWhatNoCopyHasOpenAnyMore) {
    const auto first = newManager();
    const auto second = newManager();
    const std::weak_ptr<AssetManager> assets = first->getAssetManager();
    *first = *second;
    EXPECT_TRUE(assets.expired());
    EXPECT_EQ(first->getColorConfig(), second->getColorConfig());
}

TEST(ManagerLifeCycle, CopiesShareDevicesAndHaveNamesOfTheirOwn) {
    const TemporaryFolder folder;
    const auto manager = newManager();
    XMLConfigManager copy(*manager);
    manager->saveConfiguration(folder.file(L"a.skorrax"));
    EXPECT_EQ(copy.getFileName(), L"");
    CameraConfig* camera = manager->getCameraConfig(L"a");
    EXPECT_EQ(copy.getCameraConfig(L"a"), camera);
    EXPECT_TRUE(copy.renameCameraConfig(L"a", L"b"));
    EXPECT_EQ(manager->getCameraConfig(L"b"), camera);
    EXPECT_TRUE(copy.removeCameraConfig(L"b"));
    EXPECT_FALSE(manager->removeCameraConfig(L"b"));
    copy = *manager;
    EXPECT_EQ(copy.getFileName(), folder.file(L"a.skorrax"));
}

namespace {

class OverridingManager : public TestManager {
public:
    SystemConfig* getSystemConfig() override { return &m_system; }

private:
    ConfigInfo m_otherDocument;
    SystemConfig m_system{&m_otherDocument, nullptr, L""};
};

}  // namespace

TEST(ManagerLifeCycle, WarpFileIsAskedForThroughTheVirtualGetter) {
    OverridingManager manager;
    manager.getSystemConfig()->setSkorraFilename(L"other.skorrax");
    EXPECT_EQ(manager.getSkorraFilename(), L"other.skorrax");
    EXPECT_FALSE(manager.document.doesSectionExist(L"System", L""));
}

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
TEST(ManagerLifeCycle, VirtualMembersStandInOrder) {
    using Manager = XMLConfigManager;
    EXPECT_EQ(
        misplacedSlots(0, {NAMED_SLOT(Manager, getCameraConfig),
                           NAMED_SLOT(Manager, getGeometryConfig),
                           NAMED_SLOT(Manager, getScreenConfig),
                           NAMED_SLOT(Manager, getSystemConfig),
                           {"getTargetLocatorConfig",
                            slotOf(static_cast<TargetLocatorConfig* (Manager::*)()>(&Manager::getTargetLocatorConfig))},
                           NAMED_SLOT(Manager, getProjectorConfig)}),
        "");
    EXPECT_EQ(slotCount<TestManager>(), 8);  // the destructor's two places come last
    EXPECT_EQ(slotOf(&Manager::getColorConfig), -1);
    EXPECT_EQ(slotOf(static_cast<const TargetLocatorConfig* (Manager::*)() const>(&Manager::getTargetLocatorConfig)), -1);
}
#endif
