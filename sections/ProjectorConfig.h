#pragma once

#include <string>

#include "base/BaseConfig.h"

/// One projector: identity and device, resolutions, lamps, blends, the image channel it serves, black level, start pose.
///
/// A getter of a missing item gives the setting's default and creates nothing; a setter stores at once. Image resolution,
/// scaling mode, portrait mode, box size and box spacing come from the "Geometry" section, the motorised-blend commands
/// from the "System" section, while the projector has none of its own. All angles are in radians.
/// The order of the virtual members is part of the interface.
class XMLCONFIG_API ProjectorConfig : public BaseConfig {
public:
    static const std::wstring LAMP_MODE_SINGLE1;  ///< "Single1"
    static const std::wstring LAMP_MODE_SINGLE2;  ///< "Single2"
    static const std::wstring LAMP_MODE_DUAL;     ///< "Dual"

    /// `configInfo` is borrowed; null gives the accessor a private document. Writes nothing.
    ProjectorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjectorConfig() override;
    /// Writes a new projector's values, named "Channel_" and its identifier; what is inherited stays unset.
    void initialize() override;

    virtual std::wstring getName() const;
    virtual void setName(const std::wstring& name);
    /// XML text of the device's description; empty when there is none.
    virtual std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException, changing nothing,
    /// for text that is not one well-formed element.
    virtual void setDeviceSnippet(const std::wstring& snippet);
    virtual std::wstring getDeviceSnippetOriginal() const;
    virtual int getResolutionX() const;  ///< pixels
    virtual void setResolutionX(int pixels);
    virtual int getResolutionY() const;  ///< pixels
    virtual void setResolutionY(int pixels);

    // Six settings that are inherited from "Geometry" until they are set, and again once they are unset.

    virtual int getImageResolutionX() const;  ///< pixels
    virtual void setImageResolutionX(int pixels);
    virtual void unsetImageResolutionX();
    virtual int getImageResolutionY() const;  ///< pixels
    virtual void setImageResolutionY(int pixels);
    virtual void unsetImageResolutionY();
    virtual int getInputImageScalingMode() const;  ///< INPUT_IMAGE_SCALING_MODE_…
    virtual void setInputImageScalingMode(int mode);
    virtual void unsetInputImageScalingMode();
    virtual int getPortraitMode() const;
    virtual void setPortraitMode(int mode);
    virtual void unsetPortraitMode();
    virtual Point_2Dim<int> getBoxSize() const;
    virtual void setBoxSize(const Point_2Dim<int>& size);
    virtual void unsetBoxSize();
    virtual double getBoxSpacing() const;
    virtual void setBoxSpacing(double spacing);
    virtual void unsetBoxSpacing();

    virtual double getGamma() const;
    virtual void setGamma(double gamma);
    virtual double getLampPower() const;
    virtual void setLampPower(double power);
    virtual int getColourUser() const;
    virtual void setColourUser(int user);
    /// LAMP_MODE_…; any other stored text reads as "".
    virtual std::wstring getLampMode() const;
    /// Stores any text.
    virtual void setLampMode(const std::wstring& mode);
    virtual double getBlendPercentTop() const;  ///< -1 when missing, as for the other edges
    virtual void setBlendPercentTop(double percent);
    virtual double getBlendPercentBottom() const;
    virtual void setBlendPercentBottom(double percent);
    virtual double getBlendPercentRight() const;
    virtual void setBlendPercentRight(double percent);
    virtual double getBlendPercentLeft() const;
    virtual void setBlendPercentLeft(double percent);

    // The image channel the projector serves; 0 radians when missing.

    virtual double getChannelExtentHeadingYaw() const;
    virtual void setChannelExtentHeadingYaw(double radians);
    virtual double getChannelExtentHeadingPitch() const;
    virtual void setChannelExtentHeadingPitch(double radians);
    virtual double getChannelExtentHeadingRoll() const;
    virtual void setChannelExtentHeadingRoll(double radians);
    virtual double getChannelExtentVFOVTop() const;
    virtual void setChannelExtentVFOVTop(double radians);
    virtual double getChannelExtentVFOVBottom() const;
    virtual void setChannelExtentVFOVBottom(double radians);
    virtual double getChannelExtentHFOVLeft() const;
    void setChannelExtentHFOVLeft(double radians);  ///< not virtual, unlike its neighbours
    virtual double getChannelExtentHFOVRight() const;
    virtual void setChannelExtentHFOVRight(double radians);
    /// Heading, fields of view and eye point in one; its resolution is 1 by 1.
    virtual Viewport getChannelExtentsAsViewport() const;
    /// Writes heading, fields of view and eye point; the viewport's resolution is not kept.
    virtual void setChannelExtentsFromViewport(const Viewport& viewport);

