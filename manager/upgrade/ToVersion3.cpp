#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"

// Version 3.0 knows cameras on a network: what one communication text held ("MAC,[IP]") becomes a connection with its
// parts.
namespace XMLConfig::detail {

namespace {

// The text between "[" and the next "]" after it; the whole text where either is missing.
std::wstring withoutBrackets(const std::wstring& text) {
    const std::size_t open = text.find(L'[');
    const std::size_t close = open == std::wstring::npos ? open : text.find(L']', open);
    return close == std::wstring::npos ? text : text.substr(open + 1, close - open - 1);
}

void splitConnection(StepSection& camera) {
    const std::wstring text = camera.text(L"Camera_Comm_String", L"COM1");
    const std::size_t comma = text.find(L',');
    if (comma == std::wstring::npos) return;
    camera.setText(L"Connection|MAC_Address", text.substr(0, comma));
    camera.setFlag(L"Connection|DHCP", true);
    camera.setText(L"Connection|IP_Address", withoutBrackets(text.substr(comma + 1)));
    camera.setText(L"Connection|Subnet_Mask", L"255.255.255.0");
}

}  // namespace

void toVersion3(StepDocument& document) {
    auto cameras = camerasOf(document);
    for (StepSection& camera : cameras) camera.setNumber(L"MaskingROIScreenAreaPercentage", 0.0001);
    for (StepSection& camera : cameras) splitConnection(camera);
    for (StepSection& camera : cameras) camera.removeItems({L"Camera_Comm_Long", L"Camera_Comm_String"});
    StepSection(document, L"TargetLocator").removeItem(L"Inset_Border");
    StepSection(document, L"Geometry").setInteger(L"Auto_Masking_Type", 0);
}

}  // namespace XMLConfig::detail
