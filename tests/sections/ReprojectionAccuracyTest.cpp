#include "sections/ReprojectionAccuracy.h"

#include <gtest/gtest.h>

#include <memory>

#if defined(__GLIBC__)
#if __GLIBC_PREREQ(2, 33)
#include <malloc.h>
#define TESTS_SEE_THE_HEAP 1
#endif
#endif

#include "platform/DiagnosticsFolder.h"
#include "sections/ReprojectionAccuracyItems.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "tests/support/SettingRows.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using Items = std::vector<std::wstring>;

/// Each of the six pairs of accessors as one row.
struct Accessors {
    const char* name;
    double (ReprojectionAccuracy::*getGlobal)() const;
    void (ReprojectionAccuracy::*setGlobal)(double);
    double (ReprojectionAccuracy::*getCamera)(const std::wstring&) const;
    void (ReprojectionAccuracy::*setCamera)(const std::wstring&, double);
    const wchar_t* key;
};
using Accuracy = ReprojectionAccuracy;
const Accessors rows[] = {
    {"max", &Accuracy::getMaxError, &Accuracy::setMaxError, &Accuracy::getMaxError, &Accuracy::setMaxError,
     L"ReprojectionError_Max"},
    {"rms", &Accuracy::getRMSError, &Accuracy::setRMSError, &Accuracy::getRMSError, &Accuracy::setRMSError,
     L"ReprojectionError_RMS"},
    {"overlap", &Accuracy::getOverlapPercentage, &Accuracy::setOverlapPercentage, &Accuracy::getOverlapPercentage,
     &Accuracy::setOverlapPercentage, L"ReprojectionError_OverlapPercent"},
};

/// The folder of diagnostics is a temporary one as long as this lives.
class DiagnosticsIn {
public:
    explicit DiagnosticsIn(const std::wstring& folder) : m_before(UlvanoDiagnostics::getDataSubDirectory()) {
        UlvanoDiagnostics::setDataSubDirectory(folder);
    }
    ~DiagnosticsIn() { UlvanoDiagnostics::setDataSubDirectory(m_before); }

private:
    std::wstring m_before;
};

class AccuracyOfDocument : public testing::Test {
protected:
    ConfigInfo* document = ConfigInfoFactory::getInstance()->createNew();
    ReprojectionAccuracy accuracy{document, L""};
};

TEST_F(AccuracyOfDocument, SectionIsAnalyticResults) {
    EXPECT_EQ(accuracy.getSectionName(), L"AnalyticResults");
    EXPECT_EQ(accuracy.getSectionID(), L"");
}

TEST_F(AccuracyOfDocument, MissingValuesReadZeroAndAreNotCreated) {
    for (const Accessors& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ((accuracy.*row.getGlobal)(), 0.0);
        EXPECT_EQ((accuracy.*row.getCamera)(L"2"), 0.0);
    }
    EXPECT_FALSE(document->isDirty());
    EXPECT_FALSE(document->doesSectionExist(L"global", L""));
}

TEST_F(AccuracyOfDocument, DisplayValuesStandInTheSectionGlobal) {
    for (const Accessors& row : rows) {
        SCOPED_TRACE(row.name);
        (accuracy.*row.setGlobal)(1.5);
        EXPECT_EQ(itemsOf(*document, L"global").back(), row.key + std::wstring(L" = 1.500000000000000e+00"));
        EXPECT_EQ((accuracy.*row.getGlobal)(), 1.5);
        EXPECT_EQ((accuracy.*row.getCamera)(L"2"), 0.0);
    }
    EXPECT_EQ(itemsOf(*document, L"global").size(), 3U);
    EXPECT_FALSE(document->doesSectionExist(L"AnalyticResults", L""));
}

TEST_F(AccuracyOfDocument, CameraValuesStandInTheCamerasSection) {
    for (const Accessors& row : rows) {
        SCOPED_TRACE(row.name);
        (accuracy.*row.setCamera)(L"2", 0.25);
        EXPECT_EQ(itemsOf(*document, L"Camera", L"2").back(), row.key + std::wstring(L" = 2.500000000000000e-01"));
        EXPECT_EQ((accuracy.*row.getCamera)(L"2"), 0.25);
        EXPECT_EQ((accuracy.*row.getCamera)(L"1"), 0.0);
        EXPECT_EQ((accuracy.*row.getGlobal)(), 0.0);
    }
    EXPECT_EQ(document->getSectionIDs(L"Camera"), (Items{L"2"}));
}

TEST_F(AccuracyOfDocument, InitializeStoresTheDisplayValuesInOrder) {
    accuracy.initialize();
    EXPECT_EQ(itemsOf(*document, L"global"),
              (Items{L"ReprojectionError_Max = -1.000000000000000e+00", L"ReprojectionError_RMS = -1.000000000000000e+00",
                     L"ReprojectionError_OverlapPercent = -1.000000000000000e+00"}));
    for (const Accessors& row : rows) {
        EXPECT_EQ((accuracy.*row.getGlobal)(), -1.0);
        EXPECT_EQ((accuracy.*row.getCamera)(L"1"), 0.0);
    }
}

