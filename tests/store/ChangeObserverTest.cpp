#include "store/ChangeObserver.h"

#include <algorithm>
#include <ostream>

#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace XMLConfig::detail {

static bool operator==(const Change& a, const Change& b) {
    return a.kind == b.kind && a.section == b.section && a.sectionID == b.sectionID && a.key == b.key &&
           a.oldValue == b.oldValue && a.newValue == b.newValue;
}
static void PrintTo(const Change& change, std::ostream* out) {
    const std::wstring text = L"{" + std::to_wstring(static_cast<int>(change.kind)) + L", \"" + change.section + L"\", \"" +
                              change.sectionID + L"\", \"" + change.key + L"\", \"" + change.oldValue + L"\", \"" +
                              change.newValue + L"\"}";
    *out << std::string(text.begin(), text.end());
}

}  // namespace XMLConfig::detail

namespace storetests {

using XMLConfig::detail::Change;
using XMLConfig::detail::ChangeObserver;
using XMLConfig::detail::setChangeObserver;
using Kind = Change::Kind;
using Changes = std::vector<Change>;

namespace {

struct Recorder : ChangeObserver {
    void changed(Change&& change) override { changes.push_back(std::move(change)); }
    Changes taken() { return std::exchange(changes, {}); }
    Changes changes;
};

class Observed : public testing::Test {
protected:
    void watch(const std::string& body) {
        document = load(currentFile(body));
        EXPECT_EQ(setChangeObserver(*document, &recorder), nullptr);
    }
    Recorder recorder;
    Document document;
};

}  // namespace

TEST_F(Observed, TellsOfAnAddedItem) {
    watch("<S ID=\"1\"/>");
    set(*document, L"S", L"A|B", L"v", L"1");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::ItemAdded, L"S", L"1", L"A|B", L"", L"v"}}));
}

TEST_F(Observed, TellsOfAnAddedSectionBeforeItsItem) {
    watch("");
    set(*document, L"S", L"A", L"v", L"1");
    EXPECT_EQ(recorder.taken(),
              (Changes{{Kind::SectionAdded, L"S", L"1", L"", L"", L""}, {Kind::ItemAdded, L"S", L"1", L"A", L"", L"v"}}));
}

TEST_F(Observed, TellsOfAnAddedSubSection) {
    watch("<S ID=\"1\"/>");
    set(*document, L"S", L"A", L"v", L"1", L"Slot", L"3");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::SectionAdded, L"S", L"1", L"Slot[3]", L"", L""},
                                         {Kind::ItemAdded, L"S", L"1", L"Slot[3]|A", L"", L"v"}}));
    set(*document, L"S", L"A", L"v", L"2", L"Slot", L"");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::SectionAdded, L"S", L"2", L"", L"", L""},
                                         {Kind::SectionAdded, L"S", L"2", L"Slot", L"", L""},
                                         {Kind::ItemAdded, L"S", L"2", L"Slot|A", L"", L"v"}}));
}

TEST_F(Observed, TellsOfAChangedItem) {
    watch("<S><A>old</A></S>");
    set(*document, L"S", L"A", L"new");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::ItemChanged, L"S", L"", L"A", L"old", L"new"}}));
}

TEST_F(Observed, TellsNothingOfAnEqualText) {
    watch("<S><A>same</A></S>");
    set(*document, L"S", L"A", L"same");
    EXPECT_TRUE(recorder.taken().empty());
}

TEST_F(Observed, TellsTheSubSectionInTheKey) {
    watch("<S ID=\"1\"><Slot ID=\"3\"><A>old</A></Slot></S>");
    set(*document, L"S", L"A", L"new", L"1", L"Slot", L"3");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::ItemChanged, L"S", L"1", L"Slot[3]|A", L"old", L"new"}}));
    set(*document, L"S", L"B", L"v", L"1", L"Slot", L"3");
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::ItemAdded, L"S", L"1", L"Slot[3]|B", L"", L"v"}}));
}

TEST_F(Observed, TellsOfARemovedItem) {
    watch("<S ID=\"1\"><A>old</A></S>");
    EXPECT_TRUE(document->removeItem(L"S", L"A", L"1"));
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::ItemRemoved, L"S", L"1", L"A", L"old", L""}}));
    EXPECT_FALSE(document->removeItem(L"S", L"A", L"1"));
    EXPECT_TRUE(recorder.taken().empty());
}

