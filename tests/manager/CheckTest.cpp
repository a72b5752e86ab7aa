#include "manager/Check.h"

#include <gtest/gtest.h>

#include "manager/CheckRules.h"
#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Lines = std::vector<std::wstring>;

/// What the rules on the form find in a document with that content, as "address: message".
Lines findingsIn(const std::string& content) {
    const TemporaryFolder folder;
    const std::wstring file = folder.write(L"hall.skorrax", currentFile(content));
    Lines lines;
    XMLConfig::CheckOptions options;
    for (const XMLConfig::CheckRule& rule : XMLConfig::checkRules())
        if (std::wstring(rule.id).rfind(L"XC1", 0) == 0) options.onlyRules.emplace_back(rule.id);
    for (const XMLConfig::Finding& finding : XMLConfig::check(ConfigInfo(file), options))
        lines.push_back(finding.address + L": " + finding.message);
    return lines;
}

TEST(Check, NewDocumentIsInOrder) { EXPECT_TRUE(XMLConfig::check(ConfigInfo()).empty()); }

TEST(Check, FindsValuesOfAnotherType) {
    EXPECT_EQ(findingsIn("<System><Is_Camera_Used>maybe</Is_Camera_Used><ACT_Count>two</ACT_Count></System>"
                         "<Geometry><Box_Spacing>1,5</Box_Spacing><Box_Size>21</Box_Size></Geometry>"),
              (Lines{L"System/Is_Camera_Used: \"maybe\" is not of type bool; the application reads true",
                     L"System/ACT_Count: \"two\" is not of type int; the application reads 0",
                     L"Geometry/Box_Spacing: \"1,5\" is not of type double; the application reads 1",
                     L"Geometry/Box_Size: \"21\" is not of type 2-D integer point; the application reads 21, 21"}));
}

TEST(Check, FindsElementsInPlaceOfAValue) {
    EXPECT_EQ(findingsIn("<Geometry><Box_Spacing><x>1</x></Box_Spacing></Geometry>"),
              (Lines{L"Geometry/Box_Spacing: holds elements instead of a value"}));
}

TEST(Check, LooksIntoGroupsAndRecords) {
    EXPECT_EQ(
        findingsIn("<Projector ID='1'><Channel_Extents><Heading><Yaw>0</Yaw><Jaw>0</Jaw></Heading></Channel_Extents>"
                   "<Designed><Frustum><Offset>0, 0</Offset></Frustum></Designed></Projector>"),
        (Lines{L"Projector[1]/Designed/Frustum/Offset: \"0, 0\" is not of type 3-D point; the application reads 0, 0, 0",
               L"Projector[1]/Channel_Extents/Heading/Jaw: there is no such setting; did you mean "
               L"\"Channel_Extents/Heading/Yaw\"?"}));
}

TEST(Check, FragmentsAreNotLookedInto) {
    EXPECT_TRUE(
        findingsIn("<Camera ID='1'><DeviceSnippet><device UID='x'><id>1</id></device></DeviceSnippet></Camera>").empty());
}

TEST(Check, FindsUnknownSettingsOnceEach) {
    EXPECT_EQ(findingsIn("<System><RunTipe>ClassicRun</RunTipe><Extra><A/><B/></Extra></System>"),
              (Lines{L"System/RunTipe: there is no such setting; did you mean \"RunType\"?",
                     L"System/Extra: there is no such setting"}));
}

TEST(Check, FindsUnknownSectionsWithoutTheirContent) {
    EXPECT_EQ(findingsIn("<Sistem><RunType>ClassicRun</RunType></Sistem>"),
              (Lines{L"Sistem: there is no such section; did you mean \"System\"?"}));
}

TEST(Check, OpenSectionsHoldAnyKey) {
    EXPECT_TRUE(findingsIn("<MediaServer><outputFile>x</outputFile><any><key>1</key></any></MediaServer>"
                           "<ProjMap><list>1, 2, </list></ProjMap>")
                    .empty());
}

