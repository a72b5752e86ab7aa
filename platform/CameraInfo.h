#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

/// A camera as its device snippet describes it. A new record holds zeros, false and empty texts.
class XMLCONFIG_API CameraInfo {
public:
    void setBayerPattern(int pattern);
    void setCameraType(int type);
    void setDefaultGateway(const std::wstring& address);
    void setDHCP(bool enabled);
    void setFirmware(const std::wstring& version);
    void setIPAddress(const std::wstring& address);
    void setMACAddress(const std::wstring& address);
    void setModel(const std::wstring& model);
    void setResolution(int x, int y);  ///< pixels
    void setSerialNumber(const std::wstring& number);
    void setSubnetMask(const std::wstring& mask);

    /// Names and texts of the elements bayerPattern, cameraType, defaultGateway, dhcp ("true"/"false"), firmware, ipAddress,
    /// macAddress, model, resolutionX, resolutionY, serialNumber, subnetMask in this order. The names live as long as the
    /// program.
    std::vector<std::pair<const wchar_t*, std::wstring>> elements() const;
    /// UTF-8: the same as XML, escaped, with nothing between.
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
