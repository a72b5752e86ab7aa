#include "manager/upgrade/StepRecorder.h"

#include <gtest/gtest.h>

#include "tests/support/TestDocument.h"

using XMLConfig::UpgradeChange;
using XMLConfig::UpgradeStepReport;
using XMLConfig::detail::ItemMove;
using XMLConfig::detail::StepRecorder;
using XMLConfig::detail::UpgradeStep;

namespace {

using Kind = UpgradeChange::Kind;

const ItemMove moves[] = {{L"Old", L"A", L"New", L"B"}};
const UpgradeStep step{9.0, L"a step", nullptr, moves};

template <typename Act>
std::vector<UpgradeChange> recorded(const std::string& sections, Act act) {
    const TestDocument document("<ConfigInfo><Version>8.000</Version>" + sections + "</ConfigInfo>");
    const StepRecorder recorder(*document, step);
    act(*document);
    return recorder.report().changes;
}

void write(ConfigInfo& document, const wchar_t* section, const wchar_t* key, const wchar_t* text) {
    document.setStringItem(section, key, text, L"", L"", L"");
}

}  // namespace

TEST(StepRecorder, ItemCarriedToANewPlaceIsOneMove) {
    const auto changes = recorded("<Old><A>1</A></Old><New/>", [](ConfigInfo& document) {
        write(document, L"New", L"B", L"1");
        document.removeItem(L"Old", L"A", L"");
    });
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::Moved);
    EXPECT_EQ(changes[0].section, L"Old");
    EXPECT_EQ(changes[0].newSection, L"New");
    EXPECT_EQ(changes[0].newKey, L"B");
    EXPECT_EQ(changes[0].newValue, L"1");
}

TEST(StepRecorder, ItemCarriedToWhereOneStoodIsOneMove) {
    const auto changes = recorded("<Old><A>1</A></Old><New><B>2</B></New>", [](ConfigInfo& document) {
        write(document, L"New", L"B", L"1");
        document.removeItem(L"Old", L"A", L"");
    });
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::Moved);
    EXPECT_EQ(changes[0].oldValue, L"1");
    EXPECT_EQ(changes[0].newValue, L"1");
}

TEST(StepRecorder, ItemThatGoesWithoutBeingWrittenIsRemoved) {
    const auto changes = recorded("<Old><A>1</A><B>2</B></Old><New/><Other/>", [](ConfigInfo& document) {
        document.removeItem(L"Old", L"A", L"");
        write(document, L"New", L"A", L"1");
        write(document, L"Other", L"B", L"1");
    });
    ASSERT_EQ(changes.size(), 3u);
    EXPECT_EQ(changes[0].kind, Kind::Removed);
    EXPECT_EQ(changes[1].kind, Kind::Added);
    EXPECT_EQ(changes[2].kind, Kind::Added);
}

TEST(StepRecorder, ItemThatIsWrittenWithoutGoingIsAdded) {
    const auto changes = recorded("<Old><A>1</A><C>2</C></Old><New><A>1</A></New>", [](ConfigInfo& document) {
        document.removeItem(L"Old", L"C", L"");
        document.removeItem(L"New", L"A", L"");
        write(document, L"New", L"B", L"1");
    });
    ASSERT_EQ(changes.size(), 3u);
    EXPECT_EQ(changes[0].kind, Kind::Removed);
    EXPECT_EQ(changes[1].kind, Kind::Removed);
    EXPECT_EQ(changes[2].kind, Kind::Added);
}

TEST(StepRecorder, SectionsAreToldToo) {
    const auto changes = recorded("<Camera ID=\"1\"/><Camera ID=\"2\"/>", [](ConfigInfo& document) {
        document.moveSection(1, L"Camera", L"1");
        document.removeSection(L"Camera", L"2");
        document.setVersion(8.5);
    });
    ASSERT_EQ(changes.size(), 3u);
    EXPECT_EQ(changes[0].kind, Kind::Moved);
    EXPECT_EQ(changes[0].section, L"Camera");
    EXPECT_EQ(changes[1].kind, Kind::Removed);
    EXPECT_EQ(changes[2].kind, Kind::Changed);
}
