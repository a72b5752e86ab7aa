#pragma once

#include <string>
#include <vector>

#include "base/ValueTraits.h"
#include "sections/MediaServerItems.h"

/// What the open key/value sections share: an item of any key, written only where it differs, and two types of value that
/// only they hold.
namespace XMLConfig::detail {

inline constexpr const wchar_t* projMapSection = L"ProjMap";
/// Every open section.
inline constexpr const wchar_t* openSections[] = {mediaServerItems.section, projMapSection};

template <>
struct ValueTrait<float> {
    static float read(const ConfigInfo& document, const ItemPlace& at, float fallback) {
        return static_cast<float>(ValueTrait<double>::read(document, at, fallback));
    }
    static void write(ConfigInfo& document, const ItemPlace& at, float value) {
        ValueTrait<double>::write(document, at, static_cast<double>(value));
    }
};

template <>
struct ValueTrait<std::vector<float>> {
    using Given = std::vector<float>;
    /// Numbers separated by blanks, commas, line feeds or tabs; an item without any gives an empty list.
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback);
    /// Each number with six significant digits and ", " after it.
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value);
};

/// Writes the value unless the item, or `fallback` where it is missing, equals it; tells whether it wrote. A number that is
/// NaN on either side equals nothing.
template <typename T>
bool change(ConfigInfo& document, const ItemPlace& at, const T& value, const T& fallback) {
    if (ValueTrait<T>::read(document, at, fallback) == value) return false;
    ValueTrait<T>::write(document, at, value);
    return true;
}

}  // namespace XMLConfig::detail
