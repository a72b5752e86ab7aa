#include <gtest/gtest.h>

#include "manager/VirtualDevices.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/DeviceSections.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Thrown.h"

using XMLConfig::detail::applyVirtualDevices;

namespace {

constexpr const char* device =
    "<device UID=\"VELDAR***m\" name=\"P\" type=\"VELDAR\"><id>1</id><connection type=\"SERIAL\"><port>COM1"
    "</port><baud>9600</baud></connection><after/></device>";

std::string section(const std::string& name, const std::string& items) {
    return fileText("<" + name + " ID=\"1\">" + items + "</" + name + ">");
}

// The environment as a test wants it.
struct Hooks {
    Hooks(const std::string& projector, const std::string& camera)
        : projectorHook("UL_VIRTUAL_PROJECTOR", projector), cameraHook("UL_VIRTUAL_CAMERA", camera) {}
    EnvironmentVariable projectorHook;
    EnvironmentVariable cameraHook;
};

// The document's text after the hooks; the document must be of version 9.0.
std::string after(const std::string& xml, const std::string& projector, const std::string& camera) {
    const Hooks hooks(projector, camera);
    const TestDocument document(xml);
    applyVirtualDevices(*document);
    return document.text();
}

bool isLeftAlone(const std::string& xml, const std::string& projector, const std::string& camera) {
    return after(xml, projector, camera) == TestDocument(xml).text();
}

}  // namespace

TEST(VirtualProjectors, ConnectionRefersToADeviceFile) {
    const std::string text = after(
        section("Projector", "<Resolution_X>1920</Resolution_X><Resolution_Y>1200</Resolution_Y>" + deviceSnippet(device)),
        "config", "");
    EXPECT_NE(text.find("      <device UID=\"VELDAR***m\" name=\"P\" type=\"VELDAR\">\n"
                        "        <id>1</id>\n"
                        "        <connection type=\"VIRTUAL\">\n"
                        "          <file>VELDAR-1920x1200.device</file>\n"
                        "        </connection>\n"
                        "        <after/>\n"
                        "      </device>\n"),
              std::string::npos)
        << text;
}

TEST(VirtualProjectors, MissingResolutionCountsAsTheProjectorsDefault) {
    EXPECT_NE(after(section("Projector", deviceSnippet(device)), "config", "").find("<file>VELDAR-1400x1050.device</file>"),
              std::string::npos);
}

TEST(VirtualProjectors, MarkupInTheTypeStaysText) {
    const std::string xml =
        section("Projector", deviceSnippet("<device UID=\"a***b\" type=\"&lt;&amp;&quot;\"><connection/></device>"));
    EXPECT_NE(after(xml, "config", "").find("<file>&lt;&amp;\"-1400x1050.device</file>"), std::string::npos);
}

TEST(VirtualProjectors, WithoutATypeTheFileHasNoFamily) {
    const std::string xml = section("Projector", deviceSnippet("<device UID=\"a***b\"><connection/></device>"));
    EXPECT_NE(after(xml, "config", "").find("<file>-1400x1050.device</file>"), std::string::npos);
}

TEST(VirtualProjectors, WhatHoldsNoConnectionIsLeftAlone) {
    for (const std::string& items :
         {std::string(), std::string("<DeviceSnippet/>"), deviceSnippet("text"), deviceSnippet("a &lt; b"),
          deviceSnippet("  "), deviceSnippet("<device UID=\"VELDAR***m\"/>"),
          deviceSnippet("<device UID=\"no separator\"><id>1</id></device>"),
          deviceSnippet("<device UID=\"a***b\"><x><connection/></x></device>")})
        EXPECT_TRUE(isLeftAlone(section("Projector", items), "config", "")) << items;
}

TEST(VirtualProjectors, IdentifierWithoutSeparatorIsRefused) {
    const Hooks hooks("config", "");
    for (const char* attributes : {"UID=\"VELDAR**m\" type=\"VELDAR\"", "UID=\"\"", "type=\"VELDAR\""}) {
        const TestDocument document(
            section("Projector", deviceSnippet(std::string("<device ") + attributes + "><connection/></device>")));
        EXPECT_EQ(messageOf([&] { applyVirtualDevices(*document); }), L"Deive id incorrect");  // misspelt on purpose
    }
}

