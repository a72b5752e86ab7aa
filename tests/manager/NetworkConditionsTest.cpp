#include <gtest/gtest.h>

#include "tests/support/DeviceSections.h"
#include "tests/support/FoundBy.h"

// The rules on addresses, ports and black boxes, just inside and just outside of their conditions.

namespace {

Lines ofBoxes(const std::string& cameras, const std::string& lights) {
    return foundBy(L"XC706", "<System><Black_Box_Cameras_Comm>" + cameras +
                                 "</Black_Box_Cameras_Comm><Black_Box_LED_Lights_Comm>" + lights +
                                 "</Black_Box_LED_Lights_Comm></System>");
}

std::string connected(const std::string& id, const std::string& type, const std::string& inside) {
    return projector(id, snippet("<connection type='" + type + "'>" + inside + "</connection>"));
}

std::string at(const std::string& address) { return snippet("<ipAddress>" + address + "</ipAddress>"); }
/// A camera of one network.
std::string networked(const std::string& id, const std::string& address, const std::string& mask,
                      const std::string& gateway) {
    return camera(id, snippet("<ipAddress>" + address + "</ipAddress><subnetMask>" + mask + "</subnetMask><defaultGateway>" +
                              gateway + "</defaultGateway>"));
}

TEST(NetworkConditions, BlackBoxesShareAPortOfOneBoxOnly) {
    const Lines shared = {L"System/Black_Box_LED_Lights_Comm: is at power port 1 of the box, as the cameras are"};
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "true,serial,COM1,9600,1"), shared);
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "true,Serial,com1,19200,1"), shared) << "a line has one speed";
    EXPECT_EQ(ofBoxes("true,tcp,10.0.0.1,4001,1", "true,tcp,10.0.0.1,4001,1"), shared);
    EXPECT_EQ(ofBoxes("true,tcp,10.0.0.1,4001,1", "true,tcp,10.0.0.1,4002,1"), Lines());
    EXPECT_EQ(ofBoxes("true,tcp,10.0.0.1,4001,1", "true,tcp,10.0.0.2,4001,1"), Lines());
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "true,serial,COM2,9600,1"), Lines());
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "true,tcp,COM1,9600,1"), Lines());
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "true,serial,COM1,9600,2"), Lines());
    EXPECT_EQ(ofBoxes("false,serial,COM1,9600,1", "true,serial,COM1,9600,1"), Lines());
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", "false,serial,COM1,9600,1"), Lines());
    EXPECT_EQ(ofBoxes("", "true,serial,COM1,9600,1"), Lines());
    EXPECT_EQ(ofBoxes("true,serial,COM1,9600,1", ""), Lines());
}

TEST(NetworkConditions, PowerPortsGoFromOneToThoseThatThereAre) {
    const auto ported = [](const std::string& port) { return ofBoxes("true,serial,COM1,9600," + port, "").size(); };
    EXPECT_EQ(ported("1"), 0U);
    EXPECT_EQ(ported("2"), 0U);
    EXPECT_EQ(ported("0"), 1U);
    EXPECT_EQ(ported("3"), 1U);
}

TEST(NetworkConditions, ABlackBoxThatIsOffUsesNoLine) {
    const std::string meter =
        "<Color><Colorimeter_Type>1</Colorimeter_Type><AdvColor_ComPort>COM1</AdvColor_ComPort></Color>";
    const auto box = [&](const std::string& text) {
        return foundBy(L"XC702", meter + "<System><Black_Box_Cameras_Comm>" + text + "</Black_Box_Cameras_Comm></System>");
    };
    EXPECT_EQ(box("true,serial,COM1,9600,1"),
              (Lines{L"System/Black_Box_Cameras_Comm: COM1 is used by the colorimeter and a black box"}));
    EXPECT_EQ(box("false,serial,COM1,9600,1"), Lines());
    EXPECT_EQ(box("true,tcp,COM1,9600,1"), Lines());
    EXPECT_EQ(foundBy(L"XC702",
                      "<System><Black_Box_Cameras_Comm>true,serial,COM1,9600,1</Black_Box_Cameras_Comm>"
                      "<Black_Box_LED_Lights_Comm>true,serial,COM1,9600,2</Black_Box_LED_Lights_Comm></System>"),
              Lines())
        << "one controller may serve as both";
}

TEST(NetworkConditions, AColorimeterThatThereIsNotUsesNoLine) {
    const auto meter = [](const std::string& type) {
        return foundBy(L"XC702", "<Color><Colorimeter_Type>" + type +
                                     "</Colorimeter_Type><AdvColor_ComPort>COM1</AdvColor_ComPort></Color>" +
                                     connected("1", "serial", "<port>COM1</port>"))
            .size();
    };
    EXPECT_EQ(meter("0"), 0U);
    EXPECT_EQ(meter("1"), 1U);
}

TEST(NetworkConditions, AConnectionHasAnAddressAndAPort) {
    const auto lacking = [](const std::string& type, const std::string& inside) {
        return foundBy(L"XC707", connected("1", type, inside));
    };
    const std::wstring place = L"Projector[1]/DeviceSnippet: ";
    EXPECT_EQ(lacking("tcp", "<address>10.0.0.1</address><port>4001</port>"), Lines());
    EXPECT_EQ(lacking("tcp", "<port>4001</port>"), (Lines{place + L"has no address"}));
    EXPECT_EQ(lacking("tcp", "<address>10.0.0.1</address>"), (Lines{place + L"has no port"}));
    EXPECT_EQ(lacking("SERIAL", "<port>COM1</port>"), Lines());
    EXPECT_EQ(lacking("serial", ""), (Lines{place + L"has no port"}));
    EXPECT_EQ(lacking("Virtual", ""), Lines());
    EXPECT_EQ(foundBy(L"XC707", projector("1", snippet(""))), (Lines{place + L"has no connection yet"}));
    EXPECT_EQ(foundBy(L"XC707", projector("1", "")), Lines()) << "has a rule of its own";
}

