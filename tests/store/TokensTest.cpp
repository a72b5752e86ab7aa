#include "tests/store/StoreSupport.h"

namespace storetests {

TEST(StringTok, CutsTheFirstTokenAndTheDelimitersAfterIt) {
    const struct {
        const wchar_t* text;
        const wchar_t* token;
        const wchar_t* rest;
    } rows[] = {{L"a,b", L"a", L"b"}, {L"a, \t\nb,c", L"a", L"b,c"}, {L"abc", L"abc", L""}, {L"abc,,", L"abc", L""},
                {L",a", L"", L"a"},   {L"  ,, a b", L"", L"a b"},    {L"", L"", L""},       {L",", L"", L""}};
    for (const auto& row : rows) {
        std::wstring text = row.text;
        EXPECT_EQ(ConfigInfo::stringTok(text, L" ,\n\t"), row.token) << row.text;
        EXPECT_EQ(text, row.rest) << row.text;
    }
}

TEST(CreateTokenVector, ReplacesTheListByTheNonEmptyTokens) {
    using Tokens = std::vector<std::wstring>;
    const std::pair<const wchar_t*, Tokens> rows[] = {{L", 1.5,,2.5 ", {L"1.5", L"2.5"}},
                                                      {L"", {}},
                                                      {L" ,\n\t", {}},
                                                      {L"one", {L"one"}},
                                                      {L"1;2", {L"1;2"}},
                                                      {L"1\r2", {L"1\r2"}},
                                                      {L"a\nb\tc d,e", {L"a", L"b", L"c", L"d", L"e"}}};
    for (const auto& [text, expected] : rows) {
        Tokens tokens{L"old", L"ones"};
        EXPECT_EQ(ConfigInfo::createTokenVector(tokens, text, L" ,\n\t"), static_cast<int>(expected.size())) << text;
        EXPECT_EQ(tokens, expected) << text;
    }
    Tokens tokens;
    EXPECT_EQ(ConfigInfo::createTokenVector(tokens, L"a|b||c", L"|"), 3);
    EXPECT_EQ(ConfigInfo::createTokenVector(tokens, L"a b", L""), 1);
}

}  // namespace storetests
