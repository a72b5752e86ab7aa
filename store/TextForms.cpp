#include "store/TextForms.h"

#include "platform/Numbers.h"

namespace XMLConfig::detail {

std::wstring textOf(bool value) { return value ? L"true" : L"false"; }
std::wstring textOf(int value) { return formatInteger(value); }
std::wstring textOf(double value) { return formatScientific(value); }

std::wstring textOf(const Point_2Dim<int>& value) { return formatInteger(value.x) + L", " + formatInteger(value.y); }

std::wstring textOf(const Point_2Dim<double>& value) {
    return formatScientific(value.x) + L", " + formatScientific(value.y);
}

std::wstring textOf(const Point_3Dim<double>& value) {
    return formatScientific(value.x) + L", " + formatScientific(value.y) + L", " + formatScientific(value.z);
}

}  // namespace XMLConfig::detail
