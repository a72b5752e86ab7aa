#include "platform/CameraInfo.h"

#include "platform/Numbers.h"
#include "platform/Text.h"

using XMLConfig::detail::escapedForXml;
using XMLConfig::detail::formatInteger;

namespace {

std::wstring element(const std::wstring& tag, const std::wstring& text) {
    return L'<' + tag + L'>' + escapedForXml(text) + L"</" + tag + L'>';
}

}  // namespace

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

std::string CameraInfo::toXml() const {
    return XMLConfig::detail::toUtf8(
        element(L"bayerPattern", formatInteger(m_bayerPattern)) + element(L"cameraType", formatInteger(m_cameraType)) +
        element(L"defaultGateway", m_defaultGateway) + element(L"dhcp", m_dhcp ? L"true" : L"false") +
        element(L"firmware", m_firmware) + element(L"ipAddress", m_ipAddress) + element(L"macAddress", m_macAddress) +
        element(L"model", m_model) + element(L"resolutionX", formatInteger(m_resolutionX)) +
        element(L"resolutionY", formatInteger(m_resolutionY)) + element(L"serialNumber", m_serialNumber) +
        element(L"subnetMask", m_subnetMask));
}
