#pragma once

#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"
#include "platform/GridSize.h"
#include "platform/MapperType.h"
#include "store/ValueTypes.h"

namespace BlackLevelBlending {

/// How the black level of overlapping projectors is evened out. Any stored number may be cast to it.
enum BlackLevelMethod : int { BlackLevelMethodDefault = 0 };

}  // namespace BlackLevelBlending

/// The settings of the geometric solve, the one "Geometry" section, and the display-wide defaults of the projectors.
///
/// Getters give the named default for a missing item and create nothing. The accessor keeps no state. Errors of the
/// document reach the caller unchanged.
/// The order of the virtual members is part of the interface: do not reorder them.
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
    /// How mapper blobs are encoded in Pellinor runs. Any stored number may be cast to it.
    enum PellinorBlobEncodingMethod : int { PellinorBlobEncodingDefault = 0 };

    /// Borrows the document (null: a private one). Writes nothing.
    GeometryConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~GeometryConfig() override;
    /// Writes what a new document holds, through the setters; no projector and no layout, unlike the defaults of
    /// missing items.
    void initialize() override;

    virtual int getProjectorCount() const;  ///< 1 when missing
    virtual void setProjectorCount(int value);
    virtual int getProjectorLayoutWidth() const;  ///< 1 when missing
    virtual void setProjectorLayoutWidth(int value);
    virtual int getProjectorLayoutHeight() const;  ///< 1 when missing
    virtual void setProjectorLayoutHeight(int value);
    virtual bool getTilingEnabled() const;  ///< false when missing
    virtual void setTilingEnabled(bool value);
    virtual bool getValidateWarps() const;  ///< true when missing
    virtual void setValidateWarps(bool value);
    virtual int getMemoryLocation() const;  ///< 0 when missing
    virtual void setMemoryLocation(int value);
    virtual std::wstring getMemoryLocationName() const;  ///< empty when missing
    virtual void setMemoryLocationName(const std::wstring& value);
    virtual int getMaxGridWidth() const;  ///< 11 when missing
    virtual void setMaxGridWidth(int value);
    virtual int getMaxGridHeight() const;  ///< 11 when missing
    virtual void setMaxGridHeight(int value);
    virtual double getGridMovementFactor() const;  ///< 0.66 when missing
    virtual void setGridMovementFactor(double value);
    virtual bool getUseContentMaskingForBlobsForSubliminal() const;  ///< true when missing
    virtual void setUseContentMaskingForBlobsForSubliminal(bool value);
    virtual PellinorBlobEncodingMethod getPellinorBlobEncoding() const;  ///< 0 when missing
    virtual void setPellinorBlobEncoding(PellinorBlobEncodingMethod value);
    virtual bool getUseBlendUndershootCompensation() const;  ///< true when missing
    virtual void setUseBlendUndershootCompensation(bool value);
    virtual int getUseAutoBrightnessUniformity() const;  ///< 0 when missing
    virtual void setUseAutoBrightnessUniformity(int value);
    virtual bool getBlendEdgeResampling() const;  ///< false when missing
    virtual void setBlendEdgeResampling(bool value);
    virtual int getBlendUndershootCompensation() const;  ///< 40 when missing
    virtual void setBlendUndershootCompensation(int value);
    virtual bool getPersistAllBlendCombinations() const;  ///< false when missing
    virtual void setPersistAllBlendCombinations(bool value);
    virtual bool getBlendRun() const;  ///< true when missing
    virtual void setBlendRun(bool value);
    virtual int getAutoMaskingType() const;  ///< 0 when missing
    virtual void setAutoMaskingType(int value);
    virtual int getBlobNumHistorical() const;  ///< 5 when missing
    virtual void setBlobNumHistorical(int value);
    virtual int getBlobNumCalibrationIterations() const;  ///< 50 when missing
    virtual bool getDoIterations() const;                 ///< false when missing
    virtual bool getMarkerless() const;                   ///< false when missing
    virtual void setMarkerless(bool value);
    virtual bool getGlobalOptimization() const;  ///< false when missing
    virtual void setGlobalOptimization(bool value);
    virtual bool getDoSphericalBlend() const;  ///< true when missing
    virtual void setDoSphericalBlend(bool value);
    virtual int getFitOrder() const;  ///< 3 when missing
    virtual void setFitOrder(int value);
    virtual FitSolver getFitSolver() const;  ///< 2 when missing, and for every stored number without a solver
    virtual void setFitSolver(FitSolver value);
    virtual bool getDoCalculateBlendsOnlyRun() const;  ///< false when missing
    virtual void setDoCalculateBlendsOnlyRun(bool value);
    virtual double getBlackLevelAddedLight() const;  ///< 0.0 when missing
    virtual void setBlackLevelAddedLight(double value);
    virtual double getBlackLevelSlope() const;  ///< 0.0 when missing
    virtual void setBlackLevelSlope(double value);
    virtual BlackLevelBlending::BlackLevelMethod getBlackLevelMethod() const;  ///< 0 when missing
    virtual void setBlackLevelMethod(BlackLevelBlending::BlackLevelMethod value);
    virtual bool getBlackLevelPixelSizeCompensation() const;  ///< false when missing
    virtual void setBlackLevelPixelSizeCompensation(bool value);
    virtual int getPortraitMode() const;  ///< 0 when missing
    virtual void setPortraitMode(int value);
    virtual bool getAutomaticMapperSettingsEnabled() const;  ///< true when missing
    virtual void setAutomaticMapperSettingsEnabled(bool value);
    virtual Point_2Dim<int> getBoxSize() const;  ///< 21, 21 when missing
    virtual void setBoxSize(const Point_2Dim<int>& value);
    virtual double getBoxSpacing() const;  ///< 1.5 when missing
    virtual void setBoxSpacing(double value);
    virtual int getImageResolutionX() const;  ///< 1400 when missing
    virtual void setImageResolutionX(int value);
    virtual int getImageResolutionY() const;  ///< 1050 when missing
    virtual void setImageResolutionY(int value);
    virtual int getInputImageScalingMode() const;  ///< 0 when missing
    virtual void setInputImageScalingMode(int value);
    virtual int getUserStackHeightOverride() const;  ///< -1 when missing
    virtual bool getMaskMappersEnabled() const;      ///< false when missing
    virtual void setMaskMappersEnabled(bool value);
    virtual bool getProjectorBusyTestPatternEnabled() const;  ///< true when missing
    virtual void setProjectorBusyTestPatternEnabled(bool value);
    virtual bool getDoGatherValidation() const;  ///< false when missing
    virtual void setDoGatherValidation(bool value);
    virtual int getGatherTries() const;  ///< 2 when missing
    virtual void setGatherTries(int value);
    virtual bool getGatherValidationFailsRun() const;  ///< false when missing
    virtual void setGatherValidationFailsRun(bool value);
    virtual double getChannelCoverageGatherValidationDistanceFactor() const;  ///< 4.0 when missing
    virtual void setChannelCoverageGatherValidationDistanceFactor(double value);
    virtual double getChannelCoverageGatherValidationPercentage() const;  ///< 20.0 when missing
    virtual void setChannelCoverageGatherValidationPercentage(double value);

    bool getDoPellinorWarpValidation() const;  ///< false when missing
    void setDoPellinorWarpValidation(bool value);
    /// The projector layout as one value.
    Corvane::GridSize getSimpleLayoutGridSize() const;
    void setSimpleLayoutGridSize(const Corvane::GridSize& value);

    static Point_2Dim<int> getDefaultBoxSize();
    static double getDefaultBoxSpacing();
    static bool getDefaultAutomaticMapperSettingsEnabledState();
    static std::wstring getAutomaticMapperSettingsEnabledXmlTagName();
    /// The same number; 2 for a number without a solver.
    static FitSolver mapperTypeToGeoConfigFitSolver(MapperType mapperType);
    /// The same number; 2 for a number without a mapper.
    static MapperType geoConfigFitSolverToMapperType(FitSolver fitSolver);
};
