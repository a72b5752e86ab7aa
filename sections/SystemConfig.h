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
/// address and port it is spoken to, and the number of the power port, or ports, that it switches. A plain value: it is no
/// part of a document until SystemConfig stores it.
class XMLCONFIG_API BlackBoxInfo {
public:
    /// Not enabled, no address, communication port 0, power port -1.
    BlackBoxInfo() = default;
    /// With no other power ports.
    BlackBoxInfo(bool enabled, const std::wstring& protocol, const std::wstring& commAddress, int commPort, int powerPort);
    BlackBoxInfo(const BlackBoxInfo&) = default;
    BlackBoxInfo& operator=(const BlackBoxInfo&) = default;
    virtual ~BlackBoxInfo();

    bool getEnabled() const { return m_enabled; }  ///< whether the controller is used
    void setEnabled(bool enabled) { m_enabled = enabled; }
    const std::wstring& getProtocol() const { return m_protocol; }  ///< how it is spoken to, such as "serial"
    void setProtocol(const std::wstring& protocol) { m_protocol = protocol; }
    const std::wstring& getCommAddress() const { return m_commAddress; }  ///< where it is, such as "COM3" or "10.0.0.5"
    void setCommAddress(const std::wstring& commAddress) { m_commAddress = commAddress; }
    int getCommPort() const { return m_commPort; }  ///< number of the port, or the rate, of that protocol: 5000, 9600
    void setCommPort(int commPort) { m_commPort = commPort; }
    int getPowerPort() const { return m_powerPort; }  ///< number of the power port that it switches; -1 for none
    void setPowerPort(int powerPort) { m_powerPort = powerPort; }
    /// Numbers of further power ports that it switches, in stored order; a copy.
    std::vector<std::int32_t> getOtherPowerPorts() const { return m_otherPowerPorts; }
    /// Copies the list, which stays as it is, although the interface takes it without const.
    void setOtherPowerPorts(std::vector<std::int32_t>& otherPowerPorts) { m_otherPowerPorts = otherPowerPorts; }

    /// The values as one line for logs, without the other power ports.
    std::wstring toString() const;

private:
    bool m_enabled = false;
    std::wstring m_protocol;
    std::wstring m_commAddress;
    std::int32_t m_commPort = 0;
    std::int32_t m_powerPort = -1;
    std::vector<std::int32_t> m_otherPowerPorts;
};

/// One entry of an ACT unit's relay list: two numbers that the application understands.
struct ACTRelayAssociation {
    std::int32_t first;   ///< what stands first in the file
    std::int32_t second;  ///< what stands second
};

/// The settings of the whole installation, the one "System" section.
///
/// A getter of a missing item gives the default that its comment names, and creates nothing; a setter stores at once and
/// checks nothing, where its comment says no more. Only the prompt flag lives in the accessor: whether the user is to be
/// asked before an automatic camera calibration. It is false in every new accessor. Errors of the document reach the caller
/// unchanged. The order of the virtual members is part of the interface: do not reorder them.
///
/// Its settings: sections/SystemItems.h and, as a page, docs/settings.md#system.
class XMLCONFIG_API SystemConfig : public BaseConfig {
public:
    /// How a calibration finds its markers. Files hold the text that stands beside each.
    enum MarkerLocationMethodEnum : int {
        MarkerLocationManual = 0,                  ///< "manual"
        MarkerLocationLed = 1,                     ///< "led"
        MarkerLocationLedManual = 2,               ///< "led-manual"
        MarkerLocationAct = 3,                     ///< "act", with the prompt "act-prompt"
        MarkerLocationMarkedSurfaceAutomatic = 4,  ///< "marked-surface-automatic", with the prompt "-prompt" after it
        MarkerLocationStructuredLight = 5,         ///< "structured-light"
        MarkerLocationCheckerboard = 6             ///< "checkerboard"
    };

    static const std::wstring DEFAULT_FILE_BASENAME;                    ///< "untitled"
    static const std::wstring DEFAULT_SKORRA_FILE_EXTENSION;            ///< ".skorrax"
    static constexpr int kDefaultGlareThreshold = 100;                  ///< percent
    static constexpr int kDefaultMarkedSurfaceMaskingExpansionPct = 0;  ///< percent

