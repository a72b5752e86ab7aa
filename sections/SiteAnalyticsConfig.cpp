#include "sections/SiteAnalyticsConfig.h"

#include <limits>

#include "platform/Clock.h"
#include "sections/SiteAnalyticsItems.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::siteAnalyticsItems;

namespace {

constexpr double secondsPerHour = 3600.0;
constexpr double hoursOfVisit = 72.0;

std::int32_t low32Bits(std::int64_t value) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(value)); }
std::int32_t presentTime() { return low32Bits(XMLConfig::detail::now()); }

// The difference of two times cut to 32 bits is right across the wrap of 2038 too.
double hoursSince(std::int32_t time) { return low32Bits(XMLConfig::detail::now() - time) / secondsPerHour; }

int oneMore(int count) { return count == std::numeric_limits<int>::max() ? count : count + 1; }

}  // namespace

SiteAnalyticsConfig::SiteAnalyticsConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

SiteAnalyticsConfig::~SiteAnalyticsConfig() = default;

void SiteAnalyticsConfig::initialize() {}

int SiteAnalyticsConfig::getSuccessfulRunNumber() const { return read(items.successfulRunNumber).value; }
void SiteAnalyticsConfig::setSuccessfulRunNumber(int count) { write(items.successfulRunNumber, count); }
void SiteAnalyticsConfig::incrementSuccessfulRunNumber() { setSuccessfulRunNumber(oneMore(getSuccessfulRunNumber())); }
void SiteAnalyticsConfig::resetSuccessfulRunNumber() { setSuccessfulRunNumber(0); }
int SiteAnalyticsConfig::getFailedRunNumber() const { return read(items.failedRunNumber).value; }
void SiteAnalyticsConfig::setFailedRunNumber(int count) { write(items.failedRunNumber, count); }
void SiteAnalyticsConfig::incrementFailedRunNumber() { setFailedRunNumber(oneMore(getFailedRunNumber())); }
void SiteAnalyticsConfig::resetFailedRunNumber() { setFailedRunNumber(0); }
std::int32_t SiteAnalyticsConfig::getLastRunTimestamp() const { return read(items.lastRunTimestamp).value; }
void SiteAnalyticsConfig::setLastRunTimestamp() { write(items.lastRunTimestamp, presentTime()); }
std::int32_t SiteAnalyticsConfig::getVisitTimestamp() const { return read(items.visitTimestamp).value; }
void SiteAnalyticsConfig::setVisitTimestamp() { write(items.visitTimestamp, presentTime()); }

void SiteAnalyticsConfig::resetSiteAnalytics() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        resetFailedRunNumber();
        resetSuccessfulRunNumber();
    });
}

void SiteAnalyticsConfig::resetSite() {
    XMLConfig::detail::together(*m_configInfo, [&] {
        resetSiteAnalytics();
        setVisitTimestamp();
    });
}

SiteAnalyticsConfig::SiteMode SiteAnalyticsConfig::getSiteMode() const { return m_siteMode; }
void SiteAnalyticsConfig::setSiteMode(SiteMode mode) { m_siteMode = mode; }
bool SiteAnalyticsConfig::isSiteVisit() const { return m_siteMode == SiteVisit; }

void SiteAnalyticsConfig::onLoad() {
    const std::int32_t visit = getVisitTimestamp();
    if (visit == 0) {
        setVisitTimestamp();
        m_siteMode = SiteVisit;
    } else if (m_siteMode == SiteVisit && hoursSince(visit) > hoursOfVisit) {
        m_siteMode = ServicePeriod;
    }
}
