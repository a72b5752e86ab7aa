#include "manager/upgrade/StepDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/upgrade/StepTools.h"
#include "store/ChangeObserver.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/TestDocument.h"

using testing::ElementsAre;
using testing::HasSubstr;
using XMLConfig::detail::camerasOf;
using XMLConfig::detail::Change;
using XMLConfig::detail::projectorsOf;
using XMLConfig::detail::StepDocument;
using XMLConfig::detail::StepSection;

namespace {

std::string projector(const std::string& id, const std::string& items = "") {
    return "<Projector ID=\"" + id + "\">" + items + "</Projector>";
}

/// Keeps what it is told: "<section>[<ID>]/<key>: <old text> -> <new text>".
class Listener : public XMLConfig::detail::ChangeObserver {
public:
    explicit Listener(ConfigInfo& document) : m_document(document) { setChangeObserver(document, this); }
    ~Listener() override { XMLConfig::detail::setChangeObserver(m_document, nullptr); }
    void changed(Change&& change) override {
        told.push_back(change.section + L"[" + change.sectionID + L"]/" + change.key + L": " + change.oldValue + L" -> " +
                       change.newValue);
    }
    std::vector<std::wstring> told;

private:
    ConfigInfo& m_document;
};

}  // namespace

TEST(StepDocument, ItemOfADeviceReachesTheTreeWhenItIsWritten) {
    const TestDocument document(fileText(projector("1", "<Name>n</Name>")));
    StepDocument converted(*document);
    projectorsOf(converted)[0].setInteger(L"Portrait_Mode", 1);
    EXPECT_EQ(document.item(L"Projector", L"Portrait_Mode", L"1"), L"(none)");
    converted.write();
    EXPECT_THAT(document.text(), HasSubstr("<Name>n</Name>\n    <Portrait_Mode>1</Portrait_Mode>\n  </Projector>"));
    EXPECT_TRUE(document->isDirty());
}

TEST(StepDocument, ItemThatIsTakenAwayAgainIsToldAndNeverWritten) {
    const TestDocument document(fileText(projector("1")));
    const std::string before = document.text();
    const Listener listener(*document);
    StepDocument converted(*document);
    projectorsOf(converted)[0].setText(L"Lamp", L"a");
    projectorsOf(converted)[0].setText(L"Lamp", L"a");
    projectorsOf(converted)[0].setText(L"Lamp", L"b");
    projectorsOf(converted)[0].removeItem(L"Lamp");
    converted.write();
    EXPECT_THAT(listener.told,
                ElementsAre(L"Projector[1]/Lamp:  -> a", L"Projector[1]/Lamp: a -> b", L"Projector[1]/Lamp: b -> "));
    EXPECT_EQ(document.text(), before);
}

TEST(StepDocument, WhatIsWrittenLaterIsToldOnce) {
    const TestDocument document(fileText(projector("1")));
    const Listener listener(*document);
    StepDocument converted(*document);
    projectorsOf(converted)[0].setText(L"Lamp", L"a");
    converted.write();
    EXPECT_THAT(listener.told, ElementsAre(L"Projector[1]/Lamp:  -> a"));
    document->setStringItem(L"Projector", L"Lamp", L"b", L"1", {}, {});
    EXPECT_EQ(listener.told.size(), 2u);
}

TEST(StepDocument, ItemsStandInTheOrderInWhichTheyWereGiven) {
    const TestDocument document(fileText(projector("1")));
    StepDocument converted(*document);
    StepSection section = projectorsOf(converted)[0];
    section.setText(L"A", L"1");
    section.setText(L"B|C", L"2");
    section.setText(L"D", L"3");
    section.setElement(L"E", {L"device", {}, {}, {}});
    section.setText(L"F", L"4");
    section.setText(L"A", L"5");
    converted.write();
    EXPECT_THAT(document.text(), HasSubstr("<A>5</A>\n    <B>\n      <C>2</C>\n    </B>\n    <D>3</D>\n    <E>\n      "
                                           "<device/>\n    </E>\n    <F>4</F>\n  </Projector>"));
}

