#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Numbers.h"
#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

/// What separates the pieces of stored points, lists and tables.
inline constexpr const wchar_t* listDelimiters = L" ,\n\t";
inline bool isListDelimiter(wchar_t character) {
    return character == L' ' || character == L',' || character == L'\n' || character == L'\t';
}

/// The non-empty pieces of a stored point, list or table.
inline std::vector<std::wstring> tokensOf(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    ConfigInfo::createTokenVector(tokens, text, listDelimiters);
    return tokens;
}
/// Those of an item's text; none for a missing item.
inline std::vector<std::wstring> tokensOf(const ConfigInfo& configInfo, const std::wstring& sectionName,
                                          const std::wstring& key, const std::wstring& sectionID) {
    return tokensOf(configInfo.getStringItem(sectionName, key, {}, sectionID, {}, {}));
}

/// How a value is made of tokens, and what stands for one that cannot be read.
template <typename T>
struct FormOfTokens;

template <>
struct FormOfTokens<double> {
    static constexpr std::size_t tokens = 1;
    static double placeholder() { return -1.0; }
    static double from(const std::vector<std::wstring>& t) { return leadingDouble(t[0]); }
};
template <>
struct FormOfTokens<Point_2Dim<int>> {
    static constexpr std::size_t tokens = 2;
    static Point_2Dim<int> placeholder() { return {-1000, -1000}; }
    static Point_2Dim<int> from(const std::vector<std::wstring>& t) { return {leadingInteger(t[0]), leadingInteger(t[1])}; }
};
template <>
struct FormOfTokens<Point_2Dim<double>> {
    static constexpr std::size_t tokens = 2;
    static Point_2Dim<double> placeholder() { return {-1000.0, -1000.0}; }
    static Point_2Dim<double> from(const std::vector<std::wstring>& t) { return {leadingDouble(t[0]), leadingDouble(t[1])}; }
};
template <>
struct FormOfTokens<Point_3Dim<double>> {
    static constexpr std::size_t tokens = 3;
    static Point_3Dim<double> placeholder() { return {-1000.0, -1000.0, -1000.0}; }
    static Point_3Dim<double> from(const std::vector<std::wstring>& t) {
        return {leadingDouble(t[0]), leadingDouble(t[1]), leadingDouble(t[2])};
    }
};

/// The value when the number of tokens is exactly right.
template <typename T>
T readOr(const std::vector<std::wstring>& tokens, const T& otherwise) {
    return tokens.size() == FormOfTokens<T>::tokens ? FormOfTokens<T>::from(tokens) : otherwise;
}

}  // namespace XMLConfig::detail
