#include "tests/support/ValueSamples.h"

#include <cmath>

#include "manager/Catalogue.h"
#include "manager/SettingSearch.h"
#include "store/TextForms.h"

namespace XMLConfig::tests {

namespace {

std::wstring textOf(double number, const Setting& setting) {
    if (setting.type == SettingType::Int) return detail::textOf(static_cast<int>(number));
    if (setting.type == SettingType::Point2) return detail::textOf(Point_2Dim<double>(number, number));
    if (setting.type == SettingType::Point3) return detail::textOf(Point_3Dim<double>(number, number, number));
    return detail::textOf(number);
}

void addNumbers(ValueSamples& samples, const std::vector<double>& good, const std::vector<double>& bad) {
    for (const double number : good) samples.good.push_back(textOf(number, samples.setting));
    for (const double number : bad) samples.bad.push_back(textOf(number, samples.setting));
}

void addRange(ValueSamples& samples, const Range& range) {
    const double step = samples.setting.type == SettingType::Int ? 1.0 : 1e-6;
    const double low = range.withoutLow ? range.low + step : range.low;
    addNumbers(samples, {low, low + step}, {low - step, low - 1.0});
    if (std::isfinite(range.high))
        addNumbers(samples, {range.high, range.high - step}, {range.high + step, range.high + 1.0});
    samples.rule = L"XC114";
    samples.isWarned = range.ownJudgement;
}

ValueSamples samplesOf(const Setting& setting) {
    ValueSamples samples{setting, {setting.section, L"", L"", L"", setting.key}, {}, {}, L"", false};
    if (isDeviceSection(setting.section)) samples.place.sectionID = L"a";
    if (!setting.words.empty()) {
        samples.good = setting.words;
        samples.bad = {L"Own", L" " + setting.words.back(), setting.words.back() + L"s"};
        samples.rule = L"XC109";
    } else if (!setting.numbers.empty()) {
        for (const NamedNumber& named : setting.numbers) addNumbers(samples, {double(named.number)}, {});
        addNumbers(samples, {}, {-1.0, 99.0});
        samples.rule = L"XC110";
    } else if (setting.range) {
        addRange(samples, *setting.range);
    } else if (setting.unit == Unit::Radians) {
        addNumbers(samples, {0.0, 6.2831, -6.2831}, {6.2833, -6.2833, 45.0});
        samples.rule = L"XC305";
    }
    return samples;
}

}  // namespace

std::vector<ValueSamples> valueSamples() {
    std::vector<ValueSamples> all;
    const auto add = [&](const Setting& setting) {
        ValueSamples samples = samplesOf(setting);
        if (!samples.rule.empty()) all.push_back(std::move(samples));
    };
    for (const Setting& setting : catalogue()) add(setting);
    for (const wchar_t* const part :
         {L"Designed|Frustum|RotationYPR", L"Designed|Frustum|FOVLeft", L"Designed|Frustum|FOVRight",
          L"Designed|Frustum|FOVTop", L"Designed|Frustum|FOVBottom", L"Pond_Of_Mirrors|Top", L"Pond_Of_Mirrors|Bottom",
          L"Pond_Of_Mirrors|Left", L"Pond_Of_Mirrors|Right"})
        add(findSetting({L"Projector", L"", L"", L"", part}).value());
    return all;
}

}  // namespace XMLConfig::tests
