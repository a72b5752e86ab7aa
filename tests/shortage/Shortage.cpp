// What becomes of a document when memory runs out. Every operation is run once for each allocation that it makes, and that
// allocation fails: the operation must say std::bad_alloc and leave the document as it was, do the same as ever when it is
// run again, and leave no memory behind; or it did without that memory and is done.
//
// For the figures (one line an operation: how many allocations failed, and what came of it; every one of an upgrade too,
// of which the test takes a few hundred otherwise):
//   XMLCONFIG_EVERY_ALLOCATION=1 build/dev/bin/xmlconfig_shortage_tests --gtest_filter='*Shortage*'

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <iostream>
#include <utility>

#include "base/AssetManager.h"
#include "manager/Upgrade.h"
#include "manager/UpgradeFile.h"
#include "manager/XMLConfigManager.h"
#include "platform/Clock.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "store/Address.h"
#include "store/Comments.h"
#include "store/FilePlaces.h"
#include "store/Together.h"
#include "tests/shortage/Allocations.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/SystemPath.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDocument.h"
#include "tests/support/TestProduct.h"

namespace {

const char* const sample =
    "<ConfigInfo>\n  <Version>9.000</Version>\n  <BuildDate>a</BuildDate>\n  <DevelopedBy>m</DevelopedBy>\n"
    "  <S ID=\"1\">\n    <A>one</A>\n    <B><C>two</C></B>\n    <F><d k=\"v\"><e>1</e></d></F>\n    <A>other</A>\n"
    "    <!--note--><!--note-->\n"
    "    <Slot ID=\"7\"><v>7</v></Slot>\n    <Slot ID=\"8\"><v>8</v></Slot>\n  </S>\n"
    "  <S ID=\"2\"><A>2</A></S>\n  <S><A>3</A></S>\n  <S ID=\"2\"><A>4</A></S>\n"
    "  <System><ACT_Address_0>a</ACT_Address_0><ACT_Address_1>b</ACT_Address_1><ACT_Count>2</ACT_Count></System>\n"
    "  <ProjectorApprovedSlots><Slot ID=\"3\"><v>3</v></Slot></ProjectorApprovedSlots>\n"
    "  <Camera ID=\"1\"><Name>x</Name></Camera>\n</ConfigInfo>\n";

std::string outcomeText(const ConfigInfo& document) {
    using namespace XMLConfig::detail;
    return gather([&](const ByteSink& sink) { writeDocument(Document::of(document).tree(), sink); });
}

/// What the document says of itself by every look-up, so that a wrong index is seen and not the tree alone.
std::wstring answers(const ConfigInfo& document) {
    std::wstring text = document.isDirty() ? L"dirty;" : L"clean;";
    for (const wchar_t* name : {L"S", L"N", L"T", L"Version", L"BuildNumber"}) {
        text += std::to_wstring(document.getSectionCount(name)) + L":";
        for (const std::wstring& id : document.getSectionIDs(name)) text += id + L",";
        for (const wchar_t* id : {L"", L"1", L"2", L"3"}) {
            for (const wchar_t* key : {L"A", L"B|C", L"B", L"F|d|e", L"G|h", L"New"})
                text += document.getStringItem(name, key, L"-", id, L"", L"") + L";";
            for (const wchar_t* slot : {L"", L"7", L"8", L"9"})
                text += document.getStringItem(name, L"v", L"-", id, L"Slot", slot) + L";";
        }
    }
    return text;
}

using XMLConfig::detail::Together;

/// An accessor of the sample's sections.
class TestSection : public BaseConfig {
public:
    TestSection(ConfigInfo& document, const std::wstring& id) : BaseConfig(&document, L"S", id) {}
    void initialize() override {}
};

struct Operation {
    const char* name;
    std::function<void(ConfigInfo&)> run;
};

void setText(ConfigInfo& document, const wchar_t* section, const wchar_t* id, const wchar_t* key, const std::wstring& value,
             const wchar_t* subSection = L"", const wchar_t* subID = L"") {
    document.setStringItem(section, key, value, id, subSection, subID);
}

const std::wstring longText(300, L'x');

const Operation operations[] = {
    {"getText", [](ConfigInfo& d) { (void)d.getStringItem(L"S", L"A", L"", L"1", L"", L""); }},
    {"getNested", [](ConfigInfo& d) { (void)d.getStringItem(L"S", L"B|C", L"", L"1", L"", L""); }},
    {"getOfSubsection", [](ConfigInfo& d) { (void)d.getStringItem(L"S", L"v", L"", L"1", L"Slot", L"8"); }},
    {"getElement", [](ConfigInfo& d) { (void)d.getStringItemAsDOMElement(L"S", L"F", L"", L"1"); }},
    {"getNumber", [](ConfigInfo& d) { (void)d.getDoubleItem(L"S", L"A", 0, L"2"); }},
    {"getVersion", [](ConfigInfo& d) { (void)d.getVersion(); }},
    {"listSections", [](ConfigInfo& d) { (void)d.getSectionIDs(L"S"); }},
    {"listSubsections", [](ConfigInfo& d) { (void)d.getSubSectionIDs(L"S", L"Slot"); }},
    {"walk", [](ConfigInfo& d) { (void)findElement(d, XMLConfig::parseAddress(L"S[1]/Slot[7]/v")).text(); }},
    {"setText", [](ConfigInfo& d) { setText(d, L"S", L"1", L"A", L"changed"); }},
    {"setLongerText", [](ConfigInfo& d) { setText(d, L"S", L"1", L"A", longText); }},
    {"setNoText", [](ConfigInfo& d) { setText(d, L"S", L"1", L"A", L""); }},
    {"setNested", [](ConfigInfo& d) { setText(d, L"S", L"1", L"B|C", longText); }},
    {"setTextOverElements", [](ConfigInfo& d) { setText(d, L"S", L"1", L"B", L"text"); }},
    {"addItem", [](ConfigInfo& d) { setText(d, L"S", L"1", L"New", L"value"); }},
    {"addNestedItem", [](ConfigInfo& d) { setText(d, L"S", L"1", L"G|h", L"value"); }},
    {"addItemInText", [](ConfigInfo& d) { setText(d, L"S", L"1", L"A|New", L"value"); }},
    {"addSection", [](ConfigInfo& d) { setText(d, L"S", L"3", L"A", L"value"); }},
    {"addSectionOfAnotherTag", [](ConfigInfo& d) { setText(d, L"N", L"", L"G|h", L"value"); }},
    {"addSubsection", [](ConfigInfo& d) { setText(d, L"S", L"1", L"v", L"9", L"Slot", L"9"); }},
    {"addSubsectionAndSection", [](ConfigInfo& d) { setText(d, L"T", L"1", L"v", L"9", L"Slot", L"9"); }},
    {"setInSubsection", [](ConfigInfo& d) { setText(d, L"S", L"1", L"v", longText, L"Slot", L"8"); }},
    {"setElement", [](ConfigInfo& d) { d.setStringItemAsDOMElement(L"S", L"F", L"<n a=\"1\"><m>2</m></n>", L"1"); }},
    {"setSameElement", [](ConfigInfo& d) { d.setStringItemAsDOMElement(L"S", L"F", L"<d k=\"v\"><e>1</e></d>", L"1"); }},
    {"addElement", [](ConfigInfo& d) { d.setStringItemAsDOMElement(L"S", L"New", L"<n a=\"1\"><m>2</m></n>", L"1"); }},
    {"setNumbers",
     [](ConfigInfo& d) {
         d.setPoint3DItem(L"S", L"A", {1, 2, 3}, L"1");
     }},
    {"removeItem", [](ConfigInfo& d) { EXPECT_TRUE(d.removeItem(L"S", L"A", L"1")); }},
    {"removeGroup", [](ConfigInfo& d) { EXPECT_TRUE(d.removeItem(L"S", L"B", L"1")); }},
    {"removeSection", [](ConfigInfo& d) { EXPECT_TRUE(d.removeSection(L"S", L"2")); }},
    {"removeSubsection", [](ConfigInfo& d) { EXPECT_TRUE(d.removeSubSection(L"S", L"Slot", L"1", L"8")); }},
    {"rename", [](ConfigInfo& d) { EXPECT_TRUE(d.renameSection(L"S", L"1", longText)); }},
    {"renameToTaken", [](ConfigInfo& d) { EXPECT_TRUE(d.renameSection(L"S", L"1", L"2")); }},
    {"renameToNothing", [](ConfigInfo& d) { EXPECT_TRUE(d.renameSection(L"S", L"2", L"")); }},
    {"moveEarlier", [](ConfigInfo& d) { EXPECT_TRUE(d.moveSection(-1, L"S", L"2")); }},
    {"moveLater", [](ConfigInfo& d) { EXPECT_TRUE(d.moveSection(1, L"S", L"2")); }},
    {"setVersion", [](ConfigInfo& d) { d.setVersion(3.5); }},
    {"addComment",
     [](ConfigInfo& d) {
         const XMLConfig::ElementView first = XMLConfig::rootElement(d).child(L"S");
         XMLConfig::addComment(d, {XMLConfig::rootElement(d), first, first.next()}, longText);
     }},
    {"removeComment",
     [](ConfigInfo& d) { EXPECT_EQ(XMLConfig::removeComment(d, XMLConfig::rootElement(d).child(L"S"), L"note"), 2u); }},
    {"stamp", [](ConfigInfo& d) { d.insertBuildDateAndNumber(); }},
    {"setFrustum",
     [](ConfigInfo& d) {
         d.setFrustum(L"S", L"G|F", {{1, 2, 3}, {}, 1, 2, 3, 4, 5, 6}, L"1");
     }},
    {"setPondOfMirrors",
     [](ConfigInfo& d) {
         d.setPondOfMirrors(L"N", L"P", {1, 2, 3, 4}, L"1");
     }},
    {"setVector",
     [](ConfigInfo& d) {
         d.setDoubleVector(L"S", L"V", 2, 2, {1, 2, 3, 4}, L"2");
     }},
    {"setPointVector",
     [](ConfigInfo& d) {
         d.setPoint2IVector(L"S", L"V", 2, 1, {{1, 2}, {3, 4}}, L"3");
     }},
    {"renameAndNote",
     [](ConfigInfo& d) {
         TestSection section(d, L"1");
         section.renameSection(longText);
         EXPECT_EQ(section.getSectionID(), longText);
     }},
    {"renameAndNoteInAnother", [](ConfigInfo& d) { TestSection(d, L"2").renameSection(L"1"); }},
    {"renameAndNoteNothing", [](ConfigInfo& d) { TestSection(d, L"3").renameSection(L"4"); }},
    {"initializeCamera", [](ConfigInfo& d) { CameraConfig(&d, L"1").initialize(); }},
    {"initializeProjector", [](ConfigInfo& d) { ProjectorConfig(&d, L"1").initialize(); }},
    {"initializeTargetLocator", [](ConfigInfo& d) { TargetLocatorConfig(&d, L"").initialize(); }},
    {"initializeSystem", [](ConfigInfo& d) { SystemConfig(&d, nullptr, L"").initialize(); }},
    {"setExtrinsics",
     [](ConfigInfo& d) {
         CameraConfig(&d, L"1").setExplicitExtrinsics({1, 2, 3}, {4, 5, 6});
     }},
    {"setViewport",
     [](ConfigInfo& d) {
         ProjectorConfig(&d, L"1").setChannelExtentsFromViewport({{1, 2, 3}, {4, 5, 6}, 1, 2, 3, 4, 5, 6});
     }},
    {"setImageSize",
     [](ConfigInfo& d) {
         ScreenConfig(&d, nullptr, L"").setMarkedSurfaceImageSize({1, 2});
     }},
    {"setLayoutGridSize",
     [](ConfigInfo& d) {
         GeometryConfig(&d, L"").setSimpleLayoutGridSize({2, 3});
     }},
    {"setACTCount", [](ConfigInfo& d) { SystemConfig(&d, nullptr, L"").setACTCount(1); }},
    {"takeSlotOfRun",
     [](ConfigInfo& d) {
         ProjectorApprovedSlotsConfig(&d, L"").updateSlot(3, L"", ProjectorApprovedSlotsConfig::CurrentRun);
     }},
    {"resetSite", [](ConfigInfo& d) { SiteAnalyticsConfig(&d, L"").resetSite(); }},
};

bool isEveryOneWanted() { return std::getenv("XMLCONFIG_EVERY_ALLOCATION") != nullptr; }

struct Outcome {
    std::size_t said = 0;  // std::bad_alloc
    std::size_t done = 0;  // without that memory
};

/// Runs `attempt(k)` for k from 1 until none fails any more. It gives whether the operation threw std::bad_alloc.
Outcome forEveryAllocation(const std::function<bool(std::size_t)>& attempt, std::size_t step = 1, std::size_t dense = 0) {
    Outcome outcome;
    for (std::size_t k = 1;; k += k <= dense ? 1 : step) {
        const bool hasSaid = attempt(k);
        if (!allocations::hasFailed()) {
            EXPECT_FALSE(hasSaid) << "a shortage that was none, at " << k;
            return outcome;
        }
        ++(hasSaid ? outcome.said : outcome.done);
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "at allocation " << k;
            return outcome;
        }
    }
}

