#include "manager/upgrade/CommonProjectorValues.h"

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "manager/upgrade/MostFrequent.h"
#include "manager/upgrade/StepTools.h"

namespace XMLConfig::detail {

namespace {

using Projectors = std::vector<StepSection>;

int read(const StepSection& section, const std::wstring& key, int fallback) { return section.integer(key, fallback); }
double read(const StepSection& section, const std::wstring& key, double fallback) { return section.number(key, fallback); }
Point_2Dim<int> read(const StepSection& section, const std::wstring& key, const Point_2Dim<int>& fallback) {
    return section.point(key, fallback);
}

void write(StepSection& section, const std::wstring& key, int value) { section.setInteger(key, value); }
void write(StepSection& section, const std::wstring& key, double value) { section.setNumber(key, value); }
void write(StepSection& section, const std::wstring& key, const Point_2Dim<int>& value) { section.setPoint(key, value); }

// One of the settings, with the value of each projector: its own, else that of the geometry section, else the fallback.
template <typename Value>
class SharedSetting {
public:
    SharedSetting(const StepSection& geometry, const wchar_t* key, const Value& fallback)
        : m_key(key), m_fallback(fallback), m_inherited(read(geometry, m_key, fallback)) {}

    void addValueOf(const StepSection& projector) {
        m_values.push_back(projector.has(m_key) ? read(projector, m_key, m_fallback) : m_inherited);
    }
    void writeCommonValue(StepSection& geometry) {
        m_common = m_values.empty() ? m_fallback : mostFrequent(m_values);
        write(geometry, m_key, m_common);
    }
    void removeFromProjector(Projectors& projectors, std::size_t number) const {
        if (isSame(m_values[number], m_common)) projectors[number].removeItem(m_key);
    }

private:
    std::wstring m_key;
    Value m_fallback;
    Value m_inherited;
    std::vector<Value> m_values;
    Value m_common{};
};

}  // namespace

void shareCommonProjectorValues(StepDocument& document) {
    StepSection geometry(document, L"Geometry");
    Projectors projectors = projectorsOf(document);
    const Point_2Dim<int> boxSize(21, 21);
    std::tuple settings(SharedSetting(geometry, L"Portrait_Mode", 0), SharedSetting(geometry, L"Box_Size", boxSize),
                        SharedSetting(geometry, L"Box_Spacing", 1.5), SharedSetting(geometry, L"ImageResolution_X", 1400),
                        SharedSetting(geometry, L"ImageResolution_Y", 1050),
                        SharedSetting(geometry, L"InputImageScaling_Mode", 0));

    // All are read before any is written: a projector without a value of its own has that of the geometry section.
    for (const StepSection& projector : projectors) {
        std::apply([&](auto&... setting) { (setting.addValueOf(projector), ...); }, settings);
    }
    std::apply([&](auto&... setting) { (setting.writeCommonValue(geometry), ...); }, settings);
    for (std::size_t i = 0; i < projectors.size(); ++i) {
        std::apply([&](const auto&... setting) { (setting.removeFromProjector(projectors, i), ...); }, settings);
    }
}

}  // namespace XMLConfig::detail
