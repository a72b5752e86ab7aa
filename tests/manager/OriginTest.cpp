#include "manager/Origin.h"

#include <gtest/gtest.h>

#include "tests/support/TestDocument.h"

namespace {

using XMLConfig::effectiveValue;
using XMLConfig::Origin;
using XMLConfig::parseAddress;

const char* const xml =
    "<ConfigInfo><Version>9.000</Version>"
    "<Geometry><Box_Spacing>1.5</Box_Spacing><Fit_Order>4</Fit_Order></Geometry>"
    "<Projector ID=\"a\"><Gamma>2,2</Gamma></Projector>"
    "<Projector ID=\"b\"><Box_Spacing>2.0</Box_Spacing></Projector>"
    "<System><Is_Blb_Used>perhaps</Is_Blb_Used><Own>x</Own></System></ConfigInfo>";

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
