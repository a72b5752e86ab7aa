#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/BaseConfig.h"

/// The "TargetLocator" section: how the content that the projectors must show is described and located.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; a setter stores at once and
/// checks nothing, where its comment says no more. The accessor keeps no values. Every operation is virtual, and
/// initialize() and the questions for the data type call them, those of a subclass too. The order of the virtual members is
/// part of the interface.
///
/// Its settings: sections/TargetLocatorItems.h and, as a page, docs/settings.md#targetlocator.
class XMLCONFIG_API TargetLocatorConfig : public BaseConfig {
public:
    /// Borrows the document (null: a private one). Writes nothing.
    TargetLocatorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~TargetLocatorConfig() override;
    /// Writes the values of a new section: overlaps of 0.05, and for the rest what a missing item gives. Correction tables
    /// are not written. All is written, or nothing where memory runs out.
    void initialize() override;

    /// How the target is described: one of TARGET_DATA_..., or whatever else is stored. The older "Projector Pose" reads as
    /// "Projector Centric" and is replaced by it in the document too, which makes that dirty. Missing: "Planar-basic".
    virtual std::wstring getDataType();
    /// Stores one of TARGET_DATA_... and returns true. For any other text, "Projector Pose" included, it stores nothing and
    /// returns false.
    virtual bool setDataType(const std::wstring& type);
    /// Where the viewer's eye is (meters). Missing: (0, 0, 0).
    virtual Point_3Dim<double> getEyePoint();
    virtual void setEyePoint(const Point_3Dim<double>& value);

    // Insets at the edges. The library gives them no unit.

    virtual double getLeftInset() const;  ///< how far the target stays inside the left edge; 0 when missing
    virtual void setLeftInset(double value);
    virtual double getRightInset() const;  ///< how far the target stays inside the right edge; 0 when missing
    virtual void setRightInset(double value);
    virtual double getTopInset() const;  ///< how far the target stays inside the top edge; 0 when missing
    virtual void setTopInset(double value);
    virtual double getBottomInset() const;  ///< how far the target stays inside the bottom edge; 0 when missing
    virtual void setBottomInset(double value);

    // Overlaps of neighbouring projectors, as fractions.

    /// Wanted overlap of projectors side by side, as a fraction; 0 when missing.
    virtual double getHorizontalOverlap() const;
    virtual void setHorizontalOverlap(double value);
    /// Wanted overlap of projectors one above the other, as a fraction; 0 when missing.
    virtual double getVerticalOverlap() const;
    virtual void setVerticalOverlap(double value);
    /// Unit in which a user interface shows the overlaps; they are stored as fractions all the same. Missing: "Percent".
    virtual std::wstring getOverlapDisplayUnit();
    virtual void setOverlapDisplayUnit(const std::wstring& value);

    // The mirror.

    virtual Point_3Dim<double> getMirrorRotation();  ///< how the mirror is turned; (0, 0, 0) when missing; no unit
    virtual void setMirrorRotation(const Point_3Dim<double>& value);
    virtual Point_3Dim<double> getMirrorTranslation();  ///< where the mirror is (meters); (0, 0, 0) when missing
    virtual void setMirrorTranslation(const Point_3Dim<double>& value);
    virtual double getMirrorRadius() const;  ///< radius of the mirror (meters); 0 when missing
    virtual void setMirrorRadius(double value);

    // Correction tables, as stored: AxisDistortionCorrection::cleanData makes them tables that can be used.

    /// Pairs of a measured and a corrected horizontal angle, one pair a line (degrees); no pairs when missing.
    virtual std::vector<std::pair<double, double>> getHorizontalCorrectionTable();
    virtual void setHorizontalCorrectionTable(const std::vector<std::pair<double, double>>& table);
    /// Pairs of a measured and a corrected vertical angle, one pair a line (degrees); no pairs when missing.
    virtual std::vector<std::pair<double, double>> getVerticalCorrectionTable();
    virtual void setVerticalCorrectionTable(const std::vector<std::pair<double, double>>& table);

    // These ask getDataType(), so that an older data type is replaced in the document here too.

    virtual bool isTargetDataSpherical() const;         ///< whether the data type is "Spherical" or "Collimated"
    virtual bool isTargetDataProjectorCentric() const;  ///< whether the data type is "Projector Centric"
    virtual bool isTargetDataCustomPlanar() const;      ///< whether the data type is "Custom Planar"
};