    /// Borrows the document (null: a private one), shares the asset manager (null is accepted). Writes nothing.
    SystemConfig(ConfigInfo* configInfo, std::shared_ptr<AssetManager> assetManager, const std::wstring& sectionID);
    ~SystemConfig() override;
    /// Writes the values of a new document: 4 power ports of a black box and parallel sends, where missing items read 2 and
    /// false, and for the rest what a missing item gives. No ACT units are left. All is written, or nothing where memory
    /// runs out.
    void initialize() override;

    // Finding the markers.

    /// How the markers are found in the camera images; "-prompt" at the end asks the user before an automatic one. The
    /// method is given without the prompt. MarkerLocationManual when missing, and for a text that is not known; case counts.
    virtual MarkerLocationMethodEnum getMarkerLocationMethod() const;
    /// Stores the method: with the prompt when it is one of the automatic methods (ACT, marked surface) and the prompt flag
    /// is set, otherwise without. Throws CorvaneException for a value that is no enumerator; nothing is stored then.
    void setMarkerLocationMethod(MarkerLocationMethodEnum method);
    /// Whether the stored method asks the user first: whether "-prompt" stands in its text; false when missing. The prompt
    /// flag is not looked at.
    bool getPromptUserForAutomaticCameraCalibrationEnabledState() const;
    /// Sets the prompt flag and stores the present method anew, with the prompt or without. Where that throws, the flag
    /// stays.
    void setPromptUserForAutomaticCameraCalibrationEnabledState(bool enabled);
    /// Whether getMarkerLocationMethod() gives an automatic method: ACT or the marked surface.
    bool isAutomaticCameraCalibrationEnabled() const;
    /// The method that a stored text stands for; MarkerLocationManual for a text that is not known; case counts.
    MarkerLocationMethodEnum markerLocationMethodEnumFromString(const std::wstring& text) const;
    /// The method's name for users, such as "LED Manual"; empty for the checkerboard and for values that are no enumerators.
    static std::string MarkerLocationMethodEnumToString(MarkerLocationMethodEnum method);

    // Units, by their names in UnitConversionTable or by its sub-types. They say how the application shows values; what is
    // stored keeps its own unit.

    /// Unit in which the application shows and takes lengths, as stored; "Meters" when missing.
    virtual std::wstring getLengthUnit() const;
    /// Stores meters, centimeters, millimeters, feet or inches; any other name is ignored without a word.
    void setLengthUnit(const std::wstring& name);
    /// Unit in which the application shows and takes angles, as stored; "Degrees" when missing.
    std::wstring getAngleUnit() const;
    /// Stores degrees or radians; any other name is ignored without a word.
    void setAngleUnit(const std::wstring& name);
    /// What getLengthUnit() gives, as a sub-type; UnknownUnitSubType for a name that is none.
    UnitConversionTable::UnitSubType getLengthUnitByEnum() const;
    /// Stores meters, centimeters, feet or inches; any other sub-type, millimeters too, is ignored without a word.
    void setLengthUnitByEnum(UnitConversionTable::UnitSubType subType);
    /// What getAngleUnit() gives, as a sub-type; UnknownUnitSubType for a name that is none.
    UnitConversionTable::UnitSubType getAngleUnitByEnum() const;
    /// Stores radians or degrees; any other sub-type is ignored without a word.
    void setAngleUnitByEnum(UnitConversionTable::UnitSubType subType);

    // The picture of a cinema run. The library gives its three numbers no unit.