// What the XML library loses: a parser or document that runs short of memory it leaves where it stands, with its buffers,
// for it does not dare to take it apart then.
constexpr std::size_t noLoss = 0;
constexpr std::size_t lossOfDocument = 512;
constexpr std::size_t lossOfParser = 256 * 1024;

/// What is live when it is made must be live again at its end, but for that loss.
class Balance {
public:
    explicit Balance(std::size_t allowedLossOfXml) : m_allowed(allowedLossOfXml) {}
    ~Balance() {
        EXPECT_EQ(allocations::liveBytes(), m_live) << "bytes are left";
        EXPECT_LE(allocations::liveBytesOfXml(), m_liveOfXml + m_allowed) << "bytes of the XML library are left";
    }
    Balance(const Balance&) = delete;
    Balance& operator=(const Balance&) = delete;

private:
    std::size_t m_live = allocations::liveBytes();
    std::size_t m_liveOfXml = allocations::liveBytesOfXml();
    std::size_t m_allowed;
};

/// Whether the operation says that memory ran out; a failed test where it says anything else.
bool runsShort(std::size_t k, const std::function<void()>& operation) {
    bool hasSaid = false;
    allocations::failAt(k);
    try {
        operation();
    } catch (const std::bad_alloc&) {
        hasSaid = true;
    } catch (const std::exception& exception) {
        allocations::failNone();
        ADD_FAILURE() << "another exception: " << exception.what();
    } catch (...) {
        allocations::failNone();
        ADD_FAILURE() << "an exception of no known kind";
    }
    allocations::failNone();
    return hasSaid;
}

