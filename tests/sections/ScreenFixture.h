#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/AssetManager.h"
#include "sections/ScreenConfig.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"

namespace XMLConfig::tests {

inline std::shared_ptr<AssetManager> assetsOfHall() { return std::make_shared<AssetManager>(L"/shows/hall.skorrax"); }

/// A "Screen" section of the configuration /shows/hall.skorrax.
class ScreenFixture : public testing::Test {
protected:
    ConfigInfo document;
    StoredItems items{document, L"Screen"};
    std::shared_ptr<AssetManager> assets = assetsOfHall();
    ScreenConfig screen{&document, assets, L""};
};

}  // namespace XMLConfig::tests
