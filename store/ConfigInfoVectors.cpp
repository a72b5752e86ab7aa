#include <cstdint>

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/TextForms.h"
#include "store/Together.h"
#include "store/Tokens.h"

using XMLConfig::detail::FormOfTokens;
using XMLConfig::detail::readOr;
using XMLConfig::detail::textOf;
using XMLConfig::detail::tokensOf;

namespace {

std::wstring elementKey(const std::wstring& key, int i, int j) {
    constexpr std::size_t keyLength = 127;
    return (key + L"_" + textOf(i) + L"_" + textOf(j)).substr(0, keyLength);
}

template <typename T>
void getVector(const ConfigInfo& configInfo, const std::wstring& sectionName, const std::wstring& key, int n, int m,
               std::vector<T>& values, const std::wstring& sectionID) {
    for (int j = 0; j < m; ++j) {
        for (int i = 0; i < n; ++i) {
            values.push_back(
                readOr(tokensOf(configInfo, sectionName, elementKey(key, i, j), sectionID), FormOfTokens<T>::placeholder()));
        }
    }
}

// The number of elements that a vector must hold, computed in 32 bits.
std::size_t elementCount(int n, int m) {
    const auto product = static_cast<std::int32_t>(static_cast<std::uint32_t>(n) * static_cast<std::uint32_t>(m));
    return product < 0 ? 0 : static_cast<std::size_t>(product);
}

template <typename T>
void setVector(ConfigInfo& configInfo, const wchar_t* tooSmall, const std::wstring& sectionName, const std::wstring& key,
               int n, int m, const std::vector<T>& values, const std::wstring& sectionID) {
    if (values.size() < elementCount(n, m)) throw CorvaneException(tooSmall);
    XMLConfig::detail::together(configInfo, [&] {
        std::size_t k = 0;
        for (int j = 0; j < m; ++j) {
            for (int i = 0; i < n && k < values.size(); ++i, ++k)
                configInfo.setStringItem(sectionName, elementKey(key, i, j), textOf(values[k]), sectionID, {}, {});
        }
    });
}

}  // namespace

void ConfigInfo::getDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                 std::vector<double>& values, const std::wstring& sectionID) const {
    getVector(*this, sectionName, key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::setDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                 const std::vector<double>& values, const std::wstring& sectionID) {
    setVector(*this, L"Error: ConfigInfo::setDoubleVector: Passed buffer is too small to support dimensions", sectionName,
              key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::getPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID) const {
    getVector(*this, sectionName, key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::setPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  const std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID) {
    // "diamensions": spelt so on purpose, applications know the message.
    setVector(*this, L"Error: ConfigInfo::setPoint2IVector: Passed buffer is too small to support diamensions", sectionName,
              key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::getPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID) const {
    getVector(*this, sectionName, key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::setPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  const std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID) {
    // "diamensions": spelt so on purpose, applications know the message.
    setVector(*this, L"Error: ConfigInfo::setPoint2DVector: Passed buffer is too small to support diamensions", sectionName,
              key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::getPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID) const {
    getVector(*this, sectionName, key, dimension1, dimension2, values, sectionID);
}

void ConfigInfo::setPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                                  const std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID) {
    // "diamensions": spelt so on purpose, applications know the message.
    setVector(*this, L"Error: ConfigInfo::setPoint3DVector: Passed buffer is too small to support diamensions", sectionName,
              key, dimension1, dimension2, values, sectionID);
}