void report(const std::string& name, const Outcome& outcome) {
    testing::Test::RecordProperty(name, std::to_string(outcome.said + outcome.done));
    if (isEveryOneWanted())
        std::cout << name << ": " << outcome.said + outcome.done << " failed, " << outcome.said << " said so, "
                  << outcome.done << " done without" << std::endl;
}

/// A document and what it answers, before an operation or after it.
struct State {
    explicit State(const ConfigInfo& document) : text(outcomeText(document)), told(answers(document)) {}
    std::string text;
    std::wstring told;
};

class Shortage : public testing::TestWithParam<Operation> {
protected:
    Shortage() : m_path(m_folder.write(L"a.skorrax", sample)) {
        ConfigInfo document(m_path);
        m_before = std::make_unique<State>(document);
        GetParam().run(document);
        m_after = std::make_unique<State>(document);
    }

    void expectState(const ConfigInfo& document, const State& state, const char* when) {
        EXPECT_EQ(outcomeText(document), state.text) << when;
        EXPECT_EQ(answers(document), state.told) << when;
    }

    enum class Asked {
        Never,        ///< the index has yet to be made
        Everything,   ///< everything was looked up before
        AndGathered,  ///< that, and the operation is one of several that are made together
    };

    bool attempt(std::size_t k, Asked asked) {
        ConfigInfo document(m_path);
        if (asked != Asked::Never) (void)answers(document);
        const bool hasSaid = runsShort(k, [&] {
            if (asked != Asked::AndGathered) GetParam().run(document);
            else XMLConfig::detail::together(document, [&] { GetParam().run(document); });
        });
        expectState(document, hasSaid ? *m_before : *m_after, "after the shortage");
        if (hasSaid) GetParam().run(document);
        expectState(document, *m_after, "after it was done again");
        return hasSaid;
    }

