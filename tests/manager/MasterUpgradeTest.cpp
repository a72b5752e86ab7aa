#include <algorithm>

#include <gtest/gtest.h>

#include "manager/Upgrade.h"
#include "manager/upgrade/UpgradeChain.h"
#include "store/ConfigInfoFactory.h"
#include "tests/support/OldFiles.h"
#include "tests/support/SteppedDocument.h"
#include "tests/support/TestDocument.h"

// What must hold for every old file whatever it holds, tried on files that no one would write.

namespace {

constexpr unsigned filesInABlock = 250;

class AnyOldFile : public testing::TestWithParam<unsigned> {
protected:
    template <typename Check>
    static void forEachFile(Check check) {
        const unsigned first = GetParam() * filesInABlock;
        for (unsigned seed = first; seed < first + filesInABlock; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            check(OldFiles(seed).make(), seed);
            if (HasFailure()) return;
        }
    }
};

std::string upgraded(const std::string& text) {
    const TestDocument document(text);
    EXPECT_EQ(XMLConfig::upgradeDocument(*document), XMLConfig::Upgraded);
    EXPECT_EQ(document->getVersion(), ConfigInfoFactory::getLatestFileVersionNumber());
    return document.text();
}

// As it went for a user who had every release, and perhaps saved and loaded the file with each.
std::string upgradedReleaseByRelease(const OldFile& file, bool isSavedByEach) {
    TestDocument document(file.text);
    for (const auto& step : XMLConfig::detail::upgradeChain) {
        if (!(document->getVersion() < step.below)) continue;
        applyAlone(step.apply, *document);
        document->setVersion(step.below);
        if (isSavedByEach) document = TestDocument(document.text());
    }
    document->insertBuildDateAndNumber();
    return document.text();
}

// The elements and comments called "kept", in document order.
std::vector<std::string> keptIn(const std::string& text) {
    std::vector<std::string> found;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isElement = text.compare(at, 6, "<Kept ") == 0;
        if (!isElement && text.compare(at, 9, "<!--kept ") != 0) continue;
        const std::string end = isElement ? "</Kept>" : "-->";
        const std::size_t next = text.find(end, at) + end.size();
        found.push_back(text.substr(at, next - at));
        at = next - 1;
    }
    return found;
}

}  // namespace

TEST_P(AnyOldFile, IsUpgradedTheSameWayWatchedAndUnwatched) {
    forEachFile([](const OldFile& file, unsigned) {
        const TestDocument watched(file.text);
        XMLConfig::UpgradeReceipt receipt;
        XMLConfig::upgradeDocument(*watched, &receipt);
        EXPECT_EQ(watched.text(), upgraded(file.text));
        const auto isDue = [&](const auto& step) { return file.version < step.below; };
        const auto& chain = XMLConfig::detail::upgradeChain;
        EXPECT_EQ(static_cast<std::ptrdiff_t>(receipt.steps.size()),
                  std::count_if(std::begin(chain), std::end(chain), isDue));
    });
}

TEST_P(AnyOldFile, OnceUpgradedChangesNoMore) {
    forEachFile([](const OldFile& file, unsigned) {
        const std::string once = upgraded(file.text);
        const TestDocument document(once);
        EXPECT_EQ(XMLConfig::upgradeDocument(*document), XMLConfig::NoUpgradeRequired);
        EXPECT_FALSE(document->isDirty());
        EXPECT_EQ(document.text(), once);
    });
}

TEST_P(AnyOldFile, LosesNothingThatNoStepNames) {
    forEachFile([](const OldFile& file, unsigned) { EXPECT_EQ(keptIn(upgraded(file.text)), file.kept) << file.text; });
}

TEST_P(AnyOldFile, ComesOutAsThroughEveryRelease) {
    forEachFile([](const OldFile& file, unsigned seed) {
        EXPECT_EQ(upgradedReleaseByRelease(file, seed % 4 == 0), upgraded(file.text)) << file.text;
    });
}

INSTANTIATE_TEST_SUITE_P(Upgrade, AnyOldFile, testing::Range(0u, 8u));
