#pragma once

#include <string>

#include "base/BaseConfig.h"

/// One projector: identity and device, resolutions, lamps, blends, the image channel it serves, black level, start pose.
///
/// A getter of a missing item gives the setting's default and creates nothing; a setter stores at once. Image resolution,
/// scaling mode, portrait mode, box size and box spacing come from the "Geometry" section, the motorised-blend commands
/// from the "System" section, while the projector has none of its own. All angles are in radians.
/// The order of the virtual members is part of the interface.
/// Its settings: sections/ProjectorItems.h and, as a page, docs/settings.md#projector.
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

    virtual std::wstring getName() const;  ///< name people give the projector
    virtual void setName(const std::wstring& name);
    /// How the projector is connected, as its driver describes it. An XML text; empty when there is none.
    virtual std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException, changing nothing,
    /// for text that is not one well-formed element.
    virtual void setDeviceSnippet(const std::wstring& snippet);
    /// The original device snippet, kept by other tools and only read here.
    virtual std::wstring getDeviceSnippetOriginal() const;
    virtual int getResolutionX() const;  ///< native width of the projector (pixels)
    virtual void setResolutionX(int pixels);
    virtual int getResolutionY() const;  ///< native height of the projector (pixels)
    virtual void setResolutionY(int pixels);

    // Six settings that are inherited from "Geometry" until they are set, and again once they are unset.

    virtual int getImageResolutionX() const;  ///< width of the image that is fed to the projector (pixels)
    virtual void setImageResolutionX(int pixels);
    virtual void unsetImageResolutionX();
    virtual int getImageResolutionY() const;  ///< height of the image that is fed to the projector (pixels)
    virtual void setImageResolutionY(int pixels);
    virtual void unsetImageResolutionY();
    /// How the input image is fitted to the projector; INPUT_IMAGE_SCALING_MODE_*
    virtual int getInputImageScalingMode() const;
    virtual void setInputImageScalingMode(int mode);
    virtual void unsetInputImageScalingMode();
    virtual int getPortraitMode() const;  ///< orientation of the image; 0 is landscape
    virtual void setPortraitMode(int mode);
    virtual void unsetPortraitMode();
    virtual Point_2Dim<int> getBoxSize() const;  ///< width and height of a box of the mapper's pattern (pixels)
    virtual void setBoxSize(const Point_2Dim<int>& size);
    virtual void unsetBoxSize();
    virtual double getBoxSpacing() const;  ///< distance between the boxes of the mapper's pattern
    virtual void setBoxSpacing(double spacing);
    virtual void unsetBoxSpacing();

    virtual double getGamma() const;  ///< exponent of the projector's brightness response
    virtual void setGamma(double gamma);
    virtual double getLampPower() const;  ///< power the lamps are run at (percent)
    virtual void setLampPower(double power);
    virtual int getColourUser() const;  ///< number of the projector's user colour setting
    virtual void setColourUser(int user);
    /// Lamps in use. LAMP_MODE_*; any other stored text reads as "".
    virtual std::wstring getLampMode() const;
    /// Stores any text.
    virtual void setLampMode(const std::wstring& mode);
    /// Part of the image taken by the blend at its top edge; -1 when unknown (percent); -1 when missing, as for the other
    /// edges.
    virtual double getBlendPercentTop() const;
    virtual void setBlendPercentTop(double percent);
    /// Part of the image taken by the blend at its bottom edge; -1 when unknown (percent).
    virtual double getBlendPercentBottom() const;
    virtual void setBlendPercentBottom(double percent);
    /// Part of the image taken by the blend at its right edge; -1 when unknown (percent).
    virtual double getBlendPercentRight() const;
    virtual void setBlendPercentRight(double percent);
    /// Part of the image taken by the blend at its left edge; -1 when unknown (percent).
    virtual double getBlendPercentLeft() const;
    virtual void setBlendPercentLeft(double percent);

    // The image channel the projector serves; 0 radians when missing.

    virtual double getChannelExtentHeadingYaw() const;  ///< yaw of the image channel's line of sight (radians)
    virtual void setChannelExtentHeadingYaw(double radians);
    virtual double getChannelExtentHeadingPitch() const;  ///< pitch of the image channel's line of sight (radians)
    virtual void setChannelExtentHeadingPitch(double radians);
    virtual double getChannelExtentHeadingRoll() const;  ///< roll of the image channel about its line of sight (radians)
    virtual void setChannelExtentHeadingRoll(double radians);
    /// Vertical angle from the line of sight to the channel's top edge (radians).
    virtual double getChannelExtentVFOVTop() const;
    virtual void setChannelExtentVFOVTop(double radians);
    /// Vertical angle from the line of sight to the channel's bottom edge (radians).
    virtual double getChannelExtentVFOVBottom() const;
    virtual void setChannelExtentVFOVBottom(double radians);
    /// Horizontal angle from the line of sight to the channel's left edge (radians).
    virtual double getChannelExtentHFOVLeft() const;
    void setChannelExtentHFOVLeft(double radians);  ///< not virtual, unlike its neighbours
    /// Horizontal angle from the line of sight to the channel's right edge (radians).
    virtual double getChannelExtentHFOVRight() const;
    virtual void setChannelExtentHFOVRight(double radians);
    /// Heading, fields of view and eye point in one; its resolution is 1 by 1.
    virtual Viewport getChannelExtentsAsViewport() const;
    /// Writes heading, fields of view and eye point; the viewport's resolution is not kept.
    virtual void setChannelExtentsFromViewport(const Viewport& viewport);

    /// Pose, angles (radians) and resolution the installation's design gives the projector; all zeros when missing.
    virtual Frustum getDesignedFrustum() const;
    virtual void setDesignedFrustum(const Frustum& frustum);
    virtual double getDesignedLumens() const;  ///< brightness the installation's design gives the projector (lumens)
    virtual void setDesignedLumens(double lumens);
    /// Left edge of the projector's part of the screen, a fraction of its width; -1000 when unknown; -1000 when missing, as
    /// for the other edges.
    virtual double getScreenAreaLeft() const;
    virtual void setScreenAreaLeft(double position);
    /// Right edge of the projector's part of the screen, a fraction of its width; -1000 when unknown.
    virtual double getScreenAreaRight() const;
    virtual void setScreenAreaRight(double position);
    /// Top edge of the projector's part of the screen, a fraction of its height; -1000 when unknown.
    virtual double getScreenAreaTop() const;
    virtual void setScreenAreaTop(double position);
    /// Bottom edge of the projector's part of the screen, a fraction of its height; -1000 when unknown.
    virtual double getScreenAreaBottom() const;
    virtual void setScreenAreaBottom(double position);
    virtual double getBlackLevel() const;  ///< light the projector emits when it shows black
    virtual void setBlackLevel(double level);
    /// Flags of the image edges (top, bottom, left, right) whose black level is mirrored.
    virtual BlackLevelBlending::PondOfMirrors getPondOfMirrors() const;
    virtual void setPondOfMirrors(const BlackLevelBlending::PondOfMirrors& pond);
    virtual double getBlackLevelBoostFactor() const;  ///< factor on the light that is added to even out the black level
    virtual void setBlackLevelBoostFactor(double factor);
    virtual int getBlackLevelTint() const;  ///< tint of the light that is added to even out the black level; 0 is neutral
    virtual void setBlackLevelTint(int tint);

    // Inherited from "System" until set; setting an empty text removes the projector's own command.

    virtual std::wstring getMotoBlendInitCommand() const;   ///< command that readies the motorised blend plates
    virtual std::wstring getMotoBlendOpenCommand() const;   ///< command that opens the motorised blend plates
    virtual std::wstring getMotoBlendCloseCommand() const;  ///< command that closes the motorised blend plates
    virtual void setMotoBlendInitCommand(const std::wstring& command);
    virtual void setMotoBlendOpenCommand(const std::wstring& command);
    virtual void setMotoBlendCloseCommand(const std::wstring& command);

    virtual int getFitOrder() const;  ///< order of the polynomial fitted to the projector's points
    virtual void setFitOrder(int order);
    virtual Point_3Dim<double> getEyePoint() const;  ///< where the viewer of the image channel is (x, y, z) (meters)
    virtual void setEyePoint(const Point_3Dim<double>& point);
    virtual std::wstring getProjectionModelFilename() const;  ///< file of the projector's projection model
    virtual void setProjectionModelFilename(const std::wstring& file);
    virtual std::wstring getProjectionModelScript() const;  ///< script that makes the projector's projection model
    virtual void setProjectionModelScript(const std::wstring& script);
    virtual std::wstring getProjectionLayoutFilename() const;  ///< file of the layout the projection model is part of
    virtual void setProjectionLayoutFilename(const std::wstring& file);
    virtual std::wstring getSolverType() const;  ///< name of the solver to use for the projector

    // The pose a solver starts from; other tools write it.

    virtual Point_3Dim<double> getInitialYPR() const;  ///< yaw, pitch and roll the pose solver starts from
    /// Position the pose solver starts from; found automatically when missing (meters).
    virtual Point_3Dim<double> getInitialXYZ() const;
    /// Focal length the pose solver starts from; lens values are found automatically when missing.
    virtual double getInitialF() const;
    virtual double getInitialAspectRatio() const;         ///< width of a pixel against its height, as the pose solver starts
    virtual Point_2Dim<double> getInitialOffset() const;  ///< pixels; half of getResolutionX() and -Y() when missing
    virtual bool getAutoInitIntrinsics() const;           ///< whether the document gives no initial F
    virtual bool getAutoInitExtrinsics() const;           ///< whether the document gives no initial XYZ

    /// Name of the red and green image the projector shows for alignment.
    virtual std::wstring getRedGreenAlignmentImageName() const;
    virtual void setRedGreenAlignmentImageName(const std::wstring& name);
    virtual int getPellinorWarpLatency() const;  ///< delay between sending a warp to the projector's warper and its effect
    virtual void setPellinorWarpLatency(int latency);

    std::wstring getAssociatedCameraId1() const;  ///< identifier of the first camera that observes the projector
    void setAssociatedCameraId1(const std::wstring& cameraID);
    std::wstring getAssociatedCameraId2() const;  ///< identifier of the second camera that observes the projector
    void setAssociatedCameraId2(const std::wstring& cameraID);
    std::wstring getOldUID() const;  ///< identifier the section had before it was last renamed; "" when never renamed

private:
    template <typename T>
    Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> readInherited(
        const XMLConfig::detail::Descriptor<T>& item) const;
    template <typename T>
    void unset(const XMLConfig::detail::Descriptor<T>& item);
    void writeOrUnset(const XMLConfig::detail::Descriptor<std::wstring>& item, const std::wstring& value);
};
