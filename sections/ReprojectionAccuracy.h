#pragma once

#include <memory>
#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The reprojection errors that a calibration run measured, for the whole display and for each camera, in a results document
/// of their own. A missing value reads 0.0; -1.0 in a new document stands for what has not been measured. Values are stored
/// as given, without a check. The order of the virtual members is part of the interface.
///
/// Its settings: sections/ReprojectionAccuracyItems.h and, as a page, docs/settings.md#global.
class XMLCONFIG_API ReprojectionAccuracy : public BaseConfig {
public:
    /// Takes ownership of `configInfo`, a results document: never pass a manager's document. Null gives the accessor a
    /// new private document. `sectionID` tells apart several sets of whole-display values.
    ReprojectionAccuracy(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ReprojectionAccuracy() override;
    /// The three values for the whole display become -1.0: not measured.
    void initialize() override;

    /// An accessor of the results in a file, with an empty section ID; the caller deletes it. Throws CorvaneException for a
    /// file that cannot be opened or is malformed, as ConfigInfo's file constructor does.
    static ReprojectionAccuracy* loadFromFile(const std::wstring& path);

    // The results for the whole display.

    double getMaxError() const;  ///< the largest reprojection error (pixels); 0.0 when missing
    void setMaxError(double value);
    double getRMSError() const;  ///< root mean square of the reprojection errors (pixels); 0.0 when missing
    void setRMSError(double value);
    double getOverlapPercentage() const;  ///< the share of the measured overlap (percent); 0.0 when missing
    void setOverlapPercentage(double value);

    // The results for one camera. A setter makes what the document does not hold of that camera yet.

    /// The largest reprojection error of that camera (pixels); 0.0 when missing.
    double getMaxError(const std::wstring& cameraID) const;
    void setMaxError(const std::wstring& cameraID, double value);
    /// Root mean square of the reprojection errors of that camera (pixels); 0.0 when missing.
    double getRMSError(const std::wstring& cameraID) const;
    void setRMSError(const std::wstring& cameraID, double value);
    /// The share of the measured overlap, for that camera (percent); 0.0 when missing.
    double getOverlapPercentage(const std::wstring& cameraID) const;
    void setOverlapPercentage(const std::wstring& cameraID, double value);

    /// Writes the document as "temp.results" into the folder that UlvanoDiagnostics::getDataSubDirectory() gives, wherever
    /// it was loaded from. Returns true. Throws CorvaneException when the file cannot be written; it then stands as it was.
    bool saveResults();

private:
    double readGlobal(const XMLConfig::detail::Descriptor<double>& item) const;
    void writeGlobal(const XMLConfig::detail::Descriptor<double>& item, double value);
    double readCamera(const XMLConfig::detail::Descriptor<double>& item, const std::wstring& cameraID) const;
    void writeCamera(const XMLConfig::detail::Descriptor<double>& item, const std::wstring& cameraID, double value);

    std::unique_ptr<ConfigInfo> m_results;  ///< null when the base owns the document
};
