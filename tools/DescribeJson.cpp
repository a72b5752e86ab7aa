#include "tools/DescribeJson.h"

#include <cmath>

#include "manager/SettingSearch.h"
#include "tools/Json.h"

namespace tool {
namespace {

using XMLConfig::Setting;

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

Json olderWordJson(const Setting& setting) {
    if (!setting.olderWord) return nullptr;
    return {{"value", jsonText(setting.olderWord->text)}, {"countsAs", jsonText(setting.olderWord->countsAs)}};
}

Json jsonOf(const Setting& setting) {
    return {{"address", jsonText(addressOf(setting))},
            {"meaning", jsonText(setting.meaning)},
            {"type", jsonText(nameOf(setting.type))},
            {"unit", jsonText(nameOf(setting.unit))},
            {"values", valuesJson(setting)},
            {"othersCountAs", jsonText(setting.othersCountAs)},
            {"olderWord", olderWordJson(setting)},
            {"range", rangeJson(setting)},
            {"default", jsonText(setting.defaultText)},
            {"defaultMeaning", setting.defaultMeaning.empty() ? Json(nullptr) : jsonText(setting.defaultMeaning)},
            {"initial", jsonText(setting.initialText)},
            {"inheritsFrom", setting.inheritsFrom.empty() ? Json(nullptr) : jsonText(setting.inheritsFrom)},
            {"class", jsonText(nameOf(setting.settingClass))},
            {"rules", ruleIDsJson(XMLConfig::rulesOf(setting))},
            {"countsWhile", setting.countsWhile ? jsonText(conditionText(setting)) : Json(nullptr)},
            {"readOnly", setting.readOnly},
            {"writtenByRuns", setting.writtenByRuns}};
}

}  // namespace

std::wstring addressOf(const Setting& setting) { return setting.section + L"/" + XMLConfig::addressKey(setting); }

std::wstring describeJson(const std::vector<Topic>& topics) {
    Json answer = jsonAnswer("describe");
    answer["settings"] = Json::array();
    answer["rules"] = Json::array();
    for (const Topic& topic : topics) {
        for (const Setting& setting : topic.settings) answer["settings"].push_back(jsonOf(setting));
        for (const XMLConfig::CheckRule* const rule : topic.rules) answer["rules"].push_back(ruleJson(*rule));
    }
    return jsonEnd(std::move(answer), 0);
}

}  // namespace tool
