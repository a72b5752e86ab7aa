#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sections/SystemConfig.h"
#include "store/ConfigInfo.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/StoredItems.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::leavesOf;
using XMLConfig::tests::StoredItems;
using Ports = std::vector<std::int32_t>;
using Strings = std::vector<std::wstring>;

/// All fields in one line, so that a failure shows them all.
std::wstring shown(const BlackBoxInfo& info) {
    std::wstring text = info.toString();
    for (const std::int32_t port : info.getOtherPowerPorts()) text += L" " + std::to_wstring(port);
    return text;
}

const wchar_t* const defaultShown =
    L"BlackBoxInfo[ enabled='false';  protocol='';  commAddress='';  commPort='0';  powerPort=-1 ]";

class BlackBoxTest : public testing::Test {
protected:
    BlackBoxInfo readText(const std::wstring& text) {
        texts.put(key, text);
        return system.getBlackBoxCamerasComm();
    }

    const std::wstring key = L"Black_Box_Cameras_Comm";
    ConfigInfo document;
    StoredItems texts{document, L"System"};
    SystemConfig system{&document, nullptr, L""};
};

}  // namespace

TEST(BlackBoxInfo, NewOneHasTheDefaults) {
    const BlackBoxInfo info;
    EXPECT_FALSE(info.getEnabled());
    EXPECT_EQ(info.getProtocol(), L"");
    EXPECT_EQ(info.getCommAddress(), L"");
    EXPECT_EQ(info.getCommPort(), 0);
    EXPECT_EQ(info.getPowerPort(), -1);
    EXPECT_TRUE(info.getOtherPowerPorts().empty());
}

TEST(BlackBoxInfo, SettersAndCopiesCarryAllSixFields) {
    BlackBoxInfo info;
    info.setEnabled(true);
    info.setProtocol(L"tcp");
    info.setCommAddress(L"10.0.0.5");
    info.setCommPort(5000);
    info.setPowerPort(2);
    Ports ports{7, 8};
    info.setOtherPowerPorts(ports);
    EXPECT_EQ(ports, (Ports{7, 8}));
    const BlackBoxInfo copy(info);
    BlackBoxInfo assigned(false, L"x", L"y", 1, 1);
    assigned = info;
    for (const BlackBoxInfo& same : {info, copy, assigned}) {
        EXPECT_TRUE(same.getEnabled());
        EXPECT_EQ(same.getProtocol(), L"tcp");
        EXPECT_EQ(same.getCommAddress(), L"10.0.0.5");
        EXPECT_EQ(same.getCommPort(), 5000);
        EXPECT_EQ(same.getPowerPort(), 2);
        EXPECT_EQ(same.getOtherPowerPorts(), (Ports{7, 8}));
    }
}

TEST(BlackBoxInfo, ToStringShowsAllButTheOtherPorts) {
    BlackBoxInfo info(true, L"serial", L"COM3", 9600, 1);
    Ports ports{2, 3};
    info.setOtherPowerPorts(ports);
    EXPECT_EQ(info.toString(),
              L"BlackBoxInfo[ enabled='true';  protocol='serial';  commAddress='COM3';  commPort='9600';  powerPort=1 ]");
    EXPECT_EQ(BlackBoxInfo().toString(), defaultShown);
}

TEST_F(BlackBoxTest, MissingItemReadsAsDefaultAndCreatesNothing) {
    const Strings before = leavesOf(document);
    EXPECT_EQ(shown(system.getBlackBoxCamerasComm()), defaultShown);
    EXPECT_EQ(shown(system.getBlackBoxLEDLightsComm()), defaultShown);
    EXPECT_EQ(leavesOf(document), before);
    EXPECT_FALSE(document.isDirty());
}

TEST_F(BlackBoxTest, EachSetterWritesItsOwnItem) {
    system.setBlackBoxCamerasComm(BlackBoxInfo(true, L"serial", L"COM3", 9600, 1));
    system.setBlackBoxLEDLightsComm(BlackBoxInfo(false, L"", L"", 0, -1));
    EXPECT_EQ(itemsOf(document, L"System"), (Strings{L"Black_Box_Cameras_Comm = true, serial, COM3, 9600, 1",
                                                     L"Black_Box_LED_Lights_Comm = false, , , 0, -1"}));
    EXPECT_EQ(shown(system.getBlackBoxCamerasComm()),
              L"BlackBoxInfo[ enabled='true';  protocol='serial';  commAddress='COM3';  commPort='9600';  powerPort=1 ]");
    EXPECT_EQ(shown(system.getBlackBoxLEDLightsComm()), defaultShown);
}

