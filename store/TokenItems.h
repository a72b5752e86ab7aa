#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/Tokens.h"

/// Items made of numbers between blanks, commas, line feeds and tabs.
namespace XMLConfig::detail {

/// The tokens of an item's text; none for a missing item.
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
