#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/BaseConfig.h"

/// The "TargetLocator" section: how the content that the projectors must show is described and located. Holds no state.
///
/// Every operation but the constructor is virtual, and initialize() and the tests of the data type go through them. The
/// order of the virtual members is part of the interface.
/// Its settings: sections/TargetLocatorItems.h and, as a page, docs/settings.md#targetlocator.
class XMLCONFIG_API TargetLocatorConfig : public BaseConfig {
public:
    TargetLocatorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~TargetLocatorConfig() override;
    /// A new section starts with overlaps of 0.05; it holds no correction tables.
    void initialize() override;

    /// How the target is described. One of the TARGET_DATA_ texts, or whatever else is stored. The older "Projector Pose" is
    /// replaced by "Projector Centric" in the document too, which makes it dirty. Missing: "Planar-basic".
    virtual std::wstring getDataType();
    /// False, and nothing is stored, for a text that is none of the data types; "Projector Pose" is none.
    virtual bool setDataType(const std::wstring& type);
    /// Where the viewer's eye is (meters). Missing: (0, 0, 0).
    virtual Point_3Dim<double> getEyePoint();
    virtual void setEyePoint(const Point_3Dim<double>& value);

    // Insets at the edges. Missing: 0.
    virtual double getLeftInset() const;  ///< how far the target stays inside the left edge
    virtual void setLeftInset(double value);
    virtual double getRightInset() const;  ///< how far the target stays inside the right edge
    virtual void setRightInset(double value);
    virtual double getTopInset() const;  ///< how far the target stays inside the top edge
    virtual void setTopInset(double value);
    virtual double getBottomInset() const;  ///< how far the target stays inside the bottom edge
    virtual void setBottomInset(double value);

    // Overlaps of neighbouring projectors, as fractions. Missing: 0.
    virtual double getHorizontalOverlap() const;  ///< wanted overlap of projectors side by side, as a fraction
    virtual void setHorizontalOverlap(double value);
    virtual double getVerticalOverlap() const;  ///< wanted overlap of projectors one above the other, as a fraction
    virtual void setVerticalOverlap(double value);
    /// Unit in which a user interface shows the overlaps. Only for showing: the overlaps stay fractions. Missing: "Percent".
    virtual std::wstring getOverlapDisplayUnit();
    virtual void setOverlapDisplayUnit(const std::wstring& value);

    // The mirror. Missing: zero.
    virtual Point_3Dim<double> getMirrorRotation();  ///< how the mirror is turned
    virtual void setMirrorRotation(const Point_3Dim<double>& value);
    virtual Point_3Dim<double> getMirrorTranslation();  ///< where the mirror is (meters)
    virtual void setMirrorTranslation(const Point_3Dim<double>& value);
    virtual double getMirrorRadius() const;  ///< radius of the mirror (meters)
    virtual void setMirrorRadius(double value);

    // Pairs of a measured and a corrected angle in degrees, as stored: AxisDistortionCorrection::cleanData makes them
    // a table that can be used. Missing: no pairs.
    /// Pairs of a measured and a corrected horizontal angle, one pair a line (degrees).
    virtual std::vector<std::pair<double, double>> getHorizontalCorrectionTable();
    virtual void setHorizontalCorrectionTable(const std::vector<std::pair<double, double>>& table);
    /// Pairs of a measured and a corrected vertical angle, one pair a line (degrees).
    virtual std::vector<std::pair<double, double>> getVerticalCorrectionTable();
    virtual void setVerticalCorrectionTable(const std::vector<std::pair<double, double>>& table);

    // These ask getDataType(), so an older data type is replaced here too.

    /// Spherical or collimated.
    virtual bool isTargetDataSpherical() const;
    virtual bool isTargetDataProjectorCentric() const;
    virtual bool isTargetDataCustomPlanar() const;
};