TEST_F(BlackBoxTest, TextIsReadPieceByPiece) {
    EXPECT_EQ(
        shown(readText(L"true, ser ial , 10.0.0.5, 5000, 2")),
        L"BlackBoxInfo[ enabled='true';  protocol='serial';  commAddress='10.0.0.5';  commPort='5000';  powerPort=2 ]");
    EXPECT_EQ(shown(readText(L"TRUE,a,b,1,2,3,4")),
              L"BlackBoxInfo[ enabled='true';  protocol='a';  commAddress='b';  commPort='1';  powerPort=2 ] 3 4");
    EXPECT_EQ(
        shown(readText(L"true, serial, COM3, 9600, 1, 2, 3")),
        L"BlackBoxInfo[ enabled='true';  protocol='serial';  commAddress='COM3';  commPort='9600';  powerPort=1 ] 2 3");
}

TEST_F(BlackBoxTest, EnabledIsTheExactWordInAnyCase) {
    for (const wchar_t* word : {L"true", L"True", L"tRUE"})
        EXPECT_TRUE(readText(word + std::wstring(L",a,b,1,2")).getEnabled());
    for (const wchar_t* word : {L" true", L"true ", L"1", L"yes", L"tru\u0113"})
        EXPECT_FALSE(readText(word + std::wstring(L",a,b,1,2")).getEnabled());
}

TEST_F(BlackBoxTest, FewerThanFivePiecesReadAsDefault) {
    for (const wchar_t* text : {L"", L"true", L"true, a, b, 1", L",,,,", L"true,,b,1,2", L"true a b 1 2"})
        EXPECT_EQ(shown(readText(text)), defaultShown);
}

TEST_F(BlackBoxTest, OnlyPiecesWithoutACharacterAreDropped) {
    EXPECT_EQ(shown(readText(L",true,,a,b,1,2,,3,")),
              L"BlackBoxInfo[ enabled='true';  protocol='a';  commAddress='b';  commPort='1';  powerPort=2 ] 3");
    EXPECT_EQ(shown(readText(L"true, , , , ")),
              L"BlackBoxInfo[ enabled='true';  protocol='';  commAddress='';  commPort='0';  powerPort=0 ]");
}

TEST_F(BlackBoxTest, MalformedNumbersReadZero) {
    EXPECT_EQ(
        shown(readText(L"true,a,b,x,-3y,0x10, 7 8,99999999999")),
        L"BlackBoxInfo[ enabled='true';  protocol='a';  commAddress='b';  commPort='0';  powerPort=-3 ] 0 7 2147483647");
}

TEST_F(BlackBoxTest, OnlySpacesAreTakenOutOfTexts) {
    EXPECT_EQ(readText(L"true,\ta\u00a0b ,  c d,1,2").getProtocol(), L"\ta\u00a0b");
    EXPECT_EQ(system.getBlackBoxCamerasComm().getCommAddress(), L"cd");
}

TEST_F(BlackBoxTest, SetterKeepsTheOtherPortsOfTheDocument) {
    texts.put(key, L"true, a, b, 1, 2, 30, 40");
    BlackBoxInfo info(false, L"tcp", L"10.0.0.9", 23, 5);
    Ports ports{9};
    info.setOtherPowerPorts(ports);
    system.setBlackBoxCamerasComm(info);
    EXPECT_EQ(texts.text(key), L"false, tcp, 10.0.0.9, 23, 5, 30, 40");
    EXPECT_EQ(info.getOtherPowerPorts(), (Ports{9}));
    system.setBlackBoxLEDLightsComm(info);
    EXPECT_EQ(texts.text(L"Black_Box_LED_Lights_Comm"), L"false, tcp, 10.0.0.9, 23, 5");
}

TEST_F(BlackBoxTest, SetterDropsThePortsOfAMalformedText) {
    texts.put(key, L"1, 2, 3, 4");
    system.setBlackBoxCamerasComm(BlackBoxInfo());
    EXPECT_EQ(texts.text(key), L"false, , , 0, -1");
}

TEST_F(BlackBoxTest, HeadIsCutAt127CharactersAndPortsAreNot) {
    texts.put(key, L"true, a, b, 1, 2, 30, 40");
    const std::wstring address(200, L'\u00e4');
    system.setBlackBoxCamerasComm(BlackBoxInfo(true, L"tcp", address, 23, 5));
    EXPECT_EQ(texts.text(key), L"true, tcp, " + std::wstring(116, L'\u00e4') + L", 30, 40");

    texts.put(key, L"");
    const std::wstring fits(105, L'x');  // 127 characters in all
    system.setBlackBoxCamerasComm(BlackBoxInfo(true, L"t", fits, 2147483, -1));
    EXPECT_EQ(texts.text(key), L"true, t, " + fits + L", 2147483, -1");
    system.setBlackBoxCamerasComm(BlackBoxInfo(true, L"t", fits + L"x", 2147483, -1));
    EXPECT_EQ(texts.text(key), L"true, t, " + fits + L"x, 2147483, -");
}
