#include "store/ConfigInfo.h"

#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace fs = std::filesystem;

namespace storetests {

TEST(NewDocument, HoldsTheRootAndTheFourHeaderElements) {
    ConfigInfo document;
    const std::string text = savedText(document);
    const std::string start =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n<ConfigInfo>\n  <Version>9.000</Version>\n"
        "  <BuildDate>Mar 11 2019</BuildDate>\n  <BuildNumber>2.1.1.14</BuildNumber>\n  <DevelopedBy>";
    const std::string end = "</DevelopedBy>\n</ConfigInfo>\n";
    ASSERT_GT(text.size(), start.size() + end.size());
    EXPECT_EQ(text.substr(0, start.size()), start);
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    EXPECT_EQ(text.substr(start.size()).find('<'), text.size() - start.size() - end.size());
}

TEST(NewDocument, IsNotDirtyAndAtTheLatestVersion) {
    const ConfigInfo document;
    EXPECT_FALSE(document.isDirty());
    EXPECT_EQ(document.getVersion(), XMLConfig::detail::latestFileVersion);
}

TEST(NewDocument, CanBeLoadedAgain) {
    ConfigInfo document;
    const Document again = reloaded(document);
    EXPECT_EQ(again->getVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(savedText(*again), savedText(document));
}

TEST(LoadedDocument, IsNotDirty) {
    const Document document = load(currentFile("<S><A>1</A></S>"));
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(get(*document, L"S", L"A"), L"1");
}

TEST(LoadedDocument, LeavesItsFileAlone) {
    const TemporaryFolder folder;
    const std::string text = currentFile("");
    const auto path = folder.write(L"a.skorrax", text);
    {
        ConfigInfo document(path);
        set(document, L"S", L"A", L"1");
    }
    EXPECT_EQ(folder.read(L"a.skorrax"), text);
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(LoadedDocument, OpensAFileOfAnyName) {
    const TemporaryFolder folder;
    for (const wchar_t* name : {L"halle-s\u00fcd.skorrax", L"\u65e5\u672c.skorrax", L"\U0001F3A5.skorrax", L"a b%20&+#.x"}) {
        const auto path = folder.write(name, "<ConfigInfo><S><A>1</A></S></ConfigInfo>");
        ConfigInfo document(path);
        EXPECT_EQ(get(document, L"S", L"A"), L"1");
        set(document, L"S", L"A", L"2");
        EXPECT_TRUE(document.save(path));
        EXPECT_EQ(get(ConfigInfo(path), L"S", L"A"), L"2");
    }
    EXPECT_EQ(folder.entries(), 4u);
}

TEST(LoadedDocument, OpensAFileWhoseNameLooksLikeAUrl) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "file:" / "x");
    const auto path = folder.write(L"file:/x/a.skorrax", "<ConfigInfo><S><A>1</A></S></ConfigInfo>");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(get(ConfigInfo(L"file:/x/a.skorrax"), L"S", L"A"), L"1");
    fs::current_path(before);
    EXPECT_EQ(get(ConfigInfo(path), L"S", L"A"), L"1");
}

TEST(LoadedDocument, ReadsOtherEncodingsAndSavesUtf8) {
    const Document latin =
        load("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><ConfigInfo><S><A>\xfc</A></S></ConfigInfo>");
    EXPECT_EQ(get(*latin, L"S", L"A"), L"\u00fc");
    EXPECT_EQ(savedText(*latin), savedRoot("  <S>\n    <A>\xc3\xbc</A>\n  </S>\n"));
    std::string wide("\xff\xfe", 2);
    for (const char c : std::string("<ConfigInfo><S><A>1</A></S></ConfigInfo>")) (wide += c) += '\0';
    EXPECT_EQ(get(*load(wide), L"S", L"A"), L"1");
    EXPECT_EQ(get(*load("\xef\xbb\xbf<ConfigInfo><S><A>1</A></S></ConfigInfo>"), L"S", L"A"), L"1");
}

TEST(DirtyFlag, IsWhatItWasSetTo) {
    ConfigInfo document;
    document.setDirty(true);
    EXPECT_TRUE(document.isDirty());
    document.setDirty(false);
    EXPECT_FALSE(document.isDirty());
}

TEST(Documents, DoNotShareTheirContent) {
    ConfigInfo first;
    ConfigInfo second;
    set(first, L"S", L"A", L"1");
    EXPECT_TRUE(first.isDirty());
    EXPECT_FALSE(second.isDirty());
    EXPECT_FALSE(second.doesSectionExist(L"S", L""));
}

TEST(Documents, OutliveOneAnother) {
    auto first = std::make_unique<ConfigInfo>();
    const auto second = std::make_unique<ConfigInfo>();
    first.reset();
    set(*second, L"S", L"A", L"1");
    EXPECT_EQ(get(*reloaded(*second), L"S", L"A"), L"1");
}

#ifndef _WIN32

TEST(Load, TakesABackslashAsASeparator) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "shows");
    ConfigInfo document;
    EXPECT_TRUE(document.save(wideOf(folder.path()) + L"\\shows\\hall.skorrax"));
    EXPECT_TRUE(folder.has(L"shows/hall.skorrax"));
    EXPECT_EQ(ConfigInfo(wideOf(folder.path()) + L"\\shows\\hall.skorrax").getVersion(),
              XMLConfig::detail::latestFileVersion);
}

#endif

}  // namespace storetests
