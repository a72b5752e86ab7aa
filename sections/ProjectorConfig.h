#pragma once

#include <string>

#include "base/BaseConfig.h"

/// One projector: identity and device, resolutions, lamps, blends, the image channel it serves, black level, start pose.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; a setter stores at once and
/// checks nothing, where its comment says no more. Image resolution, scaling mode, portrait mode, box size and box spacing
/// come from the "Geometry" section, the motorised-blend commands from the "System" section, while the projector has none of
/// its own. The order of the virtual members is part of the interface.
///
/// Its settings: sections/ProjectorItems.h and, as a page, docs/settings.md#projector.
class XMLCONFIG_API ProjectorConfig : public BaseConfig {
public:
    static const std::wstring LAMP_MODE_SINGLE1;  ///< "Single1"
    static const std::wstring LAMP_MODE_SINGLE2;  ///< "Single2"
    static const std::wstring LAMP_MODE_DUAL;     ///< "Dual"

    /// `configInfo` is borrowed; null gives the accessor a private document. Writes nothing.
    ProjectorConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjectorConfig() override;
    /// Writes a new projector's values by calling the setters, those of a subclass too. It is named "Channel_" and its ID,
    /// its channel reaches 30 degrees to the left and right and 20 up and down, and it takes the whole screen. What is
    /// inherited stays unset. All is written, or nothing where memory runs out.
    void initialize() override;

    virtual std::wstring getName() const;  ///< name people give the projector; empty when missing
    virtual void setName(const std::wstring& name);
    /// How the projector is connected, as its driver describes it: an XML element as text; empty when missing.
    virtual std::wstring getDeviceSnippet() const;
    /// Stores one XML element. An empty text leaves a stored description alone. Throws CorvaneException for a text that is
    /// not one well-formed element, and changes nothing then.
    virtual void setDeviceSnippet(const std::wstring& snippet);
    /// The original device snippet, kept by other tools and only read here; empty when missing.
    virtual std::wstring getDeviceSnippetOriginal() const;
    virtual int getResolutionX() const;  ///< native width of the projector (pixels); 1400 when missing
    virtual void setResolutionX(int pixels);
    virtual int getResolutionY() const;  ///< native height of the projector (pixels); 1050 when missing
    virtual void setResolutionY(int pixels);

    // Six settings that the projector inherits from "Geometry" while it has none of its own. The default counts when neither
    // section has one.

    /// Width of the image that is fed to the projector (pixels); 1400 when missing.
    virtual int getImageResolutionX() const;
    virtual void setImageResolutionX(int pixels);
    virtual void unsetImageResolutionX();  ///< removes the projector's own, so that it inherits again
    /// Height of the image that is fed to the projector (pixels); 1050 when missing.
    virtual int getImageResolutionY() const;
    virtual void setImageResolutionY(int pixels);
    virtual void unsetImageResolutionY();  ///< removes the projector's own, so that it inherits again
    /// How the input image is fitted to the projector: one of INPUT_IMAGE_SCALING_MODE_..., or any other stored number; 0
    /// when missing.
    virtual int getInputImageScalingMode() const;
    virtual void setInputImageScalingMode(int mode);
    virtual void unsetInputImageScalingMode();  ///< removes the projector's own, so that it inherits again
    virtual int getPortraitMode() const;        ///< orientation of the image; 0 is landscape; 0 when missing
    virtual void setPortraitMode(int mode);
    virtual void unsetPortraitMode();  ///< removes the projector's own, so that it inherits again
    /// Width and height of a box of the mapper's pattern (pixels); 21, 21 when missing.
    virtual Point_2Dim<int> getBoxSize() const;
    virtual void setBoxSize(const Point_2Dim<int>& size);
    virtual void unsetBoxSize();  ///< removes the projector's own, so that it inherits again
    /// Distance between the boxes of the mapper's pattern, as a multiple of their size; 1.5 when missing.
    virtual double getBoxSpacing() const;
    virtual void setBoxSpacing(double spacing);
    virtual void unsetBoxSpacing();  ///< removes the projector's own, so that it inherits again

