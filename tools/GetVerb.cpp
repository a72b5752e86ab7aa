#include <CLI/App.hpp>

#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Tree.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;

bool holdsElement(const Address& address) {
    const auto setting = XMLConfig::findSetting(address);
    return setting && setting->type == XMLConfig::SettingType::Element;
}

/// A value as it is stored, an XML element as XML, everything else as a tree.
std::wstring textAt(const ConfigInfo& document, const Address& address, const ElementView& element) {
    if (!element.firstChild() && !address.key.empty()) return element.text();
    if (holdsElement(address))
        return document.getStringItemAsDOMElement(address.section, address.key, L"", address.sectionID);
    return treeText(XMLConfig::outline(element));
}

}  // namespace

void setUpGet(CLI::App& app, Request& request) {
    app.add_option("FILE", request.file, "The file to read")->required();
    app.add_option("ADDRESS", request.operands, "Where a value stands; a whole section or group is shown as a tree")
        ->required();
    app.footer(addressHelp);
}

ExitStatus runGet(const Request& request) {
    std::vector<Address> addresses;
    for (const std::string& operand : request.operands)
        addresses.push_back(XMLConfig::parseAddress(XMLConfig::wideFromUtf8(operand)));
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    ExitStatus status = Done;
    for (const Address& address : addresses) {
        if (const ElementView element = XMLConfig::findElement(*document, address)) {
            const std::wstring text = textAt(*document, address, element);
            print(!text.empty() && text.back() == L'\n' ? text : text + L"\n");
        } else {
            complain(XMLConfig::wideFromUtf8(request.file) + L": holds no " + XMLConfig::addressText(address));
            status = Refused;
        }
    }
    return status;
}

}  // namespace tool