TEST_F(AccuracyOfDocument, ItemsAreDescribed) {
    const auto settings = XMLConfig::detail::settingsOf(XMLConfig::detail::reprojectionAccuracyItems);
    ASSERT_EQ(settings.size(), std::size(rows));
    for (std::size_t i = 0; i < settings.size(); ++i) {
        EXPECT_EQ(settings[i].key, rows[i].key);
        EXPECT_EQ(settings[i].defaultText, L"0.000000000000000e+00");
        EXPECT_EQ(settings[i].initialText, L"-1.000000000000000e+00");
    }
}

TEST(ReprojectionAccuracy, SectionIDTellsSetsOfDisplayValuesApart) {
    auto* document = new ConfigInfo;
    ReprojectionAccuracy second(document, L"second");
    second.setMaxError(2.0);
    EXPECT_EQ(document->getSectionIDs(L"global"), (Items{L"second"}));
    EXPECT_EQ(second.getMaxError(), 2.0);
}

#if TESTS_KNOW_VIRTUAL_SLOTS
TEST(ReprojectionAccuracy, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(ReprojectionAccuracy, initialize)}), "");
    EXPECT_EQ(slotCount<ReprojectionAccuracy>(), 3);
}
#endif

TEST(ReprojectionAccuracy, WithoutADocumentItWorksOnAPrivateOne) {
    TemporaryFolder folder;
    const DiagnosticsIn diagnostics(wideOf(folder.path()));
    ReprojectionAccuracy accuracy(nullptr, L"");
    accuracy.initialize();
    EXPECT_EQ(accuracy.getMaxError(), -1.0);
    EXPECT_TRUE(accuracy.saveResults());
    EXPECT_TRUE(folder.has(L"temp.results"));
}

#ifdef TESTS_SEE_THE_HEAP
TEST(ReprojectionAccuracy, DestroyingItDestroysItsDocument) {
    const std::wstring text(10000, L'x');
    const auto useOne = [&] {
        auto document = std::make_unique<ConfigInfo>();
        document->setStringItem(L"Notes", L"Note", text, L"", L"", L"");
        const ReprojectionAccuracy accuracy(document.release(), L"");
    };
    useOne();  // what is made once for the process is made now
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i < 100; ++i) useOne();
    EXPECT_LT(mallinfo2().uordblks, before + 100 * text.size());
}
#endif

TEST(ReprojectionAccuracy, ResultsAreSavedInTheDiagnosticsFolder) {
    TemporaryFolder folder;
    const DiagnosticsIn diagnostics(wideOf(folder.path()));
    auto* document = new ConfigInfo;
    ReprojectionAccuracy accuracy(document, L"");
    accuracy.setRMSError(L"1", 0.5);
    EXPECT_TRUE(accuracy.saveResults());
    EXPECT_FALSE(document->isDirty());

    EXPECT_EQ(folder.entries(), 1U);
    const std::unique_ptr<ReprojectionAccuracy> loaded(ReprojectionAccuracy::loadFromFile(folder.file(L"temp.results")));
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->getRMSError(L"1"), 0.5);
    EXPECT_EQ(loaded->getSectionID(), L"");
}

TEST(ReprojectionAccuracy, LoadedResultsAreNeverSavedBackToTheirFile) {
    TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "diagnostics");
    const DiagnosticsIn diagnostics(folder.file(L"diagnostics"));
    const std::wstring path = folder.file(L"measured.results");
    ReprojectionAccuracy(new ConfigInfo, L"").saveResults();
    std::filesystem::rename(folder.path() / "diagnostics" / "temp.results", pathOf(path));
    const std::string before = folder.read(L"measured.results");

    const std::unique_ptr<ReprojectionAccuracy> loaded(ReprojectionAccuracy::loadFromFile(path));
    loaded->setMaxError(3.0);
    EXPECT_TRUE(loaded->saveResults());
    EXPECT_EQ(folder.read(L"measured.results"), before);
    EXPECT_NE(folder.read(L"diagnostics/temp.results").find("3.000000000000000e+00"), std::string::npos);
}

TEST(ReprojectionAccuracy, LoadingWhatIsNoDocumentThrowsAsTheStoreDoes) {
    TemporaryFolder folder;
    const std::wstring missing = folder.file(L"missing.results");
    EXPECT_EQ(messageOf([&] { ReprojectionAccuracy::loadFromFile(missing); }),
              L"Error parseDataFile: Can not open file: " + missing);
    EXPECT_THROW(ReprojectionAccuracy::loadFromFile(folder.write(L"bad.results", "<ConfigInfo>")), CorvaneException);
}

TEST(ReprojectionAccuracy, FailedSaveThrowsAndLeavesTheResultsDirty) {
    TemporaryFolder folder;
    const DiagnosticsIn diagnostics(folder.file(L"not-there"));
    auto* document = new ConfigInfo;
    ReprojectionAccuracy accuracy(document, L"");
    accuracy.initialize();
    EXPECT_THROW(accuracy.saveResults(), CorvaneException);
    EXPECT_TRUE(document->isDirty());
}

}  // namespace