    virtual double getGamma() const;  ///< exponent of the projector's brightness response; 2.2 when missing
    virtual void setGamma(double gamma);
    virtual double getLampPower() const;  ///< power the lamps are run at (percent); 100.0 when missing
    virtual void setLampPower(double power);
    virtual int getColourUser() const;  ///< number of the projector's user colour setting; 1 when missing
    virtual void setColourUser(int user);
    /// Lamps in use: one of LAMP_MODE_...; empty when missing, and for any other stored text.
    virtual std::wstring getLampMode() const;
    /// Stores any text, also one that the getter does not give.
    virtual void setLampMode(const std::wstring& mode);
    /// Part of the image taken by the blend at its top edge; -1 when unknown (percent); -1 when missing.
    virtual double getBlendPercentTop() const;
    virtual void setBlendPercentTop(double percent);
    /// Part of the image taken by the blend at its bottom edge; -1 when unknown (percent); -1 when missing.
    virtual double getBlendPercentBottom() const;
    virtual void setBlendPercentBottom(double percent);
    /// Part of the image taken by the blend at its right edge; -1 when unknown (percent); -1 when missing.
    virtual double getBlendPercentRight() const;
    virtual void setBlendPercentRight(double percent);
    /// Part of the image taken by the blend at its left edge; -1 when unknown (percent); -1 when missing.
    virtual double getBlendPercentLeft() const;
    virtual void setBlendPercentLeft(double percent);

    // The image channel that the projector serves. Angles to the left and down are negative.

    /// Yaw of the image channel's line of sight (radians); 0 when missing.
    virtual double getChannelExtentHeadingYaw() const;
    virtual void setChannelExtentHeadingYaw(double radians);
    /// Pitch of the image channel's line of sight (radians); 0 when missing.
    virtual double getChannelExtentHeadingPitch() const;
    virtual void setChannelExtentHeadingPitch(double radians);
    /// Roll of the image channel about its line of sight (radians); 0 when missing.
    virtual double getChannelExtentHeadingRoll() const;
    virtual void setChannelExtentHeadingRoll(double radians);
    /// Vertical angle from the line of sight to the channel's top edge (radians); 0 when missing.
    virtual double getChannelExtentVFOVTop() const;
    virtual void setChannelExtentVFOVTop(double radians);
    /// Vertical angle from the line of sight to the channel's bottom edge (radians); 0 when missing.
    virtual double getChannelExtentVFOVBottom() const;
    virtual void setChannelExtentVFOVBottom(double radians);
    /// Horizontal angle from the line of sight to the channel's left edge (radians); 0 when missing.
    virtual double getChannelExtentHFOVLeft() const;
    void setChannelExtentHFOVLeft(double radians);  ///< not virtual, unlike its neighbours; the interface has it so
    /// Horizontal angle from the line of sight to the channel's right edge (radians); 0 when missing.
    virtual double getChannelExtentHFOVRight() const;
    virtual void setChannelExtentHFOVRight(double radians);
    /// Heading and fields of view (radians) and eye point (meters) in one, as the getters give them; its resolution is 1
    /// by 1.
    virtual Viewport getChannelExtentsAsViewport() const;
    /// Stores heading, fields of view and eye point by calling the setters; the viewport's resolution is not kept. Stores
    /// all, or nothing where memory runs out.
    virtual void setChannelExtentsFromViewport(const Viewport& viewport);

    /// Pose, angles (radians) and resolution the installation's design gives the projector. A missing field
    /// is 0.
    virtual Frustum getDesignedFrustum() const;
    virtual void setDesignedFrustum(const Frustum& frustum);
    /// Brightness the installation's design gives the projector (lumens); 0.0 when missing.
    virtual double getDesignedLumens() const;
    virtual void setDesignedLumens(double lumens);
    /// Left edge of the projector's part of the screen, a fraction of its width; -1000 when unknown; -1000 when missing.
    virtual double getScreenAreaLeft() const;
    virtual void setScreenAreaLeft(double position);
    /// Right edge of the projector's part of the screen, a fraction of its width; -1000 when unknown; -1000 when missing.
    virtual double getScreenAreaRight() const;
    virtual void setScreenAreaRight(double position);
    /// Top edge of the projector's part of the screen, a fraction of its height; -1000 when unknown; -1000 when missing.
    virtual double getScreenAreaTop() const;
    virtual void setScreenAreaTop(double position);
    /// Bottom edge of the projector's part of the screen, a fraction of its height; -1000 when unknown; -1000 when missing.
    virtual double getScreenAreaBottom() const;
    virtual void setScreenAreaBottom(double position);
    virtual double getBlackLevel() const;  ///< light the projector emits when it shows black; 0.0 when missing
    virtual void setBlackLevel(double level);
    /// Flags of the image edges (top, bottom, left, right) whose black level is mirrored. A missing flag is 0.
    virtual BlackLevelBlending::PondOfMirrors getPondOfMirrors() const;
    virtual void setPondOfMirrors(const BlackLevelBlending::PondOfMirrors& pond);
    /// Factor on the light that is added to even out the black level; 1.0 when missing.
    virtual double getBlackLevelBoostFactor() const;
    virtual void setBlackLevelBoostFactor(double factor);
    /// Tint of the light that is added to even out the black level; 0 is neutral; 0 when missing.
    virtual int getBlackLevelTint() const;
    virtual void setBlackLevelTint(int tint);

