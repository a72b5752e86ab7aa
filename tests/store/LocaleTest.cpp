#include <clocale>
#include <cstdlib>

#include "tests/store/StoreSupport.h"
#include "tests/support/EnvironmentVariable.h"

namespace storetests {

namespace {

/// While it lives the process runs under German conventions: a comma in numbers. Where the system has no such locale
/// one is made in a folder of its own, if the tool for that is there.
class GermanLocale {
public:
    GermanLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
        m_active = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr || made();
    }
    ~GermanLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;
    bool active() const { return m_active && std::string(std::localeconv()->decimal_point) == ","; }

private:
    bool made() {
#ifdef _WIN32
        return false;
#else
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + (m_folder.path() / "de_DE.UTF-8").string() + "' >/dev/null 2>&1";
        if (std::system(command.c_str()) != 0) return false;
        m_place.emplace("LOCPATH", m_folder.path().string());
        return std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
#endif
    }

    TemporaryFolder m_folder;
    std::optional<EnvironmentVariable> m_place;
    std::string m_before;
    bool m_active = false;
};

}  // namespace

TEST(Locale, WithACommaDoesNotReachTheFile) {
    const GermanLocale locale;
    if (!locale.active()) GTEST_SKIP() << "no German locale here";
    ConfigInfo document;
    document.setDoubleItem(L"S", L"D", 1.5, L"");
    document.setPoint2DItem(L"S", L"P", {1.5, 2.5}, L"");
    document.setIntegerItem(L"S", L"I", 1234567, L"");
    document.setVersion(8.5);
    EXPECT_EQ(get(document, L"S", L"D"), L"1.500000000000000e+00");
    EXPECT_EQ(get(document, L"S", L"P"), L"1.500000000000000e+00, 2.500000000000000e+00");
    EXPECT_EQ(get(document, L"S", L"I"), L"1234567");
    EXPECT_CONTAINS(textOf(document), "<Version>8.500</Version>");
    const Document again = reloaded(document);
    EXPECT_EQ(again->getDoubleItem(L"S", L"D", 0, L""), 1.5);
    EXPECT_EQ(again->getPoint2DItem(L"S", L"P", {}, L""), Point_2Dim<double>(1.5, 2.5));
    EXPECT_EQ(again->getVersion(), 8.5);
    EXPECT_EQ(load("<ConfigInfo><S><D>1,5</D></S></ConfigInfo>")->getDoubleItem(L"S", L"D", 0, L""), 1.0);
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
