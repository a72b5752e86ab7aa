#include <CLI/App.hpp>
#include <algorithm>

#include "manager/Catalogue.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "tools/Output.h"
#include "tools/Suggestion.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Setting;

std::wstring addressOf(const Setting& setting) { return setting.section + L"/" + XMLConfig::addressKey(setting); }

std::wstring padded(const std::wstring& text, std::size_t width) {
    return text + std::wstring(width > text.size() ? width - text.size() : 0, L' ');
}

void printList(const std::vector<Setting>& settings) {
    std::size_t width = 0;
    for (const Setting& setting : settings) width = std::max(width, addressOf(setting).size());
    for (const Setting& setting : settings)
        print(padded(addressOf(setting), width + 2) + padded(nameOf(setting.type), 18) + setting.meaning + L"\n");
}

void printField(const wchar_t* label, const std::wstring& text) {
    if (!text.empty()) print(padded(label, 16) + text + L"\n");
}

void printDetails(const Setting& setting) {
    print(addressOf(setting) + L"\n");
    printField(L"  meaning", setting.meaning);
    printField(L"  type", nameOf(setting.type));
    printField(L"  unit", nameOf(setting.unit));
    printField(L"  values", valuesText(setting));
    printField(L"  when missing", setting.inheritsFrom.empty()
                                      ? L"\"" + setting.defaultText + L"\""
                                      : L"that of " + setting.inheritsFrom + L", else \"" + setting.defaultText + L"\"");
    printField(L"  when new", setting.initialText ? L"\"" + *setting.initialText + L"\"" : L"not stored");
    printField(L"  counts", setting.countsWhile ? L"only while " + conditionText(setting) : L"");
    printField(L"  access", setting.readOnly ? L"only read by the library" : L"");
}

[[noreturn]] void refuseUnknown(const std::wstring& text, const std::vector<std::wstring>& names) {
    throw Refusal(L"there is no \"" + text + L"\" among the settings" + suggestion(text, names));
}

std::vector<Setting> settingsAt(const std::wstring& text) {
    const std::size_t slash = text.find(L'/');
    const std::wstring section = text.substr(0, slash);
    std::vector<Setting> settings = XMLConfig::settingsOfSection(section);
    if (settings.empty()) refuseUnknown(section, XMLConfig::sectionNames());
    if (slash == std::wstring::npos) return settings;
    std::vector<Setting> found;
    std::vector<std::wstring> names;
    for (const Setting& setting : settings) {
        names.push_back(addressOf(setting));
        if (names.back() == text || names.back().rfind(text + L"/", 0) == 0) found.push_back(setting);
    }
    if (found.empty()) refuseUnknown(text, names);
    return found;
}

}  // namespace

void setUpDescribe(CLI::App& app, Request& request) {
    app.add_option("SETTING", request.operands, "SECTION or SECTION/KEY; all settings are listed without");
}

ExitStatus runDescribe(const Request& request) {
    if (request.operands.empty()) printList(XMLConfig::catalogue());
    for (const std::string& operand : request.operands) {
        const std::wstring text = XMLConfig::wideFromUtf8(operand);
        const std::vector<Setting> settings = settingsAt(text);
        if (settings.size() == 1 && addressOf(settings[0]) == text) printDetails(settings[0]);
        else printList(settings);
    }
    return Done;
}

}  // namespace tool
