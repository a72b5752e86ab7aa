#include "manager/upgrade/CommonProjectorValues.h"

#include <cstddef>
#include <tuple>
#include <vector>

#include "manager/upgrade/MostFrequent.h"
#include "manager/upgrade/StepTools.h"

namespace XMLConfig::detail {

namespace {

using Projectors = std::vector<StepSection>;

int read(const StepSection& section, const wchar_t* key, int fallback) { return section.integer(key, fallback); }
double read(const StepSection& section, const wchar_t* key, double fallback) { return section.number(key, fallback); }
Point_2Dim<int> read(const StepSection& section, const wchar_t* key, const Point_2Dim<int>& fallback) {
    return section.point(key, fallback);
}

void write(StepSection& section, const wchar_t* key, int value) { section.setInteger(key, value); }
void write(StepSection& section, const wchar_t* key, double value) { section.setNumber(key, value); }
void write(StepSection& section, const wchar_t* key, const Point_2Dim<int>& value) { section.setPoint(key, value); }

// One of the settings, with the value of each projector: its own, else that of the geometry section, else the fallback.
template <typename Value>
class SharedSetting {
public:
    SharedSetting(const Projectors& projectors, const StepSection& geometry, const wchar_t* key, const Value& fallback)
        : m_key(key), m_common(fallback) {
        for (const StepSection& projector : projectors) {
            m_values.push_back(read(projector.has(key) ? projector : geometry, key, fallback));
        }
        if (!m_values.empty()) m_common = mostFrequent(m_values);
    }

    void writeCommonValue(StepSection& geometry) const { write(geometry, m_key, m_common); }
    void removeFromProjector(Projectors& projectors, std::size_t number) const {
        if (isSame(m_values[number], m_common)) projectors[number].removeItem(m_key);
    }

private:
    const wchar_t* m_key;
    std::vector<Value> m_values;
    Value m_common;
};

}  // namespace

void shareCommonProjectorValues(ConfigInfo& document) {
    StepSection geometry(document, L"Geometry");
    Projectors projectors = projectorsOf(document);
    const Point_2Dim<int> boxSize(21, 21);
    // All are read before any is written: a projector without a value of its own has that of the geometry section.
    const std::tuple settings(SharedSetting(projectors, geometry, L"Portrait_Mode", 0),
                              SharedSetting(projectors, geometry, L"Box_Size", boxSize),
                              SharedSetting(projectors, geometry, L"Box_Spacing", 1.5),
                              SharedSetting(projectors, geometry, L"ImageResolution_X", 1400),
                              SharedSetting(projectors, geometry, L"ImageResolution_Y", 1050),
                              SharedSetting(projectors, geometry, L"InputImageScaling_Mode", 0));

    std::apply([&](const auto&... setting) { (setting.writeCommonValue(geometry), ...); }, settings);
    for (std::size_t i = 0; i < projectors.size(); ++i) {
        std::apply([&](const auto&... setting) { (setting.removeFromProjector(projectors, i), ...); }, settings);
    }
}

}  // namespace XMLConfig::detail
