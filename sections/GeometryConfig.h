#pragma once

#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"
#include "platform/GridSize.h"
#include "platform/MapperType.h"
#include "store/ValueTypes.h"

namespace BlackLevelBlending {

/// How the black level of overlapping projectors is evened out. The application knows more methods than are named here: any
/// stored number may be cast to it.
enum BlackLevelMethod : int { BlackLevelMethodDefault = 0 };

}  // namespace BlackLevelBlending

/// The settings of the geometric solve, the one "Geometry" section, and the display-wide defaults of the projectors.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; setters store values as given,
/// without a check. The accessor keeps no values. Errors of the document reach the caller unchanged.
/// The order of the virtual members is part of the interface: do not reorder them.
///
/// Its settings: sections/GeometryItems.h and, as a page, docs/settings.md#geometry.
class XMLCONFIG_API GeometryConfig : public BaseConfig {
public:
    /// The mappers the solve can fit with, number by number as MapperType. Stored numbers: do not change.
    enum FitSolver : int {
        FitSolverLinear = 0,
        FitSolverPolynomial = 1,
        FitSolverDefault = 2,
        FitSolverSpline = 5,
        FitSolverPerspective = 7,
        FitSolverHybrid = 8
    };
    /// How mapper blobs are encoded in Pellinor runs. The application knows more methods than are named here: any stored
    /// number may be cast to it.
    enum PellinorBlobEncodingMethod : int { PellinorBlobEncodingDefault = 0 };

    /// Borrows the document (null: a private one). Writes nothing.
    GeometryConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~GeometryConfig() override;
    /// Writes the values of a new document by calling the setters, those of a subclass too: 0 projectors in a layout of 0 by
    /// 0, where missing items read 1, and for the rest what a missing item gives. It writes all, or nothing where memory
    /// runs out.
    void initialize() override;

