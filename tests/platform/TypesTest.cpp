#include <cstddef>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "platform/CameraInfo.h"
#include "platform/GridSize.h"
#include "platform/IQuorvelProductInfo.h"
#include "platform/IResourceCache.h"
#include "platform/MapperType.h"
#include "platform/RunType.h"

namespace {

TEST(CameraInfo, NewRecordHoldsNothing) {
    EXPECT_EQ(
        CameraInfo().toXml(),
        "<bayerPattern>0</bayerPattern><cameraType>0</cameraType><defaultGateway></defaultGateway><dhcp>false</dhcp>"
        "<firmware></firmware><ipAddress></ipAddress><macAddress></macAddress><model></model>"
        "<resolutionX>0</resolutionX><resolutionY>0</resolutionY><serialNumber></serialNumber><subnetMask></subnetMask>");
}

TEST(CameraInfo, WritesEveryFieldInItsPlace) {
    CameraInfo info;
    info.setBayerPattern(3);
    info.setCameraType(-1);
    info.setDefaultGateway(L"10.0.0.1");
    info.setDHCP(true);
    info.setFirmware(L"1.2");
    info.setIPAddress(L"10.0.0.7");
    info.setMACAddress(L"00:11:22");
    info.setModel(L"Eye");
    info.setResolution(1280, 960);
    info.setSerialNumber(L"007");
    info.setSubnetMask(L"255.0.0.0");
    EXPECT_EQ(info.toXml(),
              "<bayerPattern>3</bayerPattern><cameraType>-1</cameraType><defaultGateway>10.0.0.1</defaultGateway>"
              "<dhcp>true</dhcp><firmware>1.2</firmware><ipAddress>10.0.0.7</ipAddress><macAddress>00:11:22</macAddress>"
              "<model>Eye</model><resolutionX>1280</resolutionX><resolutionY>960</resolutionY>"
              "<serialNumber>007</serialNumber><subnetMask>255.0.0.0</subnetMask>");
}

TEST(CameraInfo, EscapesTextAndWritesUtf8) {
    CameraInfo info;
    info.setModel(L"<\u65e5 & \"\U0001F4FD\">");
    EXPECT_NE(info.toXml().find("<model>&lt;\xE6\x97\xA5 &amp; &quot;\xF0\x9F\x93\xBD&quot;&gt;</model>"),
              std::string::npos);
}

TEST(RunType, HasATextForEachValue) {
    EXPECT_EQ(RunTypeToString(RunType::ClassicRun), L"ClassicRun");
    EXPECT_EQ(RunTypeToString(RunType::CinemaRun), L"CinemaRun");
    EXPECT_EQ(RunTypeToString(RunType::Palvex3DRun), L"Palvex3DRun");
    EXPECT_EQ(RunTypeToString(static_cast<RunType>(77)), L"ClassicRun");
}

TEST(RunType, IsReadBackExactly) {
    EXPECT_EQ(StringToRunType(L"ClassicRun"), RunType::ClassicRun);
    EXPECT_EQ(StringToRunType(L"CinemaRun"), RunType::CinemaRun);
    EXPECT_EQ(StringToRunType(L"Palvex3DRun"), RunType::Palvex3DRun);
    EXPECT_EQ(StringToRunType(L"cinemarun"), RunType::ClassicRun);
    EXPECT_EQ(StringToRunType(L""), RunType::ClassicRun);
}

TEST(CinemaFrame, GoesToTextAndBack) {
    EXPECT_EQ(Cinema::FrameToString(Cinema::Frame::Flat), L"Flat");
    EXPECT_EQ(Cinema::FrameToString(Cinema::Frame::Scope), L"Scope");
    EXPECT_EQ(Cinema::FrameToString(static_cast<Cinema::Frame>(77)), L"Flat");
    EXPECT_EQ(Cinema::StringToFrame(L"Scope"), Cinema::Frame::Scope);
    EXPECT_EQ(Cinema::StringToFrame(L"Flat"), Cinema::Frame::Flat);
    EXPECT_EQ(Cinema::StringToFrame(L"scope"), Cinema::Frame::Flat);
}

TEST(MapperType, TakesAnyStoredNumber) {
    static_assert(std::is_same_v<std::underlying_type_t<MapperType>, int>);
    EXPECT_EQ(static_cast<int>(static_cast<MapperType>(-99)), -99);
    EXPECT_EQ(MapperPolynomial, 1);
}

TEST(GridSize, HoldsHeightThenWidth) {
    static_assert(std::is_aggregate_v<Corvane::GridSize>);
    static_assert(sizeof(Corvane::GridSize) == 8 && offsetof(Corvane::GridSize, width) == 4);
    const Corvane::GridSize size{3, 4};
    EXPECT_EQ(size.height, 3);
    EXPECT_EQ(size.width, 4);
}

bool wasDeleted = false;

struct Product : IQuorvelProductInfo {
    ~Product() override { wasDeleted = true; }
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

TEST(ProductInfo, IsDeletedThroughItsInterface) {
    const IQuorvelProductInfo* const info = new Product;
    EXPECT_EQ(info->getConfigFileExtension(), ".skorrax");
    delete info;
    EXPECT_TRUE(wasDeleted);
    static_assert(std::has_virtual_destructor_v<IResourceCache>);
}

}  // namespace