TEST(Check, NotedOldIdentifiersAreInOrder) {
    EXPECT_TRUE(findingsIn("<Projector ID='2'><OldSectionID>1</OldSectionID></Projector>").empty());
}

TEST(Check, FindsRepeatedIdentifiers) {
    EXPECT_EQ(findingsIn("<Projector ID='1'/><Projector ID='2'/><Projector ID='1'/><Camera ID='1'/><Screen/><Screen/>"),
              (Lines{L"Projector[1]: is hidden by an earlier one", L"Screen: is hidden by an earlier one"}));
}

TEST(Check, FindsRepeatedItemsAndSlots) {
    EXPECT_EQ(findingsIn("<ProjectorApprovedSlots><Slot ID='3'><Name>A</Name></Slot><Slot ID='3'><Name>B</Name></Slot>"
                         "<CurrentSlotID>1</CurrentSlotID><CurrentSlotID>2</CurrentSlotID></ProjectorApprovedSlots>"),
              (Lines{L"ProjectorApprovedSlots/Slot[3]: is hidden by an earlier one",
                     L"ProjectorApprovedSlots/CurrentSlotID: is hidden by an earlier one"}));
}

TEST(Check, FindsSlotsWithoutANumber) {
    EXPECT_EQ(findingsIn("<ProjectorApprovedSlots><Slot ID='left'><Name>A</Name></Slot></ProjectorApprovedSlots>"),
              (Lines{L"ProjectorApprovedSlots/Slot[left]: there is no such setting"}));
}

TEST(Check, FindsDevicesWithoutIdentifiers) {
    EXPECT_EQ(findingsIn("<Projector/><Camera/><Camera ID=''/>"),
              (Lines{L"Projector: a projector has no ID", L"Camera: a camera has no ID", L"Camera: a camera has no ID"}));
}

TEST(Check, AddressesCanBeParsed) {
    EXPECT_EQ(findingsIn("<Projector ID='a]/b'><Name/><Nickname/></Projector>"),
              (Lines{L"Projector[a]]/b]/Nickname: there is no such setting"}));
}

TEST(Check, TellsErrorsFirstThenByRule) {
    const TemporaryFolder folder;
    const ConfigInfo document(
        folder.write(L"hall.skorrax", currentFile("<Camera/><Foo/>"
                                                  "<System><X/><ACT_Count>x</ACT_Count></System><System/>")));
    std::vector<std::wstring> rules;
    for (const XMLConfig::Finding& finding : XMLConfig::check(document))
        rules.push_back(std::wstring(nameOf(finding.severity)) + L" " + finding.rule + L" " + finding.name);
    EXPECT_EQ(rules, (std::vector<std::wstring>{L"error XC103 wrong-type", L"error XC106 hidden", L"error XC107 no-id",
                                                L"note XC104 unknown-setting", L"note XC105 unknown-section"}));
}

// Comments that accept a finding.

/// What is found in a document, as "rule address", with "+" before what is accepted.
Lines rulesIn(const std::string& content, const XMLConfig::CheckOptions& options = {}) {
    const TemporaryFolder folder;
    const ConfigInfo document(folder.write(L"hall.skorrax", currentFile(content)));
    Lines lines;
    for (const XMLConfig::Finding& finding : XMLConfig::check(document, options))
        lines.push_back((finding.isAccepted ? L"+" : L"") + finding.rule + L" " + finding.address);
    return lines;
}

const std::string accepting = "<!-- xmlconfig accepts XC103: known -->";
const std::string badSystem = "<System><ACT_Count>two</ACT_Count></System>";
const std::string badGeometry = "<Geometry><Fit_Order>two</Fit_Order></Geometry>";

std::string acceptedSystem() { return "<System>" + accepting + "<ACT_Count>two</ACT_Count></System>"; }

