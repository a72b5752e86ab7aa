#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/support/Thrown.h"

namespace {

const char* const hall =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?><ConfigInfo><Version>9.000</Version>"
    "<System><RunType>Größe</RunType></System></ConfigInfo>";

TEST(DocumentFromText, HoldsWhatTheTextSays) {
    const auto document = ConfigInfo::fromText(hall, L"hall");
    EXPECT_EQ(document->getVersion(), 9.0);
    EXPECT_EQ(document->getStringItem(L"System", L"RunType", L"", L"", L"", L""), L"Größe");
    EXPECT_FALSE(document->doesSectionExist(L"BuildDate", L""));
    EXPECT_FALSE(document->isDirty());
    document->setStringItem(L"System", L"RunType", L"x", L"", L"", L"");
    EXPECT_TRUE(document->isDirty());
}

std::wstring faultOf(const std::string& text) {
    return messageOf([&] { ConfigInfo::fromText(text, L"standard input"); });
}

TEST(DocumentFromText, FaultsNameTheTextAndThePlace) {
    EXPECT_EQ(faultOf("<a>\n</b>")
                  .rfind(L"Error parseDataFile: Error during parsing: standard input XML message is: line 2, column ", 0),
              0u);
    EXPECT_NE(faultOf(""), L"");
    EXPECT_NE(faultOf("<!DOCTYPE a><a/>"), L"");
}

TEST(DocumentFromText, EndsWithAWholeCharacter) {
    for (const char* cut : {"\xc3", "\xe2\x82", "\xf0\x9f\x98"}) {
        EXPECT_EQ(faultOf(std::string(hall) + "\n" + cut),
                  L"Error parseDataFile: Error during parsing: standard input XML message is: "
                  L"line 2, column 1: The last character is incomplete");
    }
}

}  // namespace