    void run(Asked asked) {
        attempt(1, asked);  // what is made once for the process is made now
        const bool makesParser = std::strstr(GetParam().name, "Element") != nullptr;
        const Outcome outcome = forEveryAllocation([&](std::size_t k) {
            const Balance balance(makesParser ? lossOfParser : noLoss);
            return attempt(k, asked);
        });
        const char* const kinds[] = {"", " (known)", " (together)"};
        report(std::string(GetParam().name) + kinds[static_cast<int>(asked)], outcome);
    }

    TemporaryFolder m_folder;
    std::wstring m_path;
    std::unique_ptr<State> m_before;
    std::unique_ptr<State> m_after;
};

TEST_P(Shortage, IsNoneWhenAnOperationIsUndone) {
    ConfigInfo document(m_path);
    (void)answers(document);
    {
        Together changes(document);
        GetParam().run(document);
        allocations::restart();
        changes.undo();
        EXPECT_EQ(allocations::count(), 0u);
        expectState(document, *m_before, "inside");
        GetParam().run(document);
        changes.undo();
    }
    expectState(document, *m_before, "after it");
    GetParam().run(document);
    expectState(document, *m_after, "after it was done");
}
TEST_P(Shortage, LeavesADocumentThatWasNeverAsked) { run(Asked::Never); }
TEST_P(Shortage, LeavesADocumentThatIsKnown) { run(Asked::Everything); }
TEST_P(Shortage, LeavesADocumentWhoseChangesAreGathered) { run(Asked::AndGathered); }

