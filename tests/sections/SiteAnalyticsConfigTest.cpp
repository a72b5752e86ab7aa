#include "sections/SiteAnalyticsConfig.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "sections/SiteAnalyticsItems.h"
#include "tests/support/SettingRows.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using Site = SiteAnalyticsConfig;
using Items = std::vector<std::wstring>;

constexpr std::int64_t noon = 1714564800;  // 2024-05-01 12:00:00 UTC
constexpr std::int64_t hour = 3600;

class SiteAnalytics : public testing::Test {
protected:
    SiteAnalytics() {
        XMLConfig::detail::setClock([this] { return time; });
    }
    ~SiteAnalytics() override { XMLConfig::detail::setClock({}); }

    void storeVisit(std::int64_t visit) {
        document.setStringItem(L"SiteAnalytics", L"VisitTimestamp", std::to_wstring(visit), L"", L"", L"");
        document.setDirty(false);
    }

    std::int64_t time = noon;
    ConfigInfo document;
    Site site{&document, L""};
};

XMLConfig::tests::SettingRows<Site> siteRows() {
    return XMLConfig::tests::SettingRows<Site>([](ConfigInfo* document) { return std::make_unique<Site>(document, L""); })
        .row(&Site::getSuccessfulRunNumber, &Site::setSuccessfulRunNumber, L"SuccessfulRunNumber", {0, L"0"}, {12, L"12"})
        .row(&Site::getFailedRunNumber, &Site::setFailedRunNumber, L"FailedRunNumber", {0, L"0"}, {3, L"3"})
        .row(&Site::getLastRunTimestamp, [](Site& s, std::int32_t) { s.setLastRunTimestamp(); }, L"LastRunTimestamp",
             {0, L"0"}, {1714564800, L"1714564800"})
        .row(&Site::getVisitTimestamp, [](Site& s, std::int32_t) { s.setVisitTimestamp(); }, L"VisitTimestamp", {0, L"0"},
             {1714564800, L"1714564800"});
}

TEST_F(SiteAnalytics, SettingsKeepToTheirRows) { siteRows().check(); }

TEST_F(SiteAnalytics, TableEqualsTheRows) { siteRows().checkTable(XMLConfig::detail::siteAnalyticsItems); }

TEST_F(SiteAnalytics, ModesHaveTheirNumbers) {
    EXPECT_EQ(Site::SiteVisit, 0);
    EXPECT_EQ(Site::ServicePeriod, 1);
}

#if TESTS_KNOW_VIRTUAL_SLOTS
TEST_F(SiteAnalytics, VirtualMembersKeepTheirPlaces) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(Site, initialize)}), "");
    EXPECT_EQ(slotCount<Site>(), 3);
}
#endif

TEST_F(SiteAnalytics, InitializeWritesNothing) {
    site.initialize();
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(L"SiteAnalytics", L""));
}

TEST_F(SiteAnalytics, IncrementStoresOneMore) {
    site.incrementSuccessfulRunNumber();
    site.incrementSuccessfulRunNumber();
    site.incrementFailedRunNumber();
    EXPECT_EQ(itemsOf(document, L"SiteAnalytics"), (Items{L"SuccessfulRunNumber = 2", L"FailedRunNumber = 1"}));
}

TEST_F(SiteAnalytics, IncrementStaysAtTheLargestNumber) {
    site.setFailedRunNumber(2147483647);
    site.incrementFailedRunNumber();
    EXPECT_EQ(site.getFailedRunNumber(), 2147483647);
}

TEST_F(SiteAnalytics, ResettingOneCountLeavesTheOther) {
    site.setSuccessfulRunNumber(5);
    site.setFailedRunNumber(6);
    site.resetSuccessfulRunNumber();
    EXPECT_EQ(site.getSuccessfulRunNumber(), 0);
    EXPECT_EQ(site.getFailedRunNumber(), 6);
    site.resetFailedRunNumber();
    EXPECT_EQ(site.getFailedRunNumber(), 0);
}

