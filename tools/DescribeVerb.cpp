#include <algorithm>

#include "manager/Catalogue.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "platform/Words.h"
#include "store/Address.h"
#include "store/CorvaneException.h"
#include "store/Tokens.h"
#include "tools/DescribeJson.h"
#include "tools/Json.h"
#include "tools/NumberTexts.h"
#include "tools/Output.h"
#include "tools/RuleText.h"
#include "tools/Suggestion.h"
#include "tools/TableText.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::Setting;
using XMLConfig::SettingClass;
using XMLConfig::SettingType;
using XMLConfig::detail::lowerAscii;

bool isWord(const std::wstring& text, const Setting& setting) {
    return std::find(setting.words.begin(), setting.words.end(), text) != setting.words.end();
}

/// What a setting of a device belongs to, for a setting that a copy to another device leaves out.
std::wstring belonging(SettingClass settingClass) {
    return settingClass == SettingClass::Identity ? L"the device's identity"
                                                  : L"the device's " + std::wstring(nameOf(settingClass));
}

std::wstring padded(const std::wstring& text, std::size_t width) {
    return text + std::wstring(width > text.size() ? width - text.size() : 0, L' ');
}

void printList(const std::vector<Setting>& settings) {
    std::vector<std::vector<std::wstring>> rows;
    rows.reserve(settings.size());
    for (const Setting& setting : settings) rows.push_back({addressOf(setting), nameOf(setting.type), setting.meaning});
    print(tableText(rows, L""));
}

void printField(const wchar_t* label, const std::wstring& text) {
    if (!text.empty()) print(padded(label, 16) + text + L"\n");
}

std::wstring numbersText(const std::wstring& stored) {
    std::wstring text;
    for (const std::wstring& number : XMLConfig::detail::tokensOf(stored))
        text += (text.empty() ? L"" : L", ") + numberText(numberRead(number));
    return text;
}

/// A stored text as people read it; quotes tell that texts, and what is empty, are texts.
std::wstring shown(const std::wstring& stored, const Setting& setting) {
    if (isNumbers(setting.type) && isOfType(stored, setting.type)) return numbersText(stored);
    const bool isText = stored.empty() || setting.type == SettingType::Text || setting.type == SettingType::Path;
    return isText && !isWord(stored, setting) ? L"\"" + stored + L"\"" : stored;
}

void printDetails(const Setting& setting) {
    const std::wstring byDefault =
        setting.defaultMeaning.empty() ? shown(setting.defaultText, setting) : setting.defaultMeaning;
    print(addressOf(setting) + L"\n");
    printField(L"  meaning", setting.meaning);
    printField(L"  type", nameOf(setting.type));
    printField(L"  unit", nameOf(setting.unit));
    printField(L"  values", valuesText(setting));
    printField(L"  when missing",
               setting.inheritsFrom.empty() ? byDefault : L"that of " + setting.inheritsFrom + L", else " + byDefault);
    printField(L"  when new", setting.initialText ? shown(*setting.initialText, setting) : L"not stored");
    printField(L"  counts", setting.countsWhile ? L"only while " + conditionText(setting) : L"");
    printField(L"  belongs to", setting.settingClass == SettingClass::Rest ? L"" : belonging(setting.settingClass));
    printField(L"  rules", ruleIDs(XMLConfig::rulesOf(setting)));
    printField(L"  access", setting.readOnly ? L"only read by the library" : L"");
}

/// The settings whose address or meaning holds the word, whatever the case of its letters.
std::vector<Setting> settingsAbout(const std::wstring& word) {
    const std::wstring wanted = lowerAscii(word);
    std::vector<Setting> found;
    for (const Setting& setting : XMLConfig::catalogue()) {
        const bool isFound = lowerAscii(addressOf(setting)).find(wanted) != std::wstring::npos ||
                             lowerAscii(setting.meaning).find(wanted) != std::wstring::npos;
        if (isFound) found.push_back(setting);
    }
    return found;
}

/// An address as the other verbs take it; nothing for a text that is none.
std::optional<Address> addressIn(const std::wstring& text) {
    try {
        return XMLConfig::parseAddress(text);
    } catch (const CorvaneParseException&) {
        return std::nullopt;
    }
}

/// "Projector/Gamma" for "Projector[Dome 1]/Gamma"; any other text as it is.
std::wstring withoutDevice(const std::wstring& text) {
    std::optional<Address> address = addressIn(text);
    if (!address || address->sectionID.empty()) return text;
    address->sectionID.clear();
    return addressText(*address);
}

