#include <clocale>

#include "tests/store/StoreSupport.h"
#include "tests/support/GermanLocale.h"

namespace storetests {

TEST(Locale, WithACommaDoesNotReachTheFile) {
    const GermanLocale locale;
    ConfigInfo document;
    document.setDoubleItem(L"S", L"D", 1.5, L"");
    document.setPoint2DItem(L"S", L"P", {1.5, 2.5}, L"");
    document.setIntegerItem(L"S", L"I", 1234567, L"");
    document.setVersion(8.5);
    EXPECT_EQ(get(document, L"S", L"D"), L"1.500000000000000e+00");
    EXPECT_EQ(get(document, L"S", L"P"), L"1.500000000000000e+00, 2.500000000000000e+00");
    EXPECT_EQ(get(document, L"S", L"I"), L"1234567");
    EXPECT_CONTAINS(savedText(document), "<Version>8.500</Version>");
    const Document again = reloaded(document);
    EXPECT_EQ(again->getDoubleItem(L"S", L"D", 0, L""), 1.5);
    EXPECT_EQ(again->getPoint2DItem(L"S", L"P", {}, L""), Point_2Dim<double>(1.5, 2.5));
    EXPECT_EQ(again->getVersion(), 8.5);
    EXPECT_EQ(load("<ConfigInfo><S><D>1,5</D></S></ConfigInfo>")->getDoubleItem(L"S", L"D", 0, L""), 1.0);
    if (!GermanLocale::isOfTheCLibraryToo()) GTEST_SKIP() << "the C library has no German locale here";
}

TEST(Locale, OfPlainCharactersOpensForeignNames) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    const TemporaryFolder folder;
    for (const wchar_t* name : {L"s\u00fcd.skorrax", L"\u65e5\u672c.skorrax"}) {
        ConfigInfo document;
        set(document, L"S", L"A", name);
        EXPECT_TRUE(document.save(folder.file(name)));
        EXPECT_EQ(get(ConfigInfo(folder.file(name)), L"S", L"A"), name);
    }
    EXPECT_TRUE(std::filesystem::exists(folder.path() / std::filesystem::u8path("s\xc3\xbc"
                                                                                "d.skorrax")));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / std::filesystem::u8path("\xe6\x97\xa5\xe6\x9c\xac.skorrax")));
    EXPECT_EQ(folder.entries(), 2u);
    std::setlocale(LC_ALL, before.c_str());
}

}  // namespace storetests