TEST_F(Observed, TellsOfARemovedSection) {
    watch("<S ID=\"1\"><A>old</A></S>");
    EXPECT_TRUE(document->removeSection(L"S", L"1"));
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::SectionRemoved, L"S", L"1", L"", L"", L""}}));
    EXPECT_FALSE(document->removeSection(L"S", L"1"));
    EXPECT_TRUE(recorder.taken().empty());
}

TEST_F(Observed, TellsOfARemovedSubSection) {
    watch("<S ID=\"1\"><Slot ID=\"3\"/></S>");
    EXPECT_TRUE(document->removeSubSection(L"S", L"Slot", L"1", L"3"));
    const Changes changes = recorder.taken();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::SectionRemoved);
    EXPECT_EQ(changes[0].section, L"S");
    EXPECT_EQ(changes[0].sectionID, L"1");
    EXPECT_STARTS_WITH(changes[0].key, L"Slot[3]");
}

TEST_F(Observed, TellsOfARenamedSection) {
    watch("<S ID=\"1\"/>");
    EXPECT_TRUE(document->renameSection(L"S", L"1", L"2"));
    EXPECT_EQ(recorder.taken(), (Changes{{Kind::SectionRenamed, L"S", L"1", L"", L"1", L"2"}}));
}

TEST_F(Observed, TellsOfAMovedSection) {
    watch("<S ID=\"1\"/><S ID=\"2\"/>");
    EXPECT_TRUE(document->moveSection(1, L"S", L"1"));
    const Changes changes = recorder.taken();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::SectionMoved);
    EXPECT_EQ(changes[0].section, L"S");
    EXPECT_EQ(changes[0].sectionID, L"1");
    EXPECT_FALSE(document->moveSection(1, L"S", L"1"));
    EXPECT_TRUE(recorder.taken().empty());
}

TEST_F(Observed, TellsOfANewVersion) {
    watch("");
    document->setVersion(8.5);
    const Changes changes = recorder.taken();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::VersionChanged);
    EXPECT_EQ(changes[0].oldValue, L"9.000");
    EXPECT_EQ(changes[0].newValue, L"8.500");
}

TEST_F(Observed, TellsOfAChangedFragment) {
    watch("<S><A><d>1</d></A></S>");
    document->setStringItemAsDOMElement(L"S", L"A", L"<d>2</d>", L"");
    const Changes changes = recorder.taken();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].kind, Kind::ItemChanged);
    EXPECT_EQ(changes[0].key, L"A");
    document->setStringItemAsDOMElement(L"S", L"A", L"<d>2</d>", L"");
    EXPECT_TRUE(recorder.taken().empty());
    document->setStringItemAsDOMElement(L"S", L"B", L"<d>2</d>", L"");
    ASSERT_EQ(recorder.changes.size(), 1u);
    EXPECT_EQ(recorder.changes[0].kind, Kind::ItemAdded);
}

TEST_F(Observed, TellsNothingOfARefusedChange) {
    watch("<S ID=\"1\"><A>1</A></S>");
    (void)messageOf([&] { set(*document, L"S", L"A", std::wstring(1, L'\x1'), L"1"); });
    (void)messageOf([&] { document->setStringItemAsDOMElement(L"S", L"A", L"<a>", L"1"); });
    (void)messageOf([&] { document->renameSection(L"S", L"1", std::wstring(1, L'\x1')); });
    EXPECT_TRUE(recorder.taken().empty());
}

TEST_F(Observed, TellsTypedChangesByTheirText) {
    watch("<S/>");
    document->setIntegerItem(L"S", L"N", 3, L"");
    document->setPondOfMirrors(L"S", L"M", {1, 0, 0, 0}, L"");
    const Changes changes = recorder.taken();
    ASSERT_EQ(changes.size(), 5u);
    EXPECT_EQ(changes[0], (Change{Kind::ItemAdded, L"S", L"", L"N", L"", L"3"}));
    EXPECT_EQ(changes[1], (Change{Kind::ItemAdded, L"S", L"", L"M|Top", L"", L"1"}));
}

TEST_F(Observed, TellsNothingWhenDismissed) {
    watch("<S/>");
    Recorder other;
    EXPECT_EQ(setChangeObserver(*document, &other), &recorder);
    set(*document, L"S", L"A", L"1");
    EXPECT_TRUE(recorder.taken().empty());
    EXPECT_EQ(other.taken().size(), 1u);
    EXPECT_EQ(setChangeObserver(*document, nullptr), &other);
    set(*document, L"S", L"A", L"2");
    EXPECT_TRUE(other.taken().empty());
    EXPECT_EQ(setChangeObserver(*document, nullptr), nullptr);
}

}  // namespace storetests
