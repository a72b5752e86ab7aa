#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"

// Version 3.0 knows cameras on a network: what one communication text held ("MAC,[IP]") becomes a connection with its
// parts.
namespace XMLConfig::detail {

namespace {

// The text between "[" and the "]" behind it; the whole text where either is missing.
std::wstring withoutBrackets(const std::wstring& text) {
    const std::size_t open = text.find(L'[');
    const std::size_t close = open == std::wstring::npos ? open : text.find(L']', open);
    return close == std::wstring::npos ? text : text.substr(open + 1, close - open - 1);
}

void splitConnection(ConfigInfo& document, const std::wstring& id) {
    const std::wstring text = textItem(document, L"Camera", L"Camera_Comm_String", L"COM1", id);
    const std::size_t comma = text.find(L',');
    if (comma == std::wstring::npos) return;
    setTextItem(document, L"Camera", L"Connection|MAC_Address", text.substr(0, comma), id);
    document.setBoolItem(L"Camera", L"Connection|DHCP", true, id);
    setTextItem(document, L"Camera", L"Connection|IP_Address", withoutBrackets(text.substr(comma + 1)), id);
    setTextItem(document, L"Camera", L"Connection|Subnet_Mask", L"255.255.255.0", id);
}

}  // namespace

void toVersion3(ConfigInfo& document) {
    const auto cameras = camerasOf(document);
    for (const std::wstring& id : cameras) CameraConfig(&document, id).setMaskingROIScreenAreaPercentage(0.0001);
    for (const std::wstring& id : cameras) splitConnection(document, id);
    for (const std::wstring& id : cameras)
        removeItems(document, L"Camera", {L"Camera_Comm_Long", L"Camera_Comm_String"}, id);
    removeItems(document, L"TargetLocator", {L"Inset_Border"});
    GeometryConfig(&document, {}).setAutoMaskingType(0);
}

}  // namespace XMLConfig::detail
