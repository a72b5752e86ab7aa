#include <algorithm>
#include <cmath>

#include "manager/Catalogue.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "tools/Json.h"
#include "tools/Output.h"
#include "tools/RuleText.h"
#include "tools/Suggestion.h"
#include "tools/Table.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Setting;
using XMLConfig::SettingClass;
using XMLConfig::SettingType;

std::wstring addressOf(const Setting& setting) { return setting.section + L"/" + XMLConfig::addressKey(setting); }

bool isWord(const std::wstring& text, const Setting& setting) {
    return std::find(setting.words.begin(), setting.words.end(), text) != setting.words.end();
}

/// What a copy of a device's settings leaves out.
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

/// A stored text as people read it; quotes tell that texts, and what is empty, are texts.
std::wstring shown(const std::wstring& stored, const Setting& setting) {
    const bool isText = stored.empty() || setting.type == SettingType::Text || setting.type == SettingType::Path;
    return isText && !isWord(stored, setting) ? L"\"" + stored + L"\"" : stored;
}

void printDetails(const Setting& setting) {
    const std::wstring byDefault = shown(setting.defaultText, setting);
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
    printField(L"  access", setting.readOnly ? L"only read by the library" : L"");
}

wchar_t lower(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

std::wstring lowered(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

/// Those whose address or meaning holds the word, whatever the case of its letters.
std::vector<Setting> settingsAbout(const std::wstring& word) {
    const std::wstring wanted = lowered(word);
    std::vector<Setting> found;
    for (const Setting& setting : XMLConfig::catalogue()) {
        const bool isFound = lowered(addressOf(setting)).find(wanted) != std::wstring::npos ||
                             lowered(setting.meaning).find(wanted) != std::wstring::npos;
        if (isFound) found.push_back(setting);
    }
    return found;
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
    return found;
}

[[noreturn]] void refuseUnknown(const std::wstring& text) {
    std::vector<std::wstring> names = XMLConfig::sectionNames();
    if (text.find(L'/') != std::wstring::npos) {
        const std::vector<Setting> settings = XMLConfig::settingsOfSection(text.substr(0, text.find(L'/')));
        if (!settings.empty()) names.clear();
        for (const Setting& setting : settings) names.push_back(addressOf(setting));
    }
    throw Refusal(L"there is no \"" + text + L"\" among the settings" + suggestion(text, names));
}

/// What an operand asks for: an address first, else a word.
std::vector<Setting> settingsFor(const std::wstring& text) {
    std::vector<Setting> settings = settingsAt(text);
    if (settings.empty() && !text.empty()) settings = settingsAbout(text);
    if (settings.empty()) refuseUnknown(text);
    return settings;
}

Json rangeJson(const Setting& setting) {
    if (!setting.range) return nullptr;
    const auto limit = [](double number) { return std::isfinite(number) ? Json(number) : Json(nullptr); };
    return {{"low", limit(setting.range->low)},
            {"high", limit(setting.range->high)},
            {"withoutLow", setting.range->withoutLow},
            {"ownJudgement", setting.range->ownJudgement}};
}

Json valuesJson(const Setting& setting) {
    Json values = Json::array();
    for (const std::wstring& word : setting.words) values.push_back({{"value", jsonText(word)}, {"name", nullptr}});
    for (const XMLConfig::NamedNumber& number : setting.numbers)
        values.push_back({{"value", number.number}, {"name", jsonText(number.name)}});
    return values;
}

Json jsonOf(const Setting& setting) {
    return {{"address", jsonText(addressOf(setting))},
            {"meaning", jsonText(setting.meaning)},
            {"type", jsonText(nameOf(setting.type))},
            {"unit", jsonText(nameOf(setting.unit))},
            {"values", valuesJson(setting)},
            {"othersCountAs", jsonText(setting.othersCountAs)},
            {"range", rangeJson(setting)},
            {"default", jsonText(setting.defaultText)},
            {"initial", jsonText(setting.initialText)},
            {"inheritsFrom", setting.inheritsFrom.empty() ? Json(nullptr) : jsonText(setting.inheritsFrom)},
            {"class", jsonText(nameOf(setting.settingClass))},
            {"countsWhile", setting.countsWhile ? jsonText(conditionText(setting)) : Json(nullptr)},
            {"readOnly", setting.readOnly},
            {"writtenByRuns", setting.writtenByRuns}};
}

Json jsonOf(const std::vector<Setting>& settings) {
    Json json = Json::array();
    for (const Setting& setting : settings) json.push_back(jsonOf(setting));
    return json;
}

void printSettings(const std::vector<Setting>& settings, const std::wstring& asked) {
    if (settings.size() == 1 && addressOf(settings[0]) == asked) printDetails(settings[0]);
    else printList(settings);
}

bool isRule(const std::wstring& word) { return !ruleText(word).empty(); }

}  // namespace

void setUpDescribe(Options& options, Request& request) {
    options.value("SETTING", request.operands,
                  "SECTION, SECTION/KEY, or a word to look for in names and meanings; all settings are listed without");
    options.flag("--json", request.json, "Answer with one JSON object");
    options.footer("Exit status: 0 done, 1 nothing is known of it, 2 wrong usage.");
}

ExitStatus runDescribe(const Request& request) {
    std::vector<std::vector<Setting>> answers;
    for (const std::string& operand : request.operands) {
        const std::wstring word = XMLConfig::wideFromUtf8(operand);
        answers.push_back(isRule(word) ? std::vector<Setting>() : settingsFor(word));
    }
    if (answers.empty()) answers.push_back(XMLConfig::catalogue());
    if (request.json) {
        for (const std::string& operand : request.operands)
            if (isRule(XMLConfig::wideFromUtf8(operand))) throw WrongOperands("--json tells of settings, not of rules");
        Json answer = jsonAnswer("describe");
        answer["settings"] = Json::array();
        for (const auto& settings : answers)
            for (Json& setting : jsonOf(settings)) answer["settings"].push_back(std::move(setting));
        print(jsonEnd(std::move(answer), Done));
        return Done;
    }
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const std::wstring word = request.operands.empty() ? L"" : XMLConfig::wideFromUtf8(request.operands[i]);
        if (isRule(word)) print(ruleText(word));
        else printSettings(answers[i], word);
    }
    return Done;
}

}  // namespace tool
