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
///
/// Its settings: sections/SiteAnalyticsItems.h and, as a page, docs/settings.md#siteanalytics.
class XMLCONFIG_API SiteAnalyticsConfig : public BaseConfig {
public:
    /// What the present use of the application belongs to: the visit at which it is installed, or a later service period.
    enum SiteMode : int { SiteVisit = 0, ServicePeriod = 1 };

    /// Borrows the document (null: a private one). Writes nothing. The mode starts as SiteVisit.
    SiteAnalyticsConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~SiteAnalyticsConfig() override;
    /// Writes nothing.
    void initialize() override;

    int getSuccessfulRunNumber() const;  ///< number of runs that succeeded; 0 when missing
    void setSuccessfulRunNumber(int count);
    void incrementSuccessfulRunNumber();  ///< stores one more; the largest 32-bit number stays
    void resetSuccessfulRunNumber();      ///< stores 0
    int getFailedRunNumber() const;       ///< number of runs that failed; 0 when missing
    void setFailedRunNumber(int count);
    void incrementFailedRunNumber();  ///< stores one more; the largest 32-bit number stays
    void resetFailedRunNumber();      ///< stores 0
    /// When the last run was made; 0 for never (seconds since 1970-01-01 UTC); 0 when missing.
    std::int32_t getLastRunTimestamp() const;
    void setLastRunTimestamp();  ///< stores the present time
    /// When the installation was first visited; 0 for not yet (seconds since 1970-01-01 UTC); 0 when missing.
    std::int32_t getVisitTimestamp() const;
    void setVisitTimestamp();  ///< stores the present time

    /// Stores 0 for both counts.
    void resetSiteAnalytics();
    /// Stores 0 for both counts and the present time as that of the visit: all of it, or nothing where memory runs out.
    /// The mode stays as it is until the document is loaded again.
    void resetSite();

    SiteMode getSiteMode() const;     ///< what onLoad() or setSiteMode() found or set last
    void setSiteMode(SiteMode mode);  ///< changes this object only, not the document
    bool isSiteVisit() const;         ///< whether the mode is SiteVisit
    /// The manager calls this when it has loaded a document. Where no visit is stored, it stores the present time as that of
    /// the visit and the mode becomes SiteVisit. Otherwise the mode SiteVisit ends when the visit began more than 72 hours
    /// ago; the mode ServicePeriod stays.
    void onLoad();

private:
    SiteMode m_siteMode = SiteVisit;
};