TEST(VirtualProjectors, RefusalLeavesTheLoad) {
    const Hooks hooks("config", "");
    const TemporaryFolder folder;
    const std::wstring path =
        folder.write(L"a.skorrax", section("Projector", deviceSnippet("<device UID=\"x\"><connection/></device>")));
    EXPECT_EQ(messageOf([&] { loadedManager(path); }), L"Deive id incorrect");  // misspelt on purpose
}

TEST(VirtualProjectors, EveryProjectorIsMadeVirtual) {
    const std::string one = deviceSnippet(device);
    const std::string text = after(
        fileText("<Projector ID=\"1\">" + one + "</Projector><Projector ID=\"2\">" + one + "</Projector>"), "config", "");
    const std::size_t first = text.find("type=\"VIRTUAL\"");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(text.find("type=\"VIRTUAL\"", first + 1), std::string::npos);
    EXPECT_EQ(text.find("SERIAL"), std::string::npos);
}

TEST(VirtualCameras, OnlyTheTypeChanges) {
    const std::string camera = "<device UID=\"PGR***m\" name=\"\" type=\"PGR\"><connection/><dhcp>true</dhcp></device>";
    const std::string expected = "<device UID=\"PGR***m\" name=\"\" type=\"VC\"><connection/><dhcp>true</dhcp></device>";
    EXPECT_EQ(after(section("Camera", deviceSnippet(camera)), "", "config"),
              TestDocument(section("Camera", deviceSnippet(expected))).text());
}

TEST(VirtualCameras, IdentifierNeedsNoSeparator) {
    const std::string xml = section("Camera", deviceSnippet("<device UID=\"x\" type=\"PGR\"/>"));
    EXPECT_NE(after(xml, "", "config").find("type=\"VC\""), std::string::npos);
}

TEST(VirtualCameras, SnippetWithoutBothAttributesIsLeftAlone) {
    for (const std::string& items :
         {std::string(), std::string("<DeviceSnippet/>"), deviceSnippet("text"), deviceSnippet("a &lt; b"),
          deviceSnippet("<device UID=\"PGR***m\"/>"), deviceSnippet("<device type=\"PGR\"/>")})
        EXPECT_TRUE(isLeftAlone(section("Camera", items), "", "config")) << items;
}

TEST(VirtualHooks, EachVariableConcernsItsOwnDevices) {
    const std::string projector = section("Projector", deviceSnippet(device));
    const std::string camera = section("Camera", deviceSnippet("<device UID=\"PGR***m\" type=\"PGR\"/>"));
    EXPECT_TRUE(isLeftAlone(projector, "", "config"));
    EXPECT_TRUE(isLeftAlone(camera, "config", ""));
    EXPECT_TRUE(isLeftAlone(camera, "", "fake"));
}

TEST(VirtualHooks, CaseDoesNotCountAndOtherValuesAskForNothing) {
    const std::string xml = section("Projector", deviceSnippet(device));
    EXPECT_FALSE(isLeftAlone(xml, "CoNfIg", ""));
    for (const std::string& value : {std::string("yes"), std::string("1"), std::string(" config"), std::string("config "),
                                     std::string(), "config" + std::string(300, 'g')})
        EXPECT_TRUE(isLeftAlone(xml, value, value)) << value;
}

TEST(VirtualHooks, WithoutVariablesNothingHappens) {
    const EnvironmentVariable projectorHook("UL_VIRTUAL_PROJECTOR");
    const EnvironmentVariable cameraHook("UL_VIRTUAL_CAMERA");
    const TestDocument document(section("Projector", deviceSnippet(device)));
    applyVirtualDevices(*document);
    EXPECT_FALSE(document->isDirty());
}

TEST(VirtualHooks, LoadRunsThemAfterTheUpgrade) {
    const Hooks hooks("config", "config");
    const TemporaryFolder folder;
    const std::wstring path = folder.write(
        L"old.skorrax", fileText("<Projector ID=\"1\"><Projector_MAC_Address>m</Projector_MAC_Address></Projector>"
                                 "<Camera ID=\"1\"><CameraType>0</CameraType></Camera>",
                                 "2.000"));
    const auto manager = loadedManager(path);
    const TemporaryFolder copy;
    manager->copyConfiguration(copy.file(L"copy.skorrax"));
    const std::string text = copy.read(L"copy.skorrax");
    EXPECT_NE(text.find("<connection type=\"VIRTUAL\">"), std::string::npos);
    EXPECT_NE(text.find("<device UID=\"PGR***\" name=\"\" password=\"\" type=\"VC\""), std::string::npos);
}
