#include "manager/DeviceAddresses.h"

#include <gtest/gtest.h>

using namespace XMLConfig::detail;

TEST(DeviceAddresses, CutAnIDAtItsStars) {
    const std::optional<DeviceID> id = deviceIDOf(L"PGR***02:1c***x");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->type, L"PGR");
    EXPECT_EQ(id->address, L"02:1c***x");
    EXPECT_FALSE(deviceIDOf(L"PGR**02:1c"));
}

TEST(DeviceAddresses, FindTheDigitsOfAMACWithDotsThatARuleRefuses) {
    EXPECT_EQ(digitsOfMAC(L"021C.0051.00A0"), L"021c005100a0");
    EXPECT_EQ(digitsOfMAC(L"02:1c:00:51:00:a0"), L"021c005100a0");
    EXPECT_EQ(digitsOfMAC(L"02:1c:00:51:00"), L"");
    EXPECT_EQ(digitsOfMAC(L"02:1c:00:51:00:g0"), L"");
    EXPECT_FALSE(isMAC(L"021C.0051.00A0"));
    EXPECT_TRUE(isMAC(L"02-1C-00-51-00-A0"));
    EXPECT_FALSE(isMAC(L"021c-0051-00a0"));
}
