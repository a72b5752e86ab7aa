#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

/// A camera as its device snippet describes it. A new record holds zeros, false and empty texts. Texts are taken as they
/// are, without a check.
class XMLCONFIG_API CameraInfo {
public:
    void setBayerPattern(int pattern);  ///< number of the sensor's Bayer pattern
    void setCameraType(int type);       ///< number of the kind of camera, as files before version 9 hold it
    void setDefaultGateway(const std::wstring& address);  ///< IP address of the camera's gateway
    void setDHCP(bool enabled);                           ///< whether the camera gets its IP address by DHCP
    void setFirmware(const std::wstring& version);        ///< version of the camera's firmware
    void setIPAddress(const std::wstring& address);       ///< the camera's IP address
    void setMACAddress(const std::wstring& address);      ///< the camera's MAC address
    void setModel(const std::wstring& model);             ///< the maker's name for this kind of camera
    void setResolution(int x, int y);                     ///< width and height of its images in pixels
    void setSerialNumber(const std::wstring& number);     ///< the camera's serial number
    void setSubnetMask(const std::wstring& mask);         ///< mask of the camera's IP network

    /// Names and texts of the elements bayerPattern, cameraType, defaultGateway, dhcp ("true"/"false"), firmware, ipAddress,
    /// macAddress, model, resolutionX, resolutionY, serialNumber, subnetMask in this order. The names live as long as the
    /// program.
    std::vector<std::pair<const wchar_t*, std::wstring>> elements() const;
    /// The same elements as XML in UTF-8: texts escaped, no white space between elements.
    std::string toXml() const;

private:
    int m_bayerPattern = 0;
    int m_cameraType = 0;
    int m_resolutionX = 0;
    int m_resolutionY = 0;
    bool m_dhcp = false;
    std::wstring m_defaultGateway;
    std::wstring m_firmware;
    std::wstring m_ipAddress;
    std::wstring m_macAddress;
    std::wstring m_model;
    std::wstring m_serialNumber;
    std::wstring m_subnetMask;
};
