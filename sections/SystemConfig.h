#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "base/UnitConversionTable.h"
#include "platform/Export.h"
#include "platform/RunType.h"

class AssetManager;

/// One black-box controller, which switches the power of cameras or LED lights: whether it is used, by which protocol,
/// address and port it is spoken to, and the number of the power port, or ports, that it switches. Port numbers have no
/// unit.
class XMLCONFIG_API BlackBoxInfo {
public:
    /// Not enabled, no address, communication port 0, power port -1.
    BlackBoxInfo() = default;
    BlackBoxInfo(bool enabled, const std::wstring& protocol, const std::wstring& commAddress, int commPort, int powerPort);
    BlackBoxInfo(const BlackBoxInfo&) = default;
    BlackBoxInfo& operator=(const BlackBoxInfo&) = default;
    virtual ~BlackBoxInfo();

    bool getEnabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    const std::wstring& getProtocol() const { return m_protocol; }
    void setProtocol(const std::wstring& protocol) { m_protocol = protocol; }
    const std::wstring& getCommAddress() const { return m_commAddress; }
    void setCommAddress(const std::wstring& commAddress) { m_commAddress = commAddress; }
    int getCommPort() const { return m_commPort; }
    void setCommPort(int commPort) { m_commPort = commPort; }
    int getPowerPort() const { return m_powerPort; }
    void setPowerPort(int powerPort) { m_powerPort = powerPort; }
    std::vector<std::int32_t> getOtherPowerPorts() const { return m_otherPowerPorts; }
    /// Copies the list and leaves it as it is.
    void setOtherPowerPorts(std::vector<std::int32_t>& otherPowerPorts) { m_otherPowerPorts = otherPowerPorts; }

    /// One line for logs; the other power ports are not shown.
    std::wstring toString() const;

private:
    bool m_enabled = false;
    std::wstring m_protocol;
    std::wstring m_commAddress;
    std::int32_t m_commPort = 0;
    std::int32_t m_powerPort = -1;
    std::vector<std::int32_t> m_otherPowerPorts;
};

/// One entry of an ACT unit's relay list, in the order in which it is stored.
struct ACTRelayAssociation {
    std::int32_t first;
    std::int32_t second;
};

/// The settings of the whole installation, the one "System" section.
///
/// Getters give the named default for a missing item and create nothing. Only the prompt flag lives in the accessor; it
/// is false after every construction. Errors of the document reach the caller unchanged.
/// The order of the virtual members is part of the interface: do not reorder them.
/// Its settings: sections/SystemItems.h and, as a page, docs/settings.md#system.
class XMLCONFIG_API SystemConfig : public BaseConfig {
public:
    /// How a calibration finds its markers. The stored form is a text.
    enum MarkerLocationMethodEnum : int {
        MarkerLocationManual = 0,
        MarkerLocationLed = 1,
        MarkerLocationLedManual = 2,
        MarkerLocationAct = 3,
        MarkerLocationMarkedSurfaceAutomatic = 4,
        MarkerLocationStructuredLight = 5,
        MarkerLocationCheckerboard = 6
    };

    static const std::wstring DEFAULT_FILE_BASENAME;
    static const std::wstring DEFAULT_SKORRA_FILE_EXTENSION;
    static constexpr int kDefaultGlareThreshold = 100;
    static constexpr int kDefaultMarkedSurfaceMaskingExpansionPct = 0;

