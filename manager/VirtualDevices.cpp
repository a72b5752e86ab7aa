#include "manager/VirtualDevices.h"

#include <memory>

#include "manager/DeviceAddresses.h"
#include "manager/FakeDevices.h"
#include "platform/Environment.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/XmlFragment.h"

namespace XMLConfig::detail {

namespace {

constexpr const wchar_t* snippetKey = L"DeviceSnippet";

bool isSetTo(const wchar_t* variable, const wchar_t* value) {
    const auto found = environmentVariable(variable);
    return found && equalIgnoringCase(*found, value);
}

// The section's snippet; null where it has none, or something else in its place.
std::unique_ptr<XmlFragment> deviceOf(const ConfigInfo& document, const wchar_t* section, const std::wstring& id) {
    try {
        return std::make_unique<XmlFragment>(document.getStringItemAsDOMElement(section, snippetKey, {}, id));
    } catch (const CorvaneException&) {
        return nullptr;
    }
}

// Refers to the file that plays a projector of that type: "<type>-<width>x<height>.device".
std::wstring virtualConnection(const std::wstring& type, int width, int height) {
    return L"<connection type=\"VIRTUAL\"><file>" + escapedForXml(type) + L"-" + formatInteger(width) + L"x" +
           formatInteger(height) + L".device</file></connection>";
}

void makeProjectorVirtual(ConfigInfo& document, const std::wstring& id) {
    const int width = document.getIntegerItem(L"Projector", L"Resolution_X", 1400, id);
    const int height = document.getIntegerItem(L"Projector", L"Resolution_Y", 1050, id);
    const auto device = deviceOf(document, L"Projector", id);
    if (!device || !device->element().child(L"connection")) return;
    if (!deviceIDOf(device->element().attribute(L"UID").value_or(L""))) {
        throw CorvaneException(L"Deive id incorrect");  // spelt so on purpose: applications know it
    }
    const std::wstring type = device->element().attribute(L"type").value_or(L"");
    device->replaceChild(L"connection", virtualConnection(type, width, height));
    document.setStringItemAsDOMElement(L"Projector", snippetKey, device->text(), id);
}

void makeCameraVirtual(ConfigInfo& document, const std::wstring& id) {
    const auto device = deviceOf(document, L"Camera", id);
    if (!device || !device->element().attribute(L"UID") || !device->element().attribute(L"type")) return;
    device->setAttribute(L"type", L"VC");
    document.setStringItemAsDOMElement(L"Camera", snippetKey, device->text(), id);
}

}  // namespace

void makeProjectorsVirtual(ConfigInfo& document) {
    for (const std::wstring& id : document.getSectionIDs(L"Projector")) makeProjectorVirtual(document, id);
}

void makeCamerasVirtual(ConfigInfo& document) {
    for (const std::wstring& id : document.getSectionIDs(L"Camera")) makeCameraVirtual(document, id);
}

void applyVirtualDevices(ConfigInfo& document) {
    if (isSetTo(L"UL_VIRTUAL_PROJECTOR", L"config")) makeProjectorsVirtual(document);
    if (isSetTo(L"UL_VIRTUAL_PROJECTOR", L"fake")) makeFakeProjectors();
    if (isSetTo(L"UL_VIRTUAL_CAMERA", L"config")) makeCamerasVirtual(document);
}

}  // namespace XMLConfig::detail