INSTANTIATE_TEST_SUITE_P(Of, Shortage, testing::ValuesIn(operations),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace

TEST(ShortageInALoad, LeavesNothing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", sample);
    const std::string text = outcomeText(ConfigInfo(path));
    report("load", forEveryAllocation([&](std::size_t k) {
               const Balance balance(lossOfParser);
               std::string loaded = text;
               const bool hasSaid = runsShort(k, [&] { loaded = outcomeText(ConfigInfo(path)); });
               EXPECT_EQ(loaded, text);
               EXPECT_EQ(outcomeText(ConfigInfo(path)), text);
               return hasSaid;
           }));
}

namespace {

using Place = std::pair<unsigned long long, unsigned long long>;
const Place placeOfCamera(19, 3);  // in the sample

Place cameraIn(const ConfigInfo& document, const std::wstring& path) {
    const auto place = XMLConfig::FilePlaces(document, path).find(XMLConfig::rootElement(document).child(L"Camera"));
    return place ? Place(place->line, place->column) : Place();
}

}  // namespace

TEST(ShortageInALoadWithPlaces, LeavesNothing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", sample);
    const std::string text = outcomeText(ConfigInfo(path));
    const auto attempt = [&](std::size_t k) {
        std::unique_ptr<ConfigInfo> document;
        const bool hasSaid = runsShort(k, [&] { document = XMLConfig::loadWithPlaces(path); });
        EXPECT_EQ(document == nullptr, hasSaid);
        if (document == nullptr) document = XMLConfig::loadWithPlaces(path);
        EXPECT_EQ(outcomeText(*document), text);
        EXPECT_EQ(cameraIn(*document, path), placeOfCamera);
        return hasSaid;
    };
    attempt(1);
    report("load with places", forEveryAllocation([&](std::size_t k) {
               const Balance balance(lossOfParser);
               return attempt(k);
           }));
}

TEST(ShortageInPlacesAfterAChange, LeavesTheDocument) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", sample);
    const auto attempt = [&](std::size_t k) {
        const std::unique_ptr<ConfigInfo> document = XMLConfig::loadWithPlaces(path);
        setText(*document, L"S", L"1", L"A", L"changed");
        const State before(*document);
        Place place;
        const bool hasSaid = runsShort(k, [&] { place = cameraIn(*document, path); });
        EXPECT_EQ(place, hasSaid ? Place() : placeOfCamera);
        EXPECT_EQ(outcomeText(*document), before.text);
        EXPECT_EQ(answers(*document), before.told);
        EXPECT_EQ(cameraIn(*document, path), placeOfCamera);
        return hasSaid;
    };
    attempt(1);
    report("places after a change", forEveryAllocation([&](std::size_t k) {
               const Balance balance(lossOfParser);
               return attempt(k);
           }));
}

TEST(ShortageInANewDocument, LeavesNothing) {
    const std::string text = outcomeText(ConfigInfo());
    report("new", forEveryAllocation([&](std::size_t k) {
               const Balance balance(lossOfDocument);
               const bool hasSaid = runsShort(k, [&] { const ConfigInfo document; });
               EXPECT_EQ(outcomeText(ConfigInfo()), text);
               return hasSaid;
           }));
}