/// The setting at an address that the catalogue does not hold: the part of a record, or one of many with a number or an ID.
std::optional<Setting> settingAt(const std::wstring& text) {
    const std::optional<Address> address = addressIn(text);
    return address ? XMLConfig::findSetting(*address) : std::nullopt;
}

/// The settings of a section, at an address or below it.
std::vector<Setting> settingsAt(const std::wstring& text) {
    const std::wstring section = text.substr(0, text.find(L'/'));
    std::vector<Setting> found;
    for (const Setting& setting : XMLConfig::settingsOfSection(section)) {
        const std::wstring address = addressOf(setting);
        const bool isBelow = address.compare(0, text.size() + 1, text + L"/") == 0;
        if (address == text || isBelow) found.push_back(setting);
    }
    const std::optional<Setting> one = found.empty() ? settingAt(text) : std::nullopt;
    if (one) found.push_back(*one);
    return found;
}

/// Refuses a text that is spelt like a rule's ID and is none.
[[noreturn]] void refuseUnknownRule(const std::wstring& text) {
    std::wstring start = text;
    while (rulesBeginning(start).empty()) start.pop_back();
    throw Refusal(L"there is no rule \"" + text + L"\"; 'xmlconfig describe " + start + L"' lists those that begin so");
}

/// All names that a user may have meant by a text without a section.
std::vector<std::wstring> allNames() {
    std::vector<std::wstring> names = XMLConfig::sectionNames();
    for (const Setting& setting : XMLConfig::catalogue()) names.push_back(addressKey(setting));
    return names;
}

[[noreturn]] void refuseUnknown(const std::wstring& text) {
    std::vector<std::wstring> names = allNames();
    if (text.find(L'/') != std::wstring::npos) {
        const std::vector<Setting> settings = XMLConfig::settingsOfSection(text.substr(0, text.find(L'/')));
        if (!settings.empty()) names.clear();
        for (const Setting& setting : settings) names.push_back(addressOf(setting));
    }
    throw Refusal(L"there is no \"" + text + L"\" among the settings and rules" + suggestion(text, names));
}

/// What an operand asks for: a rule, the rules that begin so, an address, or else a word to look for.
Topic topicOf(const std::wstring& asked) {
    if (const XMLConfig::CheckRule* const rule = ruleNamed(asked)) return {asked, {}, {rule}};
    if (isStartOfRuleIDs(asked)) {
        const Rules rules = rulesBeginning(asked);
        if (rules.empty()) refuseUnknownRule(asked);
        return {asked, {}, rules};
    }
    Topic topic{asked, settingsAt(withoutDevice(asked)), {}};
    if (topic.settings.size() == 1) topic.asked = addressOf(topic.settings[0]);
    if (!topic.settings.empty()) return topic;
    if (!asked.empty()) topic = {asked, settingsAbout(asked), rulesAbout(asked)};
    if (topic.settings.empty() && topic.rules.empty()) refuseUnknown(asked);
    return topic;
}

bool isNameOf(const XMLConfig::CheckRule& rule, const std::wstring& text) {
    return ruleNamed(text) == &rule || lowerAscii(text) == rule.name;
}

void printTopic(const Topic& topic) {
    const bool isOfOneRule = topic.settings.empty() && topic.rules.size() == 1;
    if (isOfOneRule && isNameOf(*topic.rules[0], topic.asked)) print(ruleText(*topic.rules[0]));
    else if (topic.settings.size() == 1 && addressOf(topic.settings[0]) == topic.asked) printDetails(topic.settings[0]);
    else {
        printList(topic.settings);
        if (!topic.rules.empty()) print(L"rules: " + ruleIDs(topic.rules) + L"\n");
    }
}

}  // namespace

void setUpDescribe(Options& options, Request& request) {
    options.value(
        "SETTING", request.operands,
        "SECTION, an address in it, a rule of check, or a word to look for in names and meanings; all settings are "
        "listed without");
    options.flag("--json", request.json, "Answer with one JSON object");
    options.footer("Exit status: 0 done, 1 nothing is known of it, 2 wrong usage.");
}

ExitStatus runDescribe(const Request& request) {
    std::vector<Topic> topics;
    for (const std::string& operand : request.operands) topics.push_back(topicOf(XMLConfig::wideFromUtf8(operand)));
    if (topics.empty()) topics.push_back({L"", XMLConfig::catalogue(), {}});
    if (request.operands.empty() && request.json) topics[0].rules = rulesAbout(L"");
    if (request.json) print(describeJson(topics));
    else
        for (const Topic& topic : topics) printTopic(topic);
    return Done;
}

}  // namespace tool
