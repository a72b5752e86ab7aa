#include "store/ConfigInfoFactory.h"

#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace storetests {

TEST(ConfigInfoFactory, IsTheSameObjectAtEveryCall) {
    ASSERT_NE(ConfigInfoFactory::getInstance(), nullptr);
    EXPECT_EQ(ConfigInfoFactory::getInstance(), ConfigInfoFactory::getInstance());
}

TEST(ConfigInfoFactory, KnowsTheVersionAndTheBuild) {
    EXPECT_EQ(ConfigInfoFactory::getLatestFileVersionNumber(), 9.0);
    EXPECT_EQ(ConfigInfoFactory::getBuildDate(), L"Mar 11 2019");
}

TEST(ConfigInfoFactory, MakesANewDocumentAtTheLatestVersion) {
    const Document document(ConfigInfoFactory::getInstance()->createNew());
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->getVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(get(*document, L"Version", L"x"), L"(default)");
    EXPECT_FALSE(document->isDirty());
}

TEST(ConfigInfoFactory, MakesADistinctDocumentAtEveryCall) {
    const Document first(ConfigInfoFactory::getInstance()->createNew());
    const Document second(ConfigInfoFactory::getInstance()->createNew());
    set(*first, L"System", L"A", L"1");
    EXPECT_FALSE(second->doesSectionExist(L"System", L""));
}

TEST(ConfigInfoFactory, LoadsAFile) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", "<ConfigInfo><Version>8.000</Version><S><A>x</A></S></ConfigInfo>");
    const Document document(ConfigInfoFactory::getInstance()->createFromFile(path));
    EXPECT_EQ(document->getVersion(), 8.0);
    EXPECT_EQ(get(*document, L"S", L"A"), L"x");
    EXPECT_FALSE(document->isDirty());
}

TEST(ConfigInfoFactory, PassesOnTheMessageOfAMissingFile) {
    const TemporaryFolder folder;
    const auto path = folder.file(L"none.skorrax");
    EXPECT_EQ(messageOf([&] { Document(ConfigInfoFactory::getInstance()->createFromFile(path)); }),
              L"Error parseDataFile: Can not open file: " + path);
}

}  // namespace storetests