    virtual Frustum getDesignedFrustum() const;  ///< all zeros when missing
    virtual void setDesignedFrustum(const Frustum& frustum);
    virtual double getDesignedLumens() const;
    virtual void setDesignedLumens(double lumens);
    virtual double getScreenAreaLeft() const;  ///< -1000 when missing, as for the other edges
    virtual void setScreenAreaLeft(double position);
    virtual double getScreenAreaRight() const;
    virtual void setScreenAreaRight(double position);
    virtual double getScreenAreaTop() const;
    virtual void setScreenAreaTop(double position);
    virtual double getScreenAreaBottom() const;
    virtual void setScreenAreaBottom(double position);
    virtual double getBlackLevel() const;
    virtual void setBlackLevel(double level);
    virtual BlackLevelBlending::PondOfMirrors getPondOfMirrors() const;
    virtual void setPondOfMirrors(const BlackLevelBlending::PondOfMirrors& pond);
    virtual double getBlackLevelBoostFactor() const;
    virtual void setBlackLevelBoostFactor(double factor);
    virtual int getBlackLevelTint() const;
    virtual void setBlackLevelTint(int tint);

    // Inherited from "System" until set; setting an empty text removes the projector's own command.

    virtual std::wstring getMotoBlendInitCommand() const;
    virtual std::wstring getMotoBlendOpenCommand() const;
    virtual std::wstring getMotoBlendCloseCommand() const;
    virtual void setMotoBlendInitCommand(const std::wstring& command);
    virtual void setMotoBlendOpenCommand(const std::wstring& command);
    virtual void setMotoBlendCloseCommand(const std::wstring& command);

    virtual int getFitOrder() const;
    virtual void setFitOrder(int order);
    virtual Point_3Dim<double> getEyePoint() const;
    virtual void setEyePoint(const Point_3Dim<double>& point);
    virtual std::wstring getProjectionModelFilename() const;
    virtual void setProjectionModelFilename(const std::wstring& file);
    virtual std::wstring getProjectionModelScript() const;
    virtual void setProjectionModelScript(const std::wstring& script);
    virtual std::wstring getProjectionLayoutFilename() const;
    virtual void setProjectionLayoutFilename(const std::wstring& file);
    virtual std::wstring getSolverType() const;

    // The pose a solver starts from; other tools write it.

    virtual Point_3Dim<double> getInitialYPR() const;
    virtual Point_3Dim<double> getInitialXYZ() const;
    virtual double getInitialF() const;
    virtual double getInitialAspectRatio() const;
    virtual Point_2Dim<double> getInitialOffset() const;  ///< pixels; half of getResolutionX() and -Y() when missing
    virtual bool getAutoInitIntrinsics() const;           ///< whether the document gives no initial F
    virtual bool getAutoInitExtrinsics() const;           ///< whether the document gives no initial XYZ

    virtual std::wstring getRedGreenAlignmentImageName() const;
    virtual void setRedGreenAlignmentImageName(const std::wstring& name);
    virtual int getPellinorWarpLatency() const;
    virtual void setPellinorWarpLatency(int latency);

    std::wstring getAssociatedCameraId1() const;
    void setAssociatedCameraId1(const std::wstring& cameraID);
    std::wstring getAssociatedCameraId2() const;
    void setAssociatedCameraId2(const std::wstring& cameraID);
    std::wstring getOldUID() const;  ///< the identifier before the last rename; "" when never renamed

private:
    template <typename T>
    Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> readInherited(
        const XMLConfig::detail::Descriptor<T>& item) const;
    template <typename T>
    void unset(const XMLConfig::detail::Descriptor<T>& item);
    void writeOrUnset(const XMLConfig::detail::Descriptor<std::wstring>& item, const std::wstring& value);
};