    virtual int getProjectorCount() const;  ///< number of projectors in the layout; 1 when missing
    virtual void setProjectorCount(int value);
    virtual int getProjectorLayoutWidth() const;  ///< columns of the projector layout; 1 when missing
    virtual void setProjectorLayoutWidth(int value);
    virtual int getProjectorLayoutHeight() const;  ///< rows of the projector layout; 1 when missing
    virtual void setProjectorLayoutHeight(int value);
    virtual bool getTilingEnabled() const;  ///< whether the projectors tile one picture; false when missing
    virtual void setTilingEnabled(bool value);
    virtual bool getValidateWarps() const;  ///< whether computed warps are checked before they are used; true when missing
    virtual void setValidateWarps(bool value);
    virtual int getMemoryLocation() const;  ///< number of the projector memory that takes the warps; 0 when missing
    virtual void setMemoryLocation(int value);
    /// Name of the projector memory that takes the warps; empty when missing.
    virtual std::wstring getMemoryLocationName() const;
    virtual void setMemoryLocationName(const std::wstring& value);
    virtual int getMaxGridWidth() const;  ///< most columns of a warp grid; 11 when missing
    virtual void setMaxGridWidth(int value);
    virtual int getMaxGridHeight() const;  ///< most rows of a warp grid; 11 when missing
    virtual void setMaxGridHeight(int value);
    /// How far a grid point may move, as a fraction of the grid's spacing; 0.66 when missing.
    virtual double getGridMovementFactor() const;
    virtual void setGridMovementFactor(double value);
    /// Whether the content's mask is applied to mapper blobs shown within running content; true when missing.
    virtual bool getUseContentMaskingForBlobsForSubliminal() const;
    virtual void setUseContentMaskingForBlobsForSubliminal(bool value);
    /// How Pellinor runs encode their mapper blobs; 0 when missing.
    virtual PellinorBlobEncodingMethod getPellinorBlobEncoding() const;
    virtual void setPellinorBlobEncoding(PellinorBlobEncodingMethod value);
    /// Whether blends are compensated where their brightness falls short; true when missing.
    virtual bool getUseBlendUndershootCompensation() const;
    virtual void setUseBlendUndershootCompensation(bool value);
    /// How the brightness of the projectors is evened out by itself; 0 for not at all; 0 when missing.
    virtual int getUseAutoBrightnessUniformity() const;
    virtual void setUseAutoBrightnessUniformity(int value);
    virtual bool getBlendEdgeResampling() const;  ///< whether the edges of blends are sampled anew; false when missing
    virtual void setBlendEdgeResampling(bool value);
    /// Strength of the compensation of blends whose brightness falls short; 40 when missing.
    virtual int getBlendUndershootCompensation() const;
    virtual void setBlendUndershootCompensation(int value);
    /// Whether the blends of every combination of projectors are kept; false when missing.
    virtual bool getPersistAllBlendCombinations() const;
    virtual void setPersistAllBlendCombinations(bool value);
    virtual bool getBlendRun() const;  ///< whether a run computes blends; true when missing
    virtual void setBlendRun(bool value);
    /// How projector areas outside the screen are masked by themselves; 0 for not at all; 0 when missing.
    virtual int getAutoMaskingType() const;
    virtual void setAutoMaskingType(int value);
    /// Number of earlier measurements of mapper blobs that are kept; 5 when missing.
    virtual int getBlobNumHistorical() const;
    virtual void setBlobNumHistorical(int value);
    /// Most iterations of a calibration from mapper blobs; 50 when missing.
    virtual int getBlobNumCalibrationIterations() const;
    virtual bool getDoIterations() const;  ///< whether the solve is repeated on its own results; false when missing
    virtual bool getMarkerless() const;    ///< whether a run goes without markers on the screen; false when missing
    virtual void setMarkerless(bool value);
    /// Whether all projectors are solved for together in a last step; false when missing.
    virtual bool getGlobalOptimization() const;
    virtual void setGlobalOptimization(bool value);
    virtual bool getDoSphericalBlend() const;  ///< whether blends are computed spherically; true when missing
    virtual void setDoSphericalBlend(bool value);
    virtual int getFitOrder() const;  ///< order of the function that is fitted to the mapper blobs; 3 when missing
    virtual void setFitOrder(int value);
    /// Mapper that fits the warps; FitSolverDefault (2) when missing, and for every stored number that has no name here.
    virtual FitSolver getFitSolver() const;
    virtual void setFitSolver(FitSolver value);  ///< stores any number
    /// Whether a run computes the blends only and keeps the warps; false when missing.
    virtual bool getDoCalculateBlendsOnlyRun() const;
    virtual void setDoCalculateBlendsOnlyRun(bool value);
    /// Light added to dark areas to even out the black level; 0.0 when missing.
    virtual double getBlackLevelAddedLight() const;
    virtual void setBlackLevelAddedLight(double value);
    virtual double getBlackLevelSlope() const;  ///< slope of the black level's correction; 0.0 when missing
    virtual void setBlackLevelSlope(double value);
    /// Method of black-level blending; 0 when missing.
    virtual BlackLevelBlending::BlackLevelMethod getBlackLevelMethod() const;
    virtual void setBlackLevelMethod(BlackLevelBlending::BlackLevelMethod value);
    /// Whether black-level blending allows for the size of pixels on the screen; false when missing.
    virtual bool getBlackLevelPixelSizeCompensation() const;
    virtual void setBlackLevelPixelSizeCompensation(bool value);
    /// Portrait orientation of projectors without one of their own; 0 for landscape; 0 when missing.
    virtual int getPortraitMode() const;
    virtual void setPortraitMode(int value);
    /// Whether size and spacing of mapper blobs are chosen by themselves; true when missing.
    virtual bool getAutomaticMapperSettingsEnabled() const;
    virtual void setAutomaticMapperSettingsEnabled(bool value);
    /// Width and height of mapper blobs of projectors without a size of their own (pixels); 21, 21 when missing.
    virtual Point_2Dim<int> getBoxSize() const;
    virtual void setBoxSize(const Point_2Dim<int>& value);
    /// Spacing of mapper blobs, as a multiple of their size, of projectors without one of their own; 1.5 when missing.
    virtual double getBoxSpacing() const;
    virtual void setBoxSpacing(double value);
    /// Image width of projectors without one of their own (pixels); 1400 when missing.
    virtual int getImageResolutionX() const;
    virtual void setImageResolutionX(int value);
    /// Image height of projectors without one of their own (pixels); 1050 when missing.
    virtual int getImageResolutionY() const;
    virtual void setImageResolutionY(int value);
    /// How projectors without a mode of their own scale their input; 0 when missing.
    virtual int getInputImageScalingMode() const;
    virtual void setInputImageScalingMode(int value);
    /// Number of projectors stacked on one area, against what the layout says; -1 for no override; -1 when missing.
    virtual int getUserStackHeightOverride() const;
    virtual bool getMaskMappersEnabled() const;  ///< whether mapper blobs are masked; false when missing
    virtual void setMaskMappersEnabled(bool value);
    /// Whether a projector shows a test pattern while it is busy; true when missing.
    virtual bool getProjectorBusyTestPatternEnabled() const;
    virtual void setProjectorBusyTestPatternEnabled(bool value);
    virtual bool getDoGatherValidation() const;  ///< whether gathered camera images are checked; false when missing
    virtual void setDoGatherValidation(bool value);
    virtual int getGatherTries() const;  ///< how often gathering is tried; 2 when missing
    virtual void setGatherTries(int value);
    /// Whether a failed check of gathered camera images fails the run; false when missing.
    virtual bool getGatherValidationFailsRun() const;
    virtual void setGatherValidationFailsRun(bool value);
    /// Distance between neighbouring blobs, as a multiple of the usual, beyond which a channel counts as not covered; 4.0
    /// when missing.
    virtual double getChannelCoverageGatherValidationDistanceFactor() const;
    virtual void setChannelCoverageGatherValidationDistanceFactor(double value);
    /// Share of a channel that may stay uncovered in a check of gathered camera images (percent); 20.0 when missing.
    virtual double getChannelCoverageGatherValidationPercentage() const;
    virtual void setChannelCoverageGatherValidationPercentage(double value);