TEST_F(SiteAnalytics, ResetSiteAnalyticsStoresFailedBeforeSuccessful) {
    site.resetSiteAnalytics();
    EXPECT_EQ(itemsOf(document, L"SiteAnalytics"), (Items{L"FailedRunNumber = 0", L"SuccessfulRunNumber = 0"}));
}

TEST_F(SiteAnalytics, ResetSiteBeginsTheVisitNow) {
    site.resetSite();
    EXPECT_EQ(itemsOf(document, L"SiteAnalytics"),
              (Items{L"FailedRunNumber = 0", L"SuccessfulRunNumber = 0", L"VisitTimestamp = 1714564800"}));
}

TEST_F(SiteAnalytics, ModeStartsAsSiteVisitAndIsNotStored) {
    EXPECT_EQ(site.getSiteMode(), Site::SiteVisit);
    EXPECT_TRUE(site.isSiteVisit());
    site.setSiteMode(Site::ServicePeriod);
    EXPECT_EQ(site.getSiteMode(), Site::ServicePeriod);
    EXPECT_FALSE(site.isSiteVisit());
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SiteAnalytics, OnLoadOfANewDocumentBeginsTheVisit) {
    site.onLoad();
    EXPECT_EQ(itemsOf(document, L"SiteAnalytics"), (Items{L"VisitTimestamp = 1714564800"}));
    EXPECT_TRUE(site.isSiteVisit());
}

TEST_F(SiteAnalytics, OnLoadWithAVisitTimeOfZeroBeginsTheVisit) {
    storeVisit(0);
    site.setSiteMode(Site::ServicePeriod);
    site.onLoad();
    EXPECT_EQ(site.getVisitTimestamp(), 1714564800);
    EXPECT_TRUE(site.isSiteVisit());
}

TEST_F(SiteAnalytics, OnLoadKeepsTheVisitForExactly72Hours) {
    storeVisit(noon - 72 * hour);
    site.onLoad();
    EXPECT_TRUE(site.isSiteVisit());
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SiteAnalytics, OnLoadEndsTheVisitASecondAfter72Hours) {
    storeVisit(noon - 72 * hour - 1);
    site.onLoad();
    EXPECT_FALSE(site.isSiteVisit());
    EXPECT_FALSE(document.isDirty());
}

TEST_F(SiteAnalytics, OnLoadKeepsTheVisitWhenTheClockWentBack) {
    storeVisit(noon + 100 * hour);
    site.onLoad();
    EXPECT_TRUE(site.isSiteVisit());
}

TEST_F(SiteAnalytics, OnLoadKeepsTheServicePeriod) {
    storeVisit(noon - hour);
    site.setSiteMode(Site::ServicePeriod);
    site.onLoad();
    EXPECT_FALSE(site.isSiteVisit());
}

TEST_F(SiteAnalytics, ResetSiteOfAnOldDocumentLeavesTheModeUntilItIsLoadedAgain) {
    storeVisit(noon - 100 * hour);
    site.onLoad();
    site.resetSite();
    EXPECT_EQ(site.getVisitTimestamp(), 1714564800);
    EXPECT_EQ(site.getSiteMode(), Site::ServicePeriod);

    Site loadedAgain(&document, L"");
    loadedAgain.onLoad();
    EXPECT_TRUE(loadedAgain.isSiteVisit());
}

TEST_F(SiteAnalytics, TimesAreCutTo32Bits) {
    time = 2147483648;  // 2038-01-19 03:14:08 UTC
    site.setLastRunTimestamp();
    EXPECT_EQ(site.getLastRunTimestamp(), -2147483647 - 1);
}

TEST_F(SiteAnalytics, VisitAcrossTheWrapOf2038LastsJustAsLong) {
    time = 2147483000;
    site.onLoad();
    time += 72 * hour;
    site.onLoad();
    EXPECT_TRUE(site.isSiteVisit());
    time += 1;
    site.onLoad();
    EXPECT_FALSE(site.isSiteVisit());
}

}  // namespace