    // Commands that the projector inherits from "System" while it has none of its own. Setting an empty text removes the
    // projector's own command, so that it inherits again.

    /// Command that readies the motorised blend plates; empty when missing.
    virtual std::wstring getMotoBlendInitCommand() const;
    /// Command that opens the motorised blend plates; empty when missing.
    virtual std::wstring getMotoBlendOpenCommand() const;
    /// Command that closes the motorised blend plates; empty when missing.
    virtual std::wstring getMotoBlendCloseCommand() const;
    virtual void setMotoBlendInitCommand(const std::wstring& command);
    virtual void setMotoBlendOpenCommand(const std::wstring& command);
    virtual void setMotoBlendCloseCommand(const std::wstring& command);

    virtual int getFitOrder() const;  ///< order of the polynomial fitted to the projector's points; 0 when missing
    virtual void setFitOrder(int order);
    /// Where the viewer of the image channel is (x, y, z) (meters); (0, 0, 0) when missing.
    virtual Point_3Dim<double> getEyePoint() const;
    virtual void setEyePoint(const Point_3Dim<double>& point);
    virtual std::wstring getProjectionModelFilename()
        const;  ///< file of the projector's projection model; empty when missing
    virtual void setProjectionModelFilename(const std::wstring& file);
    /// Script that makes the projector's projection model; empty when missing.
    virtual std::wstring getProjectionModelScript() const;
    virtual void setProjectionModelScript(const std::wstring& script);
    /// File of the layout the projection model is part of; empty when missing.
    virtual std::wstring getProjectionLayoutFilename() const;
    virtual void setProjectionLayoutFilename(const std::wstring& file);
    virtual std::wstring getSolverType() const;  ///< name of the solver to use for the projector; empty when missing

    // The pose that a solver starts from. Other tools store it: there are no setters.

    /// Yaw, pitch and roll the pose solver starts from; (0, 0, 0) when missing. The library gives them no unit.
    virtual Point_3Dim<double> getInitialYPR() const;
    /// Position the pose solver starts from; found automatically when missing (meters): see getAutoInitExtrinsics(). This
    /// gives (0, 0, 0) then.
    virtual Point_3Dim<double> getInitialXYZ() const;
    /// Focal length the pose solver starts from; lens values are found automatically when missing: see
    /// getAutoInitIntrinsics(). This gives 24.0 then. The library gives it no unit.
    virtual double getInitialF() const;
    /// Width of a pixel against its height, as the pose solver starts; 1.0 when missing.
    virtual double getInitialAspectRatio() const;
    /// Image point of the optical axis the pose solver starts from; the image centre when missing (pixels): half of what
    /// getResolutionX() and getResolutionY() give.
    virtual Point_2Dim<double> getInitialOffset() const;
    virtual bool getAutoInitIntrinsics() const;  ///< whether no focal length is stored: the solver finds the lens values
    virtual bool getAutoInitExtrinsics() const;  ///< whether no position is stored: the solver finds the pose

    /// Name of the red and green image the projector shows for alignment; empty when missing.
    virtual std::wstring getRedGreenAlignmentImageName() const;
    virtual void setRedGreenAlignmentImageName(const std::wstring& name);
    /// Delay between sending a warp to the projector's warper and its effect; 0 when missing. The library gives it no unit.
    virtual int getPellinorWarpLatency() const;
    virtual void setPellinorWarpLatency(int latency);

    /// Identifier of the first camera that observes the projector; empty when missing.
    std::wstring getAssociatedCameraId1() const;
    void setAssociatedCameraId1(const std::wstring& cameraID);
    /// Identifier of the second camera that observes the projector; empty when missing.
    std::wstring getAssociatedCameraId2() const;
    void setAssociatedCameraId2(const std::wstring& cameraID);
    std::wstring getOldUID() const;  ///< identifier the section had before it was last renamed; empty when missing

private:
    template <typename T>
    Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> readInherited(
        const XMLConfig::detail::Descriptor<T>& item) const;
    template <typename T>
    void unset(const XMLConfig::detail::Descriptor<T>& item);
    void writeOrUnset(const XMLConfig::detail::Descriptor<std::wstring>& item, const std::wstring& value);
};
