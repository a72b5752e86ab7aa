#include "platform/CameraInfo.h"

#include "platform/Numbers.h"
#include "platform/Text.h"

using XMLConfig::detail::escapedForXml;
using XMLConfig::detail::formatInteger;

void CameraInfo::setBayerPattern(int pattern) { m_bayerPattern = pattern; }
void CameraInfo::setCameraType(int type) { m_cameraType = type; }
void CameraInfo::setDefaultGateway(const std::wstring& address) { m_defaultGateway = address; }
void CameraInfo::setDHCP(bool enabled) { m_dhcp = enabled; }
void CameraInfo::setFirmware(const std::wstring& version) { m_firmware = version; }
void CameraInfo::setIPAddress(const std::wstring& address) { m_ipAddress = address; }
void CameraInfo::setMACAddress(const std::wstring& address) { m_macAddress = address; }
void CameraInfo::setModel(const std::wstring& model) { m_model = model; }
void CameraInfo::setSerialNumber(const std::wstring& number) { m_serialNumber = number; }
void CameraInfo::setSubnetMask(const std::wstring& mask) { m_subnetMask = mask; }

void CameraInfo::setResolution(int x, int y) {
    m_resolutionX = x;
    m_resolutionY = y;
}

std::vector<std::pair<const wchar_t*, std::wstring>> CameraInfo::elements() const {
    return {{L"bayerPattern", formatInteger(m_bayerPattern)},
            {L"cameraType", formatInteger(m_cameraType)},
            {L"defaultGateway", m_defaultGateway},
            {L"dhcp", m_dhcp ? L"true" : L"false"},
            {L"firmware", m_firmware},
            {L"ipAddress", m_ipAddress},
            {L"macAddress", m_macAddress},
            {L"model", m_model},
            {L"resolutionX", formatInteger(m_resolutionX)},
            {L"resolutionY", formatInteger(m_resolutionY)},
            {L"serialNumber", m_serialNumber},
            {L"subnetMask", m_subnetMask}};
}

std::string CameraInfo::toXml() const {
    std::wstring xml;
    for (const auto& [tag, text] : elements())
        xml += L'<' + std::wstring(tag) + L'>' + escapedForXml(text) + L"</" + tag + L'>';
    return XMLConfig::detail::toUtf8(xml);
}