TEST(ShortageInASave, LeavesTheFileAndTheDocument) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", sample);
    const std::string old = "<ConfigInfo/>";
    const auto attempt = [&](std::size_t k) {
        ConfigInfo document(path);
        setText(document, L"S", L"1", L"A", L"changed");
        const State before(document);
        const std::wstring target = folder.write(L"b.skorrax", old);
        const bool hasSaid = runsShort(k, [&] { EXPECT_TRUE(document.save(target)); });
        EXPECT_EQ(folder.read(L"b.skorrax"), hasSaid ? old : before.text);
        EXPECT_EQ(document.isDirty(), hasSaid);
        EXPECT_EQ(outcomeText(document), before.text);
        EXPECT_EQ(folder.entries(), 2u) << "a file is left";
        EXPECT_TRUE(document.save(target));
        EXPECT_EQ(folder.read(L"b.skorrax"), before.text);
        return hasSaid;
    };
    attempt(1);
    report("save", forEveryAllocation([&](std::size_t k) {
               const Balance balance(noLoss);
               return attempt(k);
           }));
}

TEST(ShortageInASaveElsewhere, LeavesEachPathLeadingToItsFile) {
    const TemporaryFolder folder;
    for (const char* name : {"m1", "m2"}) std::filesystem::create_directory(folder.path() / name);
    const std::wstring path =
        folder.write(L"m1/a.skorrax", currentFile("<Screen><VRML>meshes/dome.obj</VRML><PCD>dome.pcd</PCD></Screen>"));
    const std::wstring target = folder.file(L"m2/b.skorrax");
    const auto attempt = [&](std::size_t k) {
        const std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::loadConfiguration(TestProduct::make(), path));
        const std::string before = outcomeText(manager->getDocument());
        const bool hasSaid = runsShort(k, [&] { manager->saveConfiguration(target); });
        const std::wstring mesh = manager->getScreenConfig()->getMeshPath(BaseConfig::FilePathAbsolute);
        EXPECT_EQ(ofThisSystem(mesh), ofThisSystem(folder.file(L"m1/meshes/dome.obj")));
        const bool hasOldRoot = manager->getAssetManager()->getRootPath() == folder.file(L"m1");
        if (hasOldRoot) {
            EXPECT_TRUE(hasSaid);
            EXPECT_EQ(outcomeText(manager->getDocument()), before);
            EXPECT_FALSE(manager->isConfigDirty());
        }
        manager->saveConfiguration(target);
        const ConfigInfo saved(target);
        const auto stored = [&saved](const wchar_t* key) {
            return ofThisSystem(saved.getStringItem(L"Screen", key, L"", L"", L"", L""));
        };
        EXPECT_EQ(stored(L"VRML"), ofThisSystem(L"../m1/meshes/dome.obj"));
        EXPECT_EQ(stored(L"PCD"), ofThisSystem(L"../m1/dome.pcd"));
        return hasSaid;
    };
    attempt(1);
    report("save elsewhere", forEveryAllocation([&](std::size_t k) {
               const Balance balance(noLoss);
               return attempt(k);
           }));
}

namespace {

const std::string devices = currentFile(
    "\n<Camera ID=\"1\"><Name>one</Name></Camera>\n<Camera "
    "ID=\"2\"><Name>two</Name></Camera>"
    "\n<Projector ID=\"1\"><Name>p</Name></Projector>");

/// What an application sees of the devices.
struct Seen {
    explicit Seen(XMLConfigManager& manager) : text(outcomeText(manager.getDocument())), isDirty(manager.isConfigDirty()) {
        for (const std::wstring& id : manager.getCameraIDs()) {
            cameras.push_back(manager.getCameraConfig(id));
            names.push_back(id + L" " + cameras.back()->getSectionID() + L" " + cameras.back()->getName());
        }
        count = manager.getProjectorConfigCount();
    }
    std::string text;
    bool isDirty;
    std::vector<CameraConfig*> cameras;
    std::vector<std::wstring> names;
    int count = 0;
};

struct DeviceOperation {
    const char* name;
    std::function<void(XMLConfigManager&)> run;
};

const DeviceOperation deviceOperations[] = {
    {"rename", [](XMLConfigManager& m) { EXPECT_TRUE(m.renameCameraConfig(L"1", longText)); }},
    {"renameOverAnother", [](XMLConfigManager& m) { EXPECT_TRUE(m.renameCameraConfig(L"1", L"2")); }},
    {"remove", [](XMLConfigManager& m) { EXPECT_TRUE(m.removeCameraConfig(L"1")); }},
    {"move", [](XMLConfigManager& m) { EXPECT_TRUE(m.moveCameraConfig(L"2", -1)); }},
    {"addCamera", [](XMLConfigManager& m) { EXPECT_EQ(m.getCameraConfig(longText)->getSectionID(), longText); }},
    {"addProjector", [](XMLConfigManager& m) { EXPECT_EQ(m.getProjectorConfig(longText)->getSectionID(), longText); }},
};

class ShortageAtDevices : public testing::TestWithParam<DeviceOperation> {};

}  // namespace