    Cinema::Frame getCinemaFrameType() const;  ///< picture format of a cinema run; Flat when missing, and for unknown texts
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
    RunType getRunType() const;  ///< kind of calibration run; ClassicRun when missing, and for unknown texts
    void setRunType(RunType runType);
    /// Name of the warp file that a run produces, as stored: XMLConfigManager::getSkorraFilename gives it as a path that can
    /// be opened. "untitled.skorrax" when missing.
    std::wstring getSkorraFilename() const;
    /// Stores the name, with ".skorrax" appended unless it ends so (case counts). An empty name and ".skorrax" alone are
    /// ignored without a word.
    void setSkorraFilename(const std::wstring& name);
    bool getAreBlindersUsed() const;  ///< whether blinders keep stray projector light off the screen; false when missing
    void setAreBlindersUsed(bool value);
    bool getIsBlbUsed() const;  ///< whether black-level blending is used; false when missing
    void setIsBlbUsed(bool value);
    bool getIsCameraUsed() const;  ///< whether a run measures with cameras; true when missing
    void setIsCameraUsed(bool value);
    /// Whether what lies outside the screen surface is masked in the camera images; true when missing.
    bool isUseScreenAsMaskEnabled() const;
    void enableUseScreenAsMask(bool value);  ///< stores whether that is masked
    /// Whether blending from projector poses leaves shadowed (occluded) areas out of account; false when missing.
    bool getPoseBlenderIgnoresOcclusions() const;
    void setPoseBlenderIgnoresOcclusions(bool value);
    bool getParallelizeSends() const;  ///< whether warps are sent to all projectors at the same time; false when missing
    void setParallelizeSends(bool value);
    /// Brightness from which a camera pixel counts as glare; 100 finds none (percent);
    /// kDefaultGlareThreshold (100) when missing.
    int getGlareThreshold() const;
    void setGlareThreshold(int percent);
    /// How far the mask around the marked surface is widened (percent);
    /// kDefaultMarkedSurfaceMaskingExpansionPct (0) when missing.
    int getMarkedSurfaceMaskingExpansionPct() const;
    void setMarkedSurfaceMaskingExpansionPct(int percent);
    /// When the reference mappings were taken; 0 for never (seconds since 1970-01-01 UTC); 0 when missing.
    int getReferenceMappingsTimeStamp() const;
    void setReferenceMappingsTimeStamp(int timeStamp);

    // Black-box controllers. A text of fewer than five pieces reads as a default BlackBoxInfo, as a missing item does. The
    // setters keep the other power ports that the document holds, and ignore those of their argument. Of all that stands
    // before these ports they store 127 characters.

    int getNumAvailableBlackBoxPowerPorts() const;  ///< number of power ports a black box offers; 2 when missing
    void setNumAvailableBlackBoxPowerPorts(int count);
    /// Black box that powers the cameras: enabled, protocol, address, port, power port, other power ports; a default
    /// BlackBoxInfo when missing.
    BlackBoxInfo getBlackBoxCamerasComm() const;
    void setBlackBoxCamerasComm(const BlackBoxInfo& info);
    /// Black box that powers the LED lights: enabled, protocol, address, port, power port, other power ports; a default
    /// BlackBoxInfo when missing.
    BlackBoxInfo getBlackBoxLEDLightsComm() const;
    void setBlackBoxLEDLightsComm(const BlackBoxInfo& info);

    // Commands of motorised blend plates.

    /// Command that prepares the motorised blend plates of projectors without a command of their own; empty when missing.
    std::wstring getMotoBlendInitCommand() const;
    void setMotoBlendInitCommand(const std::wstring& command);
    /// Command that opens the motorised blend plates of projectors without a command of their own; empty when missing.
    std::wstring getMotoBlendOpenCommand() const;
    void setMotoBlendOpenCommand(const std::wstring& command);
    /// Command that closes the motorised blend plates of projectors without a command of their own; empty when missing.
    std::wstring getMotoBlendCloseCommand() const;
    void setMotoBlendCloseCommand(const std::wstring& command);

    // ACT units. The first has the number 0.

    int getACTCount();  ///< number of ACT units; 0 when missing
    /// Stores the count, a negative one as 0, and removes the addresses and associations of the units that there are no
    /// more: all of it, or nothing where memory runs out.
    void setACTCount(int count);
    /// Address of the ACT unit of that number, counted from 0; empty when missing, whatever the count says.
    std::wstring getACTAddress(int unit);
    void setACTAddress(int unit, const std::wstring& address);  ///< does not change the count
    /// Relay associations of the ACT unit of that number: two integers a line in the file, here one entry in the same order.
    /// A last number without a partner is ignored. Empty when missing.
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
