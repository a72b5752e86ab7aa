#include <gtest/gtest.h>

#include <memory>

#include "manager/Check.h"
#include "manager/XMLConfigManager.h"
#include "store/ConfigInfo.h"
#include "tests/support/Example.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProduct.h"

namespace {

/// A copy that may be written.
std::wstring copyIn(const TemporaryFolder& folder) { return folder.write(L"dome.skorrax", exampleText()); }

TEST(Example, IsAFixedPoint) {
    const TemporaryFolder folder;
    const std::wstring file = copyIn(folder);
    ConfigInfo document(file);
    document.insertBuildDateAndNumber();
    EXPECT_TRUE(document.save(file));
    EXPECT_EQ(folder.read(L"dome.skorrax"), exampleText());
}

TEST(Example, IsInOrder) {
    const TemporaryFolder folder;
    const ConfigInfo document(copyIn(folder));
    for (const XMLConfig::Finding& finding : XMLConfig::check(document))
        EXPECT_EQ(finding.severity, XMLConfig::Severity::Note) << finding.rule;
}

TEST(Example, LoadsAsACurrentFile) {
    const TemporaryFolder folder;
    const std::unique_ptr<XMLConfigManager> manager(
        XMLConfigManager::loadConfiguration(TestProduct::make(), copyIn(folder)));
    EXPECT_EQ(manager->getVersionUpgradeStatus(), XMLConfig::NoUpgradeRequired);
    EXPECT_EQ(manager->getProjectorConfigCount(), 4);
    EXPECT_EQ(manager->getCameraConfigCount(), 2);
    EXPECT_FALSE(manager->isConfigDirty());
}

}  // namespace
