#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "base/AssetManager.h"
#include "sections/ScreenConfig.h"
#include "tests/support/SettingRows.h"

namespace XMLConfig::tests {

inline std::shared_ptr<AssetManager> assetsOfHall() { return std::make_shared<AssetManager>(L"/shows/hall.skorrax"); }

/// A "Screen" section of the configuration /shows/hall.skorrax.
class ScreenFixture : public testing::Test {
protected:
    void put(const std::wstring& key, const std::wstring& text) {
        document.setStringItem(L"Screen", key, text, L"", L"", L"");
        document.setDirty(false);
    }
    std::optional<std::wstring> text(const std::wstring& key) const { return tests::storedText(document, L"Screen", key); }

    ConfigInfo document;
    std::shared_ptr<AssetManager> assets = assetsOfHall();
    ScreenConfig screen{&document, assets, L""};
};

}  // namespace XMLConfig::tests
