#include "manager/Origin.h"

#include <gtest/gtest.h>

#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/SystemConfig.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TestDocument.h"

namespace {

using XMLConfig::effectiveValue;
using XMLConfig::Origin;
using XMLConfig::parseAddress;

const std::string xml = currentFile(
    "<Geometry><Box_Spacing>1.5</Box_Spacing><Fit_Order>4</Fit_Order></Geometry>"
    "<Projector ID=\"a\"><Gamma>2,2</Gamma></Projector>"
    "<Projector ID=\"b\"><Box_Spacing>2.0</Box_Spacing></Projector>"
    "<System><Is_Blb_Used>perhaps</Is_Blb_Used><Own>x</Own></System>");

TEST(Origin, StoredValueComesFromItsPlace) {
    const TestDocument document(xml);
    const auto value = effectiveValue(*document, parseAddress(L"Projector[b]/Box_Spacing"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->origin, Origin::Stored);
    EXPECT_EQ(addressText(value->from), L"Projector[b]/Box_Spacing");
    EXPECT_EQ(value->stored, L"2.0");
    EXPECT_EQ(value->text, L"2.000000000000000e+00");
    EXPECT_EQ(value->element.name(), L"Box_Spacing");
}

TEST(Origin, MissingValueIsInherited) {
    const TestDocument document(xml);
    const auto value = effectiveValue(*document, parseAddress(L"Projector[a]/Box_Spacing"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->origin, Origin::Inherited);
    EXPECT_EQ(addressText(value->from), L"Geometry/Box_Spacing");
    EXPECT_EQ(value->text, L"1.500000000000000e+00");
}

TEST(Origin, ValueInNoFileIsTheDefault) {
    const TestDocument document(xml);
    const auto value = effectiveValue(*document, parseAddress(L"Projector[a]/Pellinor_Warp_Latency"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->origin, Origin::Default);
    EXPECT_EQ(value->text, L"0");
    EXPECT_FALSE(value->element);
}

TEST(Origin, NumberIsReadAsFarAsItGoes) {
    const TestDocument document(xml);
    const auto value = effectiveValue(*document, parseAddress(L"Projector[a]/Gamma"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->stored, L"2,2");
    EXPECT_EQ(value->text, L"2.000000000000000e+00");
}

TEST(Origin, WordThatIsNoTruthValueCountsAsMissing) {
    const TestDocument document(xml);
    const auto value = effectiveValue(*document, parseAddress(L"System/Is_Blb_Used"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->origin, Origin::Default);
}

std::wstring readAt(const TestDocument& document, const wchar_t* address) {
    return effectiveValue(*document, parseAddress(address)).value().text;
}

TEST(Origin, WordOrNumberThatIsNotListedIsReadAsTheAccessorReadsIt) {
    TestDocument document(
        currentFile("<Geometry><Fit_Solver>3</Fit_Solver></Geometry>"
                    "<Projector ID=\"a\"><Lamp_Mode>dual</Lamp_Mode></Projector><System><RunType>Own</RunType>"
                    "<Marker_Location_Method>foo</Marker_Location_Method><Cinema><Frame>scope</Frame></Cinema></System>"));
    EXPECT_EQ(readAt(document, L"Geometry/Fit_Solver"),
              std::to_wstring(static_cast<int>(GeometryConfig(&*document, L"").getFitSolver())));
    EXPECT_EQ(readAt(document, L"Geometry/Fit_Solver"), L"2");
    EXPECT_EQ(readAt(document, L"Projector[a]/Lamp_Mode"), ProjectorConfig(&*document, L"a").getLampMode());
    EXPECT_EQ(readAt(document, L"Projector[a]/Lamp_Mode"), L"");
    const SystemConfig system(&*document, nullptr, L"");
    EXPECT_EQ(system.getMarkerLocationMethod(), SystemConfig::MarkerLocationManual);
    EXPECT_EQ(readAt(document, L"System/Marker_Location_Method"), L"manual");
    EXPECT_EQ(readAt(document, L"System/RunType"), RunTypeToString(system.getRunType()));
    EXPECT_EQ(readAt(document, L"System/Cinema/Frame"), Cinema::FrameToString(system.getCinemaFrameType()));
    EXPECT_EQ(effectiveValue(*document, parseAddress(L"Geometry/Fit_Solver"))->stored, L"3");
}

TEST(Origin, ListedWordOrNumberIsReadAsItStands) {
    const TestDocument document(
        currentFile("<Geometry><Fit_Solver>5</Fit_Solver></Geometry>"
                    "<Projector ID=\"a\"><Lamp_Mode>Dual</Lamp_Mode></Projector>"));
    EXPECT_EQ(readAt(document, L"Geometry/Fit_Solver"), L"5");
    EXPECT_EQ(readAt(document, L"Projector[a]/Lamp_Mode"), L"Dual");
}

TEST(Origin, UnknownItemIsReadAsItStands) {
    const TestDocument document(xml);
    EXPECT_EQ(effectiveValue(*document, parseAddress(L"System/Own"))->text, L"x");
    EXPECT_FALSE(effectiveValue(*document, parseAddress(L"System/Other")));
}

TEST(Origin, ElementsAreNoValue) {
    const TestDocument document(xml);
    EXPECT_FALSE(effectiveValue(*document, parseAddress(L"Projector[a]")));
    EXPECT_FALSE(effectiveValue(*document, parseAddress(L"System")));
}

TEST(Origin, PointWithAMissingNumberCountsAsMissing) {
    EXPECT_FALSE(XMLConfig::textAsRead(L"1, 2", XMLConfig::SettingType::Point3));
    EXPECT_EQ(XMLConfig::textAsRead(L"1 2", XMLConfig::SettingType::IntPoint2), L"1, 2");
    EXPECT_EQ(XMLConfig::textAsRead(L"YES", XMLConfig::SettingType::Bool), L"true");
}

TEST(Origin, HasNames) {
    EXPECT_STREQ(nameOf(Origin::Stored), L"stored");
    EXPECT_STREQ(nameOf(Origin::Inherited), L"inherited");
    EXPECT_STREQ(nameOf(Origin::Default), L"default");
}

}  // namespace