    bool getDoPellinorWarpValidation() const;  ///< whether Pellinor runs check the warps they compute; false when missing
    void setDoPellinorWarpValidation(bool value);
    /// What getProjectorLayoutHeight() and getProjectorLayoutWidth() give: the number of rows and of columns.
    Corvane::GridSize getSimpleLayoutGridSize() const;
    /// Calls setProjectorLayoutHeight() and setProjectorLayoutWidth(); stores both, or nothing where memory runs out.
    void setSimpleLayoutGridSize(const Corvane::GridSize& value);

    static Point_2Dim<int> getDefaultBoxSize();  ///< what getBoxSize() gives for a missing item: 21, 21 (pixels)
    static double getDefaultBoxSpacing();        ///< what getBoxSpacing() gives for a missing item: 1.5 box sizes
    /// What getAutomaticMapperSettingsEnabled() gives for a missing item: true.
    static bool getDefaultAutomaticMapperSettingsEnabledState();
    /// The key under which that setting is stored: "Enable_Automatic_Mapper_Settings".
    static std::wstring getAutomaticMapperSettingsEnabledXmlTagName();
    /// The solver of the same number as the mapper; FitSolverDefault where there is none of that number.
    static FitSolver mapperTypeToGeoConfigFitSolver(MapperType mapperType);
    /// The mapper of the same number as the solver; MapperDefault where there is none of that number.
    static MapperType geoConfigFitSolverToMapperType(FitSolver fitSolver);
};
