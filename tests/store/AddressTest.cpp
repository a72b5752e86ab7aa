#include "store/Address.h"

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"
#include "tests/support/Thrown.h"

namespace {

using XMLConfig::Address;
using XMLConfig::addressText;
using XMLConfig::findElement;
using XMLConfig::parseAddress;
using XMLConfig::parseAssignment;

using Parts = std::vector<std::wstring>;

Parts partsOf(const Address& a) { return {a.section, a.sectionID, a.subSection, a.subSectionID, a.key}; }

struct Row {
    const wchar_t* text;
    Parts parts;
};
const Row rows[] = {
    {L"System", {L"System", L"", L"", L"", L""}},
    {L"Screen/Shape", {L"Screen", L"", L"", L"", L"Shape"}},
    {L"Screen/Checkerboard/Grid/Rows", {L"Screen", L"", L"", L"", L"Checkerboard|Grid|Rows"}},
    {L"Projector[2]/Name", {L"Projector", L"2", L"", L"", L"Name"}},
    {L"Camera[PGR***00:0a]", {L"Camera", L"PGR***00:0a", L"", L"", L""}},
    {L"Slots/Slot[3]/Name", {L"Slots", L"", L"Slot", L"3", L"Name"}},
    {L"Slots[x]/Slot[3]", {L"Slots", L"x", L"Slot", L"3", L""}},
    {L"A[b/c=d[e]/F", {L"A", L"b/c=d[e", L"", L"", L"F"}},
    {L"A[b]]c]]]/F", {L"A", L"b]c]", L"", L"", L"F"}},
    {L"A[ ]/F", {L"A", L" ", L"", L"", L"F"}},
    {L"Größe[日本]/Höhe", {L"Größe", L"日本", L"", L"", L"Höhe"}},
};

TEST(Address, ReadsItsForms) {
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        EXPECT_EQ(partsOf(parseAddress(row.text)), row.parts);
        EXPECT_EQ(addressText(parseAddress(row.text)), row.text);
    }
}

std::wstring faultOf(const std::wstring& text) {
    return messageOf<CorvaneParseException>([&] { parseAddress(text); });
}

TEST(Address, RefusesWhatIsNone) {
    const auto message = [](const std::wstring& text, const std::wstring& rest) {
        return L"Error parseAddress: \"" + text + L"\", character " + rest;
    };
    const std::pair<const wchar_t*, const wchar_t*> faults[] = {
        {L"", L"1: a name is missing"},
        {L"/Name", L"1: a name is missing"},
        {L"System/", L"8: a name is missing"},
        {L"System//Name", L"8: a name is missing"},
        {L"[2]/Name", L"1: a name is missing"},
        {L"System/2nd", L"8: \"2nd\" is no name"},
        {L"System/Run Type", L"8: \"Run Type\" is no name"},
        {L"System/A|B", L"8: \"A|B\" is no name"},
        {L"System/A=B", L"8: \"A=B\" is no name"},
        {L"Projector[2", L"10: the identifier has no end"},
        {L"Projector[2]]", L"10: the identifier has no end"},
        {L"Projector[]/Name", L"10: the identifier is empty"},
        {L"Projector[2]Name", L"13: a \"/\" must follow the identifier"},
        {L"A/B/C[2]", L"9: only a section and what stands directly in it have identifiers"},
    };
    for (const auto& [text, rest] : faults) EXPECT_EQ(faultOf(text), message(text, rest));
}

TEST(Assignment, ValueStartsAfterTheFirstEqualsOutsideIdentifiers) {
    const XMLConfig::Assignment assignment = parseAssignment(L"Projector[a=b]/Name=x=y / [z]");
    EXPECT_EQ(partsOf(assignment.address), (Parts{L"Projector", L"a=b", L"", L"", L"Name"}));
    EXPECT_EQ(assignment.value, L"x=y / [z]");
}

TEST(Assignment, ValueMayBeEmpty) { EXPECT_EQ(parseAssignment(L"System/RunType=").value, L""); }

TEST(Assignment, NeedsAnEqualsSign) {
    EXPECT_THROW(parseAssignment(L"System/RunType"), CorvaneParseException);
    EXPECT_THROW(parseAssignment(L"Projector[a=b]"), CorvaneParseException);
    EXPECT_THROW(parseAssignment(L"=x"), CorvaneParseException);
}

/// An element's text by its address; "none" where nothing is found.
std::wstring textAt(const ConfigInfo& document, const std::wstring& address) {
    const XMLConfig::ElementView element = findElement(document, parseAddress(address));
    return element ? element.text() : L"none";
}

TEST(FindElement, FindsWhatTheDocumentFinds) {
    ConfigInfo document;
    document.setStringItem(L"Projector", L"Name", L"first", L"1", L"", L"");
    document.setStringItem(L"Projector", L"A|B", L"deep", L"2", L"", L"");
    document.setStringItem(L"Slots", L"Name", L"Lobby", L"", L"Slot", L"3");
    EXPECT_EQ(textAt(document, L"Projector/Name"), L"first");
    EXPECT_EQ(textAt(document, L"Projector[2]/A/B"), L"deep");
    EXPECT_EQ(textAt(document, L"Slots/Slot[3]/Name"), L"Lobby");
    EXPECT_EQ(textAt(document, L"Slots/Slot/Name"), L"Lobby");
    for (const wchar_t* address : {L"Projector[3]", L"Projector[1]/A", L"Projector/A/B", L"Slots/Slot[4]/Name", L"System"})
        EXPECT_EQ(textAt(document, address), L"none") << testing::PrintToString(std::wstring(address));
}

TEST(FindElement, SubsectionMayStandInALaterSectionOfTheSameName) {
    ConfigInfo document;
    document.setStringItem(L"Slots", L"Name", L"x", L"1", L"", L"");
    document.setStringItem(L"Slots", L"Name", L"Lobby", L"2", L"Slot", L"3");
    EXPECT_EQ(textAt(document, L"Slots/Slot[3]/Name"), L"Lobby");
    EXPECT_EQ(document.getStringItem(L"Slots", L"Name", L"none", L"", L"Slot", L"3"), L"Lobby");
}

}  // namespace