TEST_P(ShortageAtDevices, LeavesDocumentAndAccessorsAgreeing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", devices);
    const auto load = [&] {
        return std::unique_ptr<XMLConfigManager>(XMLConfigManager::loadConfiguration(TestProduct::make(), path));
    };
    const auto expected = load();
    const Seen known(*expected);
    GetParam().run(*expected);
    const Seen after(*expected);
    const auto attempt = [&](std::size_t k) {
        const auto manager = load();
        const Seen before(*manager);
        const bool hasSaid = runsShort(k, [&] { GetParam().run(*manager); });
        if (hasSaid) {
            const Seen left(*manager);
            EXPECT_EQ(left.text, before.text);
            EXPECT_EQ(left.isDirty, before.isDirty);
            EXPECT_EQ(left.cameras, before.cameras);
            EXPECT_EQ(left.names, before.names);
            EXPECT_EQ(left.count, before.count);
            GetParam().run(*manager);
        }
        const Seen done(*manager);
        EXPECT_EQ(done.text, after.text);
        EXPECT_EQ(done.names, after.names);
        EXPECT_EQ(done.count, after.count);
        return hasSaid;
    };
    attempt(1);
    report(GetParam().name, forEveryAllocation([&](std::size_t k) {
               const Balance balance(lossOfParser);
               return attempt(k);
           }));
}

INSTANTIATE_TEST_SUITE_P(Of, ShortageAtDevices, testing::ValuesIn(deviceOperations),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ShortageInAnUpgradeInMemory, LeavesTheDocument) {
    const std::string old = TemporaryFolder::readFile("examples/history/dome-1.500.skorra");
    const auto document = ConfigInfo::fromText(old, L"dome");
    const std::string before = outcomeText(*document);
    XMLConfig::upgradeDocument(*document);
    const std::string upgraded = outcomeText(*document);
    const auto attempt = [&](std::size_t k) {
        const auto one = ConfigInfo::fromText(old, L"dome");
        const bool hasSaid = runsShort(k, [&] { XMLConfig::upgradeDocument(*one); });
        EXPECT_EQ(outcomeText(*one) == (hasSaid ? before : upgraded), true);
        EXPECT_EQ(one->isDirty(), !hasSaid);
        if (hasSaid) XMLConfig::upgradeDocument(*one);
        EXPECT_EQ(outcomeText(*one) == upgraded, true);
        return hasSaid;
    };
    attempt(1);
    report("upgrade in memory", forEveryAllocation(
                                    [&](std::size_t k) {
                                        const Balance balance(lossOfParser);
                                        return attempt(k);
                                    },
                                    isEveryOneWanted() ? 1 : 997, 100));
}

TEST(ShortageInAnUpgrade, LeavesTheFile) {
    const TemporaryFolder folder;
    const std::string old = TemporaryFolder::readFile("examples/history/dome-1.500.skorra");
    XMLConfig::upgradeFile({folder.write(L"a.skorrax", old)});
    const std::string upgraded = folder.read(L"a.skorrax");
    const auto attempt = [&](std::size_t k) {
        const TemporaryFolder own;
        const std::wstring path = own.write(L"a.skorrax", old);
        const bool hasSaid = runsShort(k, [&] { XMLConfig::upgradeFile({path}); });
        EXPECT_EQ(own.read(L"a.skorrax"), hasSaid ? old : upgraded);
        EXPECT_EQ(own.entries(), hasSaid ? 1u : 2u) << "files";
        return hasSaid;
    };
    attempt(1);
    const Outcome outcome = forEveryAllocation(
        [&](std::size_t k) {
            const Balance balance(lossOfParser);
            return attempt(k);
        },
        isEveryOneWanted() ? 1 : 997, 100);
    report("upgrade", outcome);
}

int main(int argumentCount, char** arguments) {
    allocations::startXmlLibrary();
    XMLConfig::detail::setClock([] { return 1'800'000'000; });
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