    /// Borrows the document (null: a private one), shares the asset manager (null is accepted). Writes nothing.
    SystemConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID);
    ~SystemConfig() override;
    /// Writes what a new document holds; 4 power ports and parallel sends, unlike the defaults of missing items.
    void initialize() override;

    // Finding the markers.

    /// How the markers are found in the camera images; "-prompt" at the end asks the user before an automatic one.
    /// MarkerLocationManual when missing or unknown; the stored text counts with its case.
    virtual MarkerLocationMethodEnum getMarkerLocationMethod() const;
    /// With the prompt flag set, both automatic methods (ACT, marked surface) are stored with the prompt.
    /// Throws CorvaneException for a value that is no enumerator; nothing is stored then.
    void setMarkerLocationMethod(MarkerLocationMethodEnum method);
    /// How the markers are found in the camera images; "-prompt" at the end asks the user before an automatic one. Whether
    /// the stored method asks the user first; the prompt flag is not consulted.
    bool getPromptUserForAutomaticCameraCalibrationEnabledState() const;
    /// Sets the prompt flag and stores the present method anew.
    void setPromptUserForAutomaticCameraCalibrationEnabledState(bool enabled);
    /// Whether the method is ACT or the marked surface.
    bool isAutomaticCameraCalibrationEnabled() const;
    /// The method of a stored text; MarkerLocationManual for any other text.
    MarkerLocationMethodEnum markerLocationMethodEnumFromString(const std::wstring& text) const;
    /// What a user reads; empty for the checkerboard and for values that are no enumerators.
    static std::string MarkerLocationMethodEnumToString(MarkerLocationMethodEnum method);

    // Units: names as in UnitConversionTable.

    /// Unit in which the application shows and takes lengths; UNIT_DEFAULT() when missing.
    virtual std::wstring getLengthUnit() const;
    /// Meters, centimeters, millimeters, feet and inches; any other name is ignored.
    void setLengthUnit(const std::wstring& name);
    /// Unit in which the application shows and takes angles; ANGLE_UNIT_DEFAULT() when missing.
    std::wstring getAngleUnit() const;
    /// Degrees and radians; any other name is ignored.
    void setAngleUnit(const std::wstring& name);
    UnitConversionTable::UnitSubType getLengthUnitByEnum() const;
    /// Meters, centimeters, feet and inches; millimeters, too, are ignored here.
    void setLengthUnitByEnum(UnitConversionTable::UnitSubType subType);
    UnitConversionTable::UnitSubType getAngleUnitByEnum() const;
    /// Radians and degrees; any other sub-type is ignored.
    void setAngleUnitByEnum(UnitConversionTable::UnitSubType subType);

    // Cinema.

    Cinema::Frame getCinemaFrameType() const;  ///< picture format of a cinema run; Flat when missing
    void setCinemaFrameType(Cinema::Frame frame);
    virtual double getCinemaKeystoneValue() const;  ///< keystone correction of the cinema picture; 0.0 when missing
    void setCinemaKeystoneValue(double value);
    double getCinemaVerticalShift() const;  ///< vertical shift of the cinema picture; 0.0 when missing
    void setCinemaVerticalShift(double value);
    double getCinemaVerticalStretch() const;  ///< vertical stretch of the cinema picture; 0.0 when missing
    void setCinemaVerticalStretch(double value);

    // The run, and what takes part in it.

    virtual bool getSupportsPellinor() const;  ///< whether the installation supports Pellinor runs; false when missing
    void setSupportsPellinor(bool value);
    /// Whether all mapper blobs are shown in one image instead of a sequence; false when missing.
    virtual bool getOneShotMappersEnabled() const;
    void setOneShotMappersEnabled(bool value);
    RunType getRunType() const;  ///< kind of calibration run; ClassicRun when missing
    void setRunType(RunType runType);
    std::wstring getSkorraFilename() const;  ///< name of the warp file that a run produces; "untitled.skorrax" when missing
    /// The extension is appended unless the name ends in it; an empty name and the bare extension are ignored.
    void setSkorraFilename(const std::wstring& name);
    bool getAreBlindersUsed() const;  ///< whether blinders keep stray projector light off the screen; false when missing
    void setAreBlindersUsed(bool value);
    bool getIsBlbUsed() const;  ///< whether black-level blending is used; false when missing
    void setIsBlbUsed(bool value);
    bool getIsCameraUsed() const;  ///< whether a run measures with cameras; true when missing
    void setIsCameraUsed(bool value);
    /// Whether what lies outside the screen surface is masked in the camera images; true when missing.
    bool isUseScreenAsMaskEnabled() const;
    void enableUseScreenAsMask(bool value);
    /// Whether blending from projector poses leaves shadowed (occluded) areas out of account; false when missing.
    bool getPoseBlenderIgnoresOcclusions() const;
    void setPoseBlenderIgnoresOcclusions(bool value);
    bool getParallelizeSends() const;  ///< whether warps are sent to all projectors at the same time; false when missing
    void setParallelizeSends(bool value);
    /// Brightness from which a camera pixel counts as glare; 100 finds none (percent); kDefaultGlareThreshold when missing.
    int getGlareThreshold() const;
    void setGlareThreshold(int percent);
    /// How far the mask around the marked surface is widened (percent); kDefaultMarkedSurfaceMaskingExpansionPct when
    /// missing.
    int getMarkedSurfaceMaskingExpansionPct() const;
    void setMarkedSurfaceMaskingExpansionPct(int percent);
    /// When the reference mappings were taken; 0 for never (seconds since 1970-01-01 UTC); 0 when missing.
    int getReferenceMappingsTimeStamp() const;
    void setReferenceMappingsTimeStamp(int timeStamp);

    // Black-box controllers. A missing or malformed item reads as a default BlackBoxInfo. The setters keep the other
    // power ports that the document holds and ignore those of their argument.

    int getNumAvailableBlackBoxPowerPorts() const;  ///< number of power ports a black box offers; 2 when missing
    void setNumAvailableBlackBoxPowerPorts(int count);
    BlackBoxInfo getBlackBoxCamerasComm() const;
    void setBlackBoxCamerasComm(const BlackBoxInfo& info);
    BlackBoxInfo getBlackBoxLEDLightsComm() const;
    void setBlackBoxLEDLightsComm(const BlackBoxInfo& info);

    // Commands of motorised blend plates; projectors without their own use these. Empty when missing.

    /// Command that prepares the motorised blend plates of projectors without a command of their own.
    std::wstring getMotoBlendInitCommand() const;
    void setMotoBlendInitCommand(const std::wstring& command);
    /// Command that opens the motorised blend plates of projectors without a command of their own.
    std::wstring getMotoBlendOpenCommand() const;
    void setMotoBlendOpenCommand(const std::wstring& command);
    /// Command that closes the motorised blend plates of projectors without a command of their own.
    std::wstring getMotoBlendCloseCommand() const;
    void setMotoBlendCloseCommand(const std::wstring& command);

    // ACT units, numbered from 0.

    int getACTCount();  ///< number of ACT units; 0 when missing
    /// Removes the addresses and associations of units beyond `count`; a negative count is stored as 0.
    void setACTCount(int count);
    std::wstring getACTAddress(int unit);  ///< empty when missing
    void setACTAddress(int unit, const std::wstring& address);
    /// Empty when missing; a trailing number without a partner is ignored.
    std::vector<ACTRelayAssociation> getACTRelayAssociations(int unit);
    void setACTRelayAssociations(int unit, const std::vector<ACTRelayAssociation>& associations);
    /// How ACT calibration detects blobs in the camera images; "basic" when missing.
    std::wstring getACTBlobDetectionMethod() const;
    void setACTBlobDetectionMethod(const std::wstring& method);
    double getACTBlobMinArea() const;  ///< smallest area of a blob in ACT calibration (square pixels); 2.0 when missing
    void setACTBlobMinArea(double area);
    double getACTBlobMaxArea() const;  ///< largest area of a blob in ACT calibration (square pixels); 2500.0 when missing
    /// Distance within which detections are gathered to one blob in ACT calibration (pixels); 5.0 when missing.
    double getACTBlobClusteringDistance() const;
    /// Smallest distance between two blobs in ACT calibration (pixels); 5.0 when missing.
    double getACTBlobMinSeparationDistance() const;
    /// Step of brightness that marks a light being switched in ACT calibration; 50 when missing.
    int getACTBlobIntensityJumpThreshold() const;
    /// Most observations of a blob that ACT calibration takes into account; 100 when missing.
    int getACTBlobMaxObservations() const;

private:
    static const std::wstring PROMPT_SUFFIX;

    BlackBoxInfo getGenericBlackBoxComm(const std::wstring& key) const;
    void setGenericBlackBoxComm(const std::wstring& key, const BlackBoxInfo& info);
    void setBlackBoxKeepingOtherPorts(const std::wstring& key, const BlackBoxInfo& info);
    std::set<int> storedACTUnits(int first, int end) const;
    void removeACTUnits(const std::set<int>& units);

    std::map<MarkerLocationMethodEnum, std::wstring> m_markerMethodTexts;
    std::map<std::wstring, MarkerLocationMethodEnum> m_markerMethods;
    bool m_promptUser = false;
    std::shared_ptr<AssetManager> m_assetManager;  // never read: the share keeps the asset manager alive
};
