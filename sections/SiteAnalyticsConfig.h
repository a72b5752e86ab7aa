#pragma once

#include <cstdint>
#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "SiteAnalytics": counts of calibration runs, the time of the last one, and whether the application is
/// still used within the first visit of the installation (72 hours) or in a later service period.
///
/// Times are seconds since 1970-01-01 UTC in 32 bits; 0 stands for a missing time. A missing count reads 0. The site mode
/// lives in this object, not in the document. The order of the virtual members is part of the interface.
/// Its settings: sections/SiteAnalyticsItems.h and, as a page, docs/settings.md#siteanalytics.
class XMLCONFIG_API SiteAnalyticsConfig : public BaseConfig {
public:
    enum SiteMode : int { SiteVisit = 0, ServicePeriod = 1 };

    /// The mode starts as SiteVisit.
    SiteAnalyticsConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~SiteAnalyticsConfig() override;
    /// Writes nothing.
    void initialize() override;

    int getSuccessfulRunNumber() const;  ///< runs that succeeded
    void setSuccessfulRunNumber(int count);
    void incrementSuccessfulRunNumber();  ///< stays at the largest 32-bit number
    void resetSuccessfulRunNumber();
    int getFailedRunNumber() const;  ///< runs that failed
    void setFailedRunNumber(int count);
    void incrementFailedRunNumber();  ///< stays at the largest 32-bit number
    void resetFailedRunNumber();
    std::int32_t getLastRunTimestamp() const;  ///< when the last run was made; 0 for never (seconds since 1970-01-01 UTC)
    void setLastRunTimestamp();                ///< stores the present time
    /// When the installation was first visited; 0 for not yet (seconds since 1970-01-01 UTC).
    std::int32_t getVisitTimestamp() const;
    void setVisitTimestamp();  ///< stores the present time

    /// Both counts become 0.
    void resetSiteAnalytics();
    /// Both counts become 0 and the visit begins now. The mode stays as it is until the document is loaded again.
    void resetSite();

    SiteMode getSiteMode() const;
    void setSiteMode(SiteMode mode);
    bool isSiteVisit() const;
    /// Called once a document is loaded: begins the visit where none is stored, otherwise ends the mode SiteVisit when
    /// the visit began more than 72 hours ago. ServicePeriod is kept.
    void onLoad();

private:
    SiteMode m_siteMode = SiteVisit;
};
