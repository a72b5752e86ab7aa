#include "store/Utf8Place.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

using XMLConfig::detail::Utf8Place;

TEST(Utf8Place, TakesWhatIsUtf8InAnyPieces) {
    const std::string text =
        "\xef\xbb\xbf"
        "a\r\nb\xc2\x80\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf";
    Utf8Place whole;
    EXPECT_TRUE(whole.take(text));
    EXPECT_EQ(whole.line(), 2u);
    EXPECT_EQ(whole.column(), 10u);
    for (std::size_t cut = 3; cut < text.size(); ++cut) {
        Utf8Place pieces;
        EXPECT_TRUE(pieces.take(text.substr(0, cut)) && pieces.take(text.substr(cut)));
        EXPECT_EQ(std::pair(pieces.line(), pieces.column()), std::pair(whole.line(), whole.column())) << cut;
    }
}

TEST(Utf8Place, IsThatOfTheFirstCharacterThatIsNone) {
    for (const char* wrong : {"\x80", "\xbf", "\xc1\xbf", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf",
                              "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff", "\xe2\x82<", "\xc3\xc3\xbc"}) {
        Utf8Place place;
        EXPECT_FALSE(place.take(std::string("\n\n<a>\xc3\xbc") + wrong));
        EXPECT_EQ(place.line(), 3u);
        EXPECT_EQ(place.column(), 5u);
    }
}
