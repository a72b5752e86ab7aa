#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8, GoesBothWaysBeyondTheBasicPlane) {
    const std::string bytes = "a\xC3\xBC\xE6\x97\xA5\xF0\x9F\x8E\xA5";
    EXPECT_EQ(XMLConfig::wideFromUtf8(bytes), L"aü日🎥");
    EXPECT_EQ(XMLConfig::utf8FromWide(L"aü日🎥"), bytes);
}

TEST(Utf8, IllFormedBytesAreReplaced) { EXPECT_EQ(XMLConfig::wideFromUtf8("a\xFFz"), L"a\xFFFDz"); }

}  // namespace
