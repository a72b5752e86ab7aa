#include <CLI/App.hpp>

#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Suggestion.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::Assignment;
using XMLConfig::ElementView;
using XMLConfig::Setting;

[[noreturn]] void refuse(const Address& address, const std::wstring& fault) {
    throw Refusal(XMLConfig::addressText(address) + L": " + fault);
}

[[noreturn]] void refuseUnknown(const Address& address) {
    std::vector<std::wstring> names;
    for (const Setting& setting : XMLConfig::settingsOfSection(address.section))
        names.push_back(XMLConfig::addressKey(setting));
    const std::wstring key =
        XMLConfig::addressText({L"x", L"", address.subSection, address.subSectionID, address.key}).substr(2);
    const std::wstring nearest =
        names.empty() ? suggestion(address.section, XMLConfig::sectionNames()) : suggestion(key, names);
    refuse(address,
           L"there is no such setting" + nearest + (nearest.empty() ? L"; " : L" ") + L"--force stores it all the same");
}

/// Faults that --force overrules.
void checkKnown(const Assignment& assignment, const ConfigInfo& document) {
    const Address& address = assignment.address;
    const auto setting = XMLConfig::findSetting(address);
    if (!setting && !XMLConfig::isOpenSection(address.section) && !XMLConfig::findElement(document, address))
        refuseUnknown(address);
    if (setting && !XMLConfig::isOfType(assignment.value, setting->type))
        refuse(address, L"\"" + assignment.value + L"\" is not of type " + nameOf(setting->type) +
                            L"; --force stores it all the same");
    const bool mayBeMissing = address.sectionID.empty() && !XMLConfig::isDeviceSection(address.section);
    if (!mayBeMissing && !document.doesSectionExist(address.section, address.sectionID))
        refuse(address, L"there is no such section; --force adds it");
}

/// Whether a value stands where the address wants other elements.
bool standsInValue(const Address& address, const ConfigInfo& document) {
    Address above = address;
    for (std::size_t end = address.key.rfind(L'|'); end != std::wstring::npos && end != 0;
         end = address.key.rfind(L'|', end - 1)) {
        above.key.resize(end);
        if (const ElementView element = XMLConfig::findElement(document, above))
            return !element.firstChild() && !element.text().empty();
    }
    return false;
}

void checkAssignment(const Assignment& assignment, const ConfigInfo& document, bool force) {
    const Address& address = assignment.address;
    if (address.key.empty()) refuse(address, L"a section has no value; name a setting in it");
    if (XMLConfig::isHeaderElement(address.section)) refuse(address, L"there are no settings in " + address.section);
    if (!force) checkKnown(assignment, document);
    const bool holdsOthers = bool(XMLConfig::findElement(document, address).firstChild());
    const auto setting = XMLConfig::findSetting(address);
    const bool holdsElement = setting && setting->type == XMLConfig::SettingType::Element;
    if (!holdsElement && holdsOthers) refuse(address, L"holds other settings and no value");
    if (standsInValue(address, document)) refuse(address, L"a value stands where this setting belongs");
    if (holdsElement && assignment.value.empty() && holdsOthers) refuse(address, L"an XML element cannot be made empty");
    if (holdsElement && !address.subSection.empty()) refuse(address, L"an XML element stands directly in its section");
}

void store(ConfigInfo& document, const Assignment& assignment) {
    const auto& [section, sectionID, subSection, subSectionID, key] = assignment.address;
    const auto setting = XMLConfig::findSetting(assignment.address);
    if (setting && setting->type == XMLConfig::SettingType::Element)
        document.setStringItemAsDOMElement(section, key, assignment.value, sectionID);
    else document.setStringItem(section, key, assignment.value, sectionID, subSection, subSectionID);
}

}  // namespace

void setUpSet(CLI::App& app, Request& request) {
    app.add_option("FILE", request.file, "The file to change")->required();
    app.add_option("CHANGE", request.operands, "ADDRESS=VALUE: where a value is stored, and the value")->required();
    app.add_flag("--force", request.force, "Add unknown settings and sections too, and store values of another form");
    setUpWriting(app, request);
    app.footer(addressHelp);
}

ExitStatus runSet(const Request& request) {
    std::vector<Assignment> assignments;
    for (const std::string& operand : request.operands)
        assignments.push_back(XMLConfig::parseAssignment(XMLConfig::wideFromUtf8(operand)));
    const auto lock = lockForWriting(request.file, request);
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    requireLatestVersion(*document, request.file);
    for (const Assignment& assignment : assignments) {  // each is checked with the earlier ones already done
        checkAssignment(assignment, *document, request.force);
        store(*document, assignment);
    }
    if (document->isDirty()) saveDocument(*document, request.file);
    return Done;
}

}  // namespace tool
