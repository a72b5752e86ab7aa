#include "store/XmlFragment.h"

#include <gtest/gtest.h>

#include "store/CorvaneException.h"
#include "tests/support/Thrown.h"

using XMLConfig::detail::XmlFragment;

TEST(XmlFragment, AttributesAreGivenWhereTheyAre) {
    const XmlFragment device(L"<device UID=\"A&amp;B***1\" type=\"\"/>");
    EXPECT_EQ(device.element().attribute(L"UID"), L"A&B***1");
    EXPECT_EQ(device.element().attribute(L"type"), L"");
    EXPECT_FALSE(device.element().attribute(L"uid").has_value());
}

TEST(XmlFragment, SetAttributeChangesAndAdds) {
    XmlFragment device(L"<device type=\"PGR\"><id>1</id></device>");
    device.setAttribute(L"type", L"V\"C");
    device.setAttribute(L"added", L"\u65e5");
    EXPECT_EQ(XmlFragment(device.text()).element().attribute(L"type"), L"V\"C");
    EXPECT_EQ(XmlFragment(device.text()).element().attribute(L"added"), L"\u65e5");
    EXPECT_TRUE(device.element().child(L"id"));
}

TEST(XmlFragment, OnlyDirectChildrenCount) {
    const XmlFragment device(L"<device><a><connection/></a></device>");
    EXPECT_TRUE(device.element().child(L"a"));
    EXPECT_FALSE(device.element().child(L"connection"));
    EXPECT_FALSE(device.element().child(L"device"));
}

TEST(XmlFragment, FirstChildOfThatNameIsReplacedInItsPlace) {
    XmlFragment device(L"<device>x<c n=\"1\">old</c>y<c n=\"2\"/></device>");
    EXPECT_TRUE(device.replaceChild(L"c", L"<d><e>new</e></d>"));
    EXPECT_EQ(device.text(), L"<device>x<d><e>new</e></d>y<c n=\"2\"/></device>");
}

TEST(XmlFragment, ReplacingWhatIsNotThereChangesNothing) {
    XmlFragment device(L"<device><id>1</id></device>");
    const std::wstring before = device.text();
    EXPECT_FALSE(device.replaceChild(L"connection", L"<connection/>"));
    EXPECT_EQ(device.text(), before);
}

TEST(XmlFragment, RefusedReplacementChangesNothing) {
    XmlFragment device(L"<device><id>1</id></device>");
    const std::wstring before = device.text();
    EXPECT_THROW(device.replaceChild(L"id", L"<a></b>"), CorvaneException);
    EXPECT_EQ(device.text(), before);
}

TEST(XmlFragment, WhatIsNoElementIsRefusedWithItsPlace) {
    for (const wchar_t* text : {L"", L"text", L"<a>", L"<a/><b/>", L"<a></b>", L"<!DOCTYPE a []><a/>"}) {
        const std::wstring message = messageOf([&] { const XmlFragment fragment(text); });
        EXPECT_EQ(message.rfind(L"Error XmlFragment:  XML message is: line 1, column ", 0), 0u) << message.size();
    }
}

TEST(XmlFragment, IllegalAttributeNameIsRefused) {
    XmlFragment device(L"<device/>");
    const std::wstring message = messageOf([&] { device.setAttribute(L"a b", L"x"); });
    EXPECT_EQ(message.rfind(L"Error XmlFragment: ", 0), 0u);
}