TEST(Check, AcceptsWhatACommentSaysInTheElementAroundIt) {
    EXPECT_EQ(rulesIn(badSystem + badGeometry), (Lines{L"XC103 System/ACT_Count", L"XC103 Geometry/Fit_Order"}));
    EXPECT_EQ(rulesIn(acceptedSystem() + badGeometry), (Lines{L"XC103 Geometry/Fit_Order"}));
    EXPECT_EQ(rulesIn(accepting + badSystem + badGeometry), Lines());
}

TEST(Check, GivesWhatIsAcceptedToWhoAsks) {
    XMLConfig::CheckOptions options;
    options.givesAccepted = true;
    EXPECT_EQ(rulesIn(acceptedSystem() + badGeometry, options),
              (Lines{L"+XC103 System/ACT_Count", L"XC103 Geometry/Fit_Order"}));
}

TEST(Check, TellsOfAcceptancesThatNothingNeeds) {
    EXPECT_EQ(rulesIn("<System>" + accepting + "</System>" + badGeometry),
              (Lines{L"XC103 Geometry/Fit_Order", L"XC910 System"}));
    EXPECT_EQ(rulesIn(accepting), (Lines{L"XC910 "}));
    EXPECT_EQ(rulesIn("<System><!-- accepts XC103 --><!-- xmlconfig acceptsXC103 --></System>"), Lines());
}

TEST(Check, JudgesAcceptancesOnlyByRulesThatWereLookedFor) {
    XMLConfig::CheckOptions options;
    options.onlyRules = {L"XC910"};
    EXPECT_EQ(rulesIn(acceptedSystem(), options), Lines());
    EXPECT_EQ(rulesIn("<System>" + accepting + "</System>" + badGeometry, options), (Lines{L"XC910 System"}));
    EXPECT_EQ(rulesIn("<System><!-- xmlconfig accepts XC902: later --></System>"), Lines());
    EXPECT_EQ(rulesIn("<System><!-- xmlconfig accepts XC999: so --></System>", options), (Lines{L"XC910 System"}));
    const std::string broken = "<Projector ID='1'><!-- xmlconfig accepts XC313: so --></Projector>";
    for (const std::wstring& line : rulesIn(broken)) EXPECT_NE(line.substr(0, 5), L"XC910");
    EXPECT_EQ(rulesIn(broken, options), Lines()) << "neighbours are not checked before the channel is in order";
}

TEST(Check, TellsOfConflictsWhereTheyAre) {
    const auto found = [](const std::string& comment) {
        return findingsIn("<System><!--" + comment + "--><ACT_Count>2</ACT_Count></System>");
    };
    EXPECT_EQ(found("xmlconfig conflict System/ACT_Count base=1 ours=2 theirs=3"),
              (Lines{L"System/ACT_Count: is not settled: ours 2, theirs 3"}));
    EXPECT_EQ(found(" xmlconfig conflict System/Site_Name ours= theirs=Hall 1 "),
              (Lines{L"System/Site_Name: is not settled: ours nothing, theirs Hall 1"}));
    EXPECT_EQ(found("xmlconfig conflict [x"), (Lines{L"System/ACT_Count: is not settled: ours nothing, theirs nothing"}));
    EXPECT_EQ(found("xmlconfig conflicts"), Lines());
}

// Devices that the application cannot find.

TEST(Check, StandsSectionsOfOneIDAndOfNone) {
    const std::string inside =
        "<Channel_Extents><Heading><Yaw>1</Yaw></Heading><VFOV><Top>0.4</Top><Bottom>-0.4</Bottom></VFOV>"
        "<HFOV><Left>-0.4</Left><Right>0.4</Right></HFOV></Channel_Extents></Projector>";
    const std::string one = "<Projector ID=\"1\">" + inside;
    for (const std::string& other : {"<Projector ID=\"\">" + inside, "<Projector>" + inside, one}) {
        for (const std::wstring& line : rulesIn(one + other)) EXPECT_NE(line.substr(0, 5), L"XC308");
        EXPECT_FALSE(rulesIn(other + one).empty());
    }
}

}  // namespace