TEST(NetworkConditions, ASerialLineHasNoAddress) {
    const std::string inside = "<address>10.0.0.1</address><port>COM1</port>";
    EXPECT_EQ(foundBy(L"XC701", connected("1", "serial", inside) + camera("2", at("10.0.0.1"))), Lines());
    EXPECT_EQ(foundBy(L"XC701", connected("1", "tcp", inside) + camera("2", at("10.0.0.1"))),
              (Lines{L"Camera[2]/DeviceSnippet: 10.0.0.1 is used by \"1\" and \"2\""}));
}

TEST(NetworkConditions, ProjectorsAreToldApartByTheirPortsOrIDs) {
    const auto onTheNet = [](const std::string& id, const std::string& port) {
        return connected(id, "tcp", "<address>10.0.0.1</address><port>" + port + "</port>");
    };
    EXPECT_EQ(foundBy(L"XC701", onTheNet("1", "4001") + onTheNet("2", "4002")), Lines());
    EXPECT_EQ(foundBy(L"XC701", onTheNet("1", "4001") + onTheNet("2", "4001")).size(), 1U);
    EXPECT_EQ(foundBy(L"XC701",
                      onTheNet("1", "4001") + onTheNet("2", "4002") + onTheNet("3", "4001") + camera("4", at("10.0.0.1"))),
              (Lines{L"Projector[3]/DeviceSnippet: 10.0.0.1 is used by \"1\" and \"3\"",
                     L"Camera[4]/DeviceSnippet: 10.0.0.1 is used by \"1\" and \"4\""}));
    const auto onALine = [](const std::string& section, const std::string& id) {
        return projector(section, snippet("<id>" + id + "</id><connection type='serial'><port>COM1</port></connection>"));
    };
    EXPECT_EQ(foundBy(L"XC702", onALine("1", "1") + onALine("2", "2")), Lines());
    EXPECT_EQ(foundBy(L"XC702", onALine("1", "1") + onALine("2", "1")).size(), 1U);
}

TEST(NetworkConditions, ACameraCanBeReached) {
    const auto unreachable = [](const std::string& inside) { return foundBy(L"XC705", camera("1", snippet(inside))); };
    const Lines none = {L"Camera[1]/DeviceSnippet: has no DHCP and no address"};
    EXPECT_EQ(unreachable("<dhcp>False</dhcp><ipAddress/>"), none);
    EXPECT_EQ(unreachable("<dhcp>true</dhcp><ipAddress/>"), Lines());
    EXPECT_EQ(unreachable("<dhcp>false</dhcp><ipAddress>10.0.0.1</ipAddress>"), Lines());
    EXPECT_EQ(unreachable(""), Lines());
    EXPECT_EQ(foundBy(L"XC705", camera("1", "")), Lines());
}

TEST(NetworkConditions, AGatewayIsInTheNetworkOfItsCamera) {
    const auto gateway = [](const std::string& address, const std::string& mask) {
        return foundBy(L"XC705", networked("1", "10.1.0.7", mask, address)).size();
    };
    EXPECT_EQ(gateway("10.1.0.1", "255.255.255.0"), 0U);
    EXPECT_EQ(gateway("10.1.1.1", "255.255.255.0"), 1U);
    EXPECT_EQ(gateway("10.1.1.1", "255.255.0.0"), 0U);
    EXPECT_EQ(gateway("0.0.0.0", "255.255.255.0"), 0U) << "means none";
    EXPECT_EQ(gateway("", "255.255.255.0"), 0U);
    EXPECT_EQ(gateway("10.1.1.1", ""), 0U);
}

TEST(NetworkConditions, DevicesAreInOneOfTheCamerasNetworks) {
    const std::string cameras =
        networked("1", "10.1.0.7", "255.255.255.0", "") + networked("2", "10.2.3.7", "255.255.0.0", "");
    const auto outside = [&](const std::string& address) {
        return foundBy(L"XC704", cameras + connected("3", "tcp", "<address>" + address + "</address><port>1</port>")).size();
    };
    EXPECT_EQ(outside("10.1.0.200"), 0U);
    EXPECT_EQ(outside("10.2.200.7"), 0U);
    EXPECT_EQ(outside("10.1.1.7"), 1U);
    EXPECT_EQ(outside("10.3.0.7"), 1U);
    EXPECT_EQ(outside("hall"), 0U) << "has a rule of its own";
    EXPECT_EQ(foundBy(L"XC704", connected("3", "tcp", "<address>10.3.0.7</address><port>1</port>")), Lines());
    EXPECT_EQ(foundBy(L"XC704", cameras + camera("4", at("10.3.0.7"))), Lines()) << "a camera has a network of its own";
    EXPECT_EQ(foundBy(L"XC704", cameras + "<System><ACT_Address_0>10.3.0.7</ACT_Address_0></System>"),
              (Lines{L"System/ACT_Address_0: 10.3.0.7 is in none of the cameras' networks"}));
}

}  // namespace