TEST(StepDocument, ItemThatIsThereIsChangedWhereItStands) {
    const TestDocument document(fileText(projector("1", "<Lamp>a</Lamp><Name>n</Name>")));
    StepDocument converted(*document);
    projectorsOf(converted)[0].setText(L"Lamp", L"b");
    EXPECT_THAT(document.text(), HasSubstr("<Lamp>b</Lamp>\n    <Name>n</Name>"));
}

TEST(StepDocument, ReadingSeesWhatWaits) {
    const TestDocument document(fileText(projector("1")));
    StepDocument converted(*document);
    StepSection section = projectorsOf(converted)[0];
    section.setInteger(L"Integer", 7);
    section.setNumber(L"Number", 2.5);
    section.setFlag(L"Flag", true);
    section.setText(L"Text", L"a b");
    EXPECT_TRUE(section.has(L"Integer"));
    EXPECT_EQ(section.integer(L"Integer", 0), 7);
    EXPECT_EQ(section.number(L"Number", 0.0), 2.5);
    EXPECT_TRUE(section.flag(L"Flag", false));
    EXPECT_TRUE(section.flag(L"Text", true));
    EXPECT_EQ(section.text(L"Text"), L"a b");
    EXPECT_EQ(section.element(L"Text"), L"a b");
    EXPECT_EQ(document.item(L"Projector", L"Text", L"1"), L"(none)");
    section.setPoint(L"Point", Point_2Dim<int>(3, 4));
    EXPECT_EQ(section.point(L"Point", {}), Point_2Dim<int>(3, 4));
}

TEST(StepDocument, DevicesOfOneIDAreTheFirstOfThem) {
    const TestDocument document(fileText(projector("1") + projector("1") + projector("2")));
    StepDocument converted(*document);
    ASSERT_EQ(projectorsOf(converted).size(), 3u);
    projectorsOf(converted)[1].setText(L"Lamp", L"a");
    EXPECT_EQ(document.item(L"Projector", L"Lamp", L"1"), L"a");
    projectorsOf(converted)[0].removeItem(L"Lamp");
    EXPECT_EQ(document.item(L"Projector", L"Lamp", L"1"), L"(none)");
}

TEST(StepDocument, DeviceThatGetsTheIDOfAnotherIsTheFirstOfThem) {
    const TestDocument document(fileText(projector("1") + projector("2")));
    StepDocument converted(*document);
    projectorsOf(converted)[0].setText(L"Lamp", L"a");
    projectorsOf(converted)[1].setText(L"Lamp", L"b");
    projectorsOf(converted)[1].rename(L"1");
    projectorsOf(converted)[1].setText(L"Lamp", L"c");
    projectorsOf(converted)[1].setText(L"Mode", L"d");
    converted.write();
    EXPECT_THAT(document.text(), HasSubstr("<Projector ID=\"1\">\n    <Lamp>c</Lamp>\n    <Mode>d</Mode>\n  "
                                           "</Projector>\n  <Projector ID=\"1\">\n    <Lamp>b</Lamp>\n  </Projector>"));
}

TEST(StepDocument, WhatWaitsGoesWithTheDevice) {
    const TestDocument document(fileText("<Camera ID=\"1\"/><Camera ID=\"2\"/>"));
    StepDocument converted(*document);
    for (StepSection& camera : camerasOf(converted)) camera.setText(L"Model", L"m");
    camerasOf(converted)[0].rename(L"3");
    camerasOf(converted)[1].remove();
    ASSERT_EQ(camerasOf(converted).size(), 1u);
    EXPECT_EQ(camerasOf(converted)[0].id(), L"3");
    converted.write();
    EXPECT_EQ(document->getSectionIDs(L"Camera"), std::vector<std::wstring>{L"3"});
    EXPECT_EQ(document.item(L"Camera", L"Model", L"3"), L"m");
}

TEST(StepDocument, TextThatXmlCannotHoldIsRefusedAtOnce) {
    const TestDocument document(fileText(projector("1")));
    StepDocument converted(*document);
    StepSection section = projectorsOf(converted)[0];
    EXPECT_THROW(section.setText(L"Lamp", L"\x01"), CorvaneException);
    EXPECT_FALSE(section.has(L"Lamp"));
}
