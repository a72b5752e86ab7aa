#pragma once

#include <string>
#include <vector>

#include "store/ConfigInfo.h"
#include "store/ValueTypes.h"

/// What the open key/value sections share: an item of any key, read with the caller's value as its default, written, or
/// written only where it differs.
namespace XMLConfig::detail {

struct OpenItem {
    ConfigInfo& document;
    const std::wstring& section;
    const std::wstring& sectionID;
    const std::wstring& key;
};

// What is stored; the fallback when the item is missing.
bool stored(const OpenItem& item, bool fallback);
int stored(const OpenItem& item, int fallback);
float stored(const OpenItem& item, float fallback);
Point_3Dim<double> stored(const OpenItem& item, const Point_3Dim<double>& fallback);
std::wstring stored(const OpenItem& item, const std::wstring& fallback);
/// Numbers separated by blanks, commas, line feeds or tabs; an item without any gives an empty list.
std::vector<float> stored(const OpenItem& item, const std::vector<float>& fallback);

void store(const OpenItem& item, bool value);
void store(const OpenItem& item, int value);
void store(const OpenItem& item, float value);
void store(const OpenItem& item, const Point_3Dim<double>& value);
void store(const OpenItem& item, const std::wstring& value);
/// Each number with six significant digits and ", " behind it.
void store(const OpenItem& item, const std::vector<float>& value);

/// Writes the value unless the item, or `fallback` where it is missing, equals it; tells whether it wrote. A number that is
/// NaN on either side equals nothing.
template <typename T>
bool change(const OpenItem& item, const T& value, const T& fallback) {
    if (stored(item, fallback) == value) return false;
    store(item, value);
    return true;
}

}  // namespace XMLConfig::detail
