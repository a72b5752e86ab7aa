#include "fuzz/FuzzFile.h"
#include "manager/Check.h"
#include "manager/SettingSearch.h"
#include "store/Address.h"
#include "store/CorvaneException.h"

namespace {

using XMLConfig::Assignment;

/// Stores the value as the tool's "set" does, and looks where it went.
void set(ConfigInfo& document, const Assignment& assignment) {
    const auto& [section, sectionID, subSection, subSectionID, key] = assignment.address;
    if (key.empty() || XMLConfig::isHeaderElement(section)) return;
    const auto setting = XMLConfig::findSetting(assignment.address);
    if (setting) static_cast<void>(XMLConfig::isOfType(assignment.value, setting->type));
    try {
        if (setting && setting->type == XMLConfig::SettingType::Element)
            return document.setStringItemAsDOMElement(section, key, assignment.value, sectionID);
        document.setStringItem(section, key, assignment.value, sectionID, subSection, subSectionID);
    } catch (const CorvaneExceptionBase&) {
        return;
    }
    require(document.getStringItem(section, key, L"(default)", sectionID, subSection, subSectionID) == assignment.value,
            "a value stands where it was stored");
}

void tryLine(ConfigInfo& document, const std::wstring& line) {
    try {
        const XMLConfig::Address address = XMLConfig::parseAddress(line);
        const std::wstring text = XMLConfig::addressText(address);
        require(XMLConfig::addressText(XMLConfig::parseAddress(text)) == text, "an address is a fixed point");
    } catch (const CorvaneExceptionBase& error) {
        require(!error.getMessage().empty(), "a refusal says why");
    }
    try {
        set(document, XMLConfig::parseAssignment(line));
    } catch (const CorvaneExceptionBase& error) {
        require(!error.getMessage().empty(), "a refusal says why");
    }
}

}  // namespace

// A line each: ADDRESS or ADDRESS=VALUE. What the changes made can be saved, read and checked.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    std::wstring text = input.rest();
    ConfigInfo document;
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        tryLine(document, text.substr(0, end));
        text.erase(0, end == std::wstring::npos ? end : end + 1);
    }
    const std::string saved = savedText(document);
    ConfigInfo again(fuzzFile(saved));
    require(savedText(again) == saved, "a saved file is a fixed point");
    XMLConfig::check(again);
    return 0;
}
