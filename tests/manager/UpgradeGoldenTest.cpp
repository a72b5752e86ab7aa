#include <gtest/gtest.h>

#include "manager/Upgrade.h"
#include "manager/upgrade/UpgradeChain.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/TestDocument.h"

// Run in the root of the sources. The expected files are reasoned, not recorded: whoever changes one says why.

namespace {

const std::filesystem::path golden = "tests/golden";

struct Step {
    const char* version;
    void (*apply)(ConfigInfo& document);
};

class StepFiles : public testing::TestWithParam<Step> {};

// The old files that are shipped as examples, one for each historical version.
class ChainFiles : public testing::TestWithParam<const char*> {};

std::string nameOf(const std::string& version) {
    std::string name = "Version" + version;
    name[name.find('.')] = '_';
    return name;
}

}  // namespace

TEST_P(StepFiles, GiveWhatIsExpected) {
    const std::string name = std::string("to-") + GetParam().version;
    const TestDocument document(TemporaryFolder::readFile(golden / "steps" / (name + ".in.xml")));
    GetParam().apply(*document);
    EXPECT_TRUE(matchesGolden(golden / "steps" / (name + ".expected.xml"), document.text()));
}

INSTANTIATE_TEST_SUITE_P(
    Upgrade, StepFiles,
    testing::Values(Step{"2.000", &XMLConfig::detail::toVersion2}, Step{"2.005", &XMLConfig::detail::toVersion2005},
                    Step{"3.000", &XMLConfig::detail::toVersion3}, Step{"4.000", &XMLConfig::detail::toVersion4},
                    Step{"5.000", &XMLConfig::detail::toVersion5}, Step{"6.000", &XMLConfig::detail::toVersion6},
                    Step{"8.000", &XMLConfig::detail::toVersion8}, Step{"9.000", &XMLConfig::detail::toVersion9}),
    [](const auto& test) { return nameOf(test.param.version); });

TEST_P(ChainFiles, GiveWhatIsExpected) {
    const std::string version = GetParam();
    const bool isDeprecated = version < "5";
    const TestDocument document(
        TemporaryFolder::readFile("examples/history/dome-" + version + (isDeprecated ? ".skorra" : ".skorrax")));
    const auto status = version == "9.000" ? XMLConfig::NoUpgradeRequired : XMLConfig::Upgraded;
    EXPECT_EQ(XMLConfig::upgradeDocument(*document), status);
    EXPECT_TRUE(matchesGolden(golden / "chains" / ("from-" + version + ".expected.xml"), document.text()));
}

INSTANTIATE_TEST_SUITE_P(Upgrade, ChainFiles,
                         testing::Values("1.500", "2.003", "2.500", "3.000", "4.000", "5.000", "6.000", "7.000", "8.000",
                                         "9.000"),
                         [](const auto& test) { return nameOf(test.param); });
