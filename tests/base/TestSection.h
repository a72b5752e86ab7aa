#pragma once

#include <string>
#include <tuple>

#include "base/Items.h"

/// A section of the tests' own, with a descriptor of every type.
namespace testItems {

using XMLConfig::detail::AllZeros;
using XMLConfig::detail::Fragment;
using XMLConfig::detail::Item;

inline constexpr Item<bool> flag{L"Flag", true, false};
inline constexpr Item<int> count{L"Count", 7, 3};
inline constexpr Item<double> ratio{L"Ratio", 0.5};
inline constexpr Item<Point_2Dim<int>> size{L"Size", {4, 3}, {1, 2}};
inline constexpr Item<Point_2Dim<double>> spot{L"Spot", {0.5, 0.25}, {1.5, 2.5}};
inline constexpr Item<Point_3Dim<double>> place{L"Place", {1.0, 2.0, 3.0}, {0.0, 0.0, -1.0}};
inline constexpr Item<std::wstring> name{L"Names|First", L"nobody", L"somebody"};
inline constexpr Item<Fragment> snippet{L"Snippet", L"", L""};
inline constexpr Item<Frustum> frustum{L"Frustum", AllZeros{}, AllZeros{}};
inline constexpr Item<BlackLevelBlending::PondOfMirrors> pond{L"Pond", AllZeros{}, AllZeros{}};

inline constexpr auto all = std::tuple(flag, count, ratio, size, spot, place, name, snippet, frustum, pond);

}  // namespace testItems

/// The protected members of BaseConfig, open to tests.
class TestSection : public BaseConfig {
public:
    explicit TestSection(ConfigInfo* configInfo, const std::wstring& sectionID = L"")
        : BaseConfig(configInfo, L"Test", sectionID) {}

    void initialize() override {
        writeInitial(testItems::flag);
        writeInitial(testItems::count);
        writeInitial(testItems::size);
        writeInitial(testItems::spot);
        writeInitial(testItems::place);
        writeInitial(testItems::name);
        writeInitial(testItems::snippet);
        writeInitial(testItems::frustum);
        writeInitial(testItems::pond);
    }

    using BaseConfig::get;
    using BaseConfig::m_configInfo;
    using BaseConfig::oldSectionIDTagName;
    using BaseConfig::read;
    using BaseConfig::set;
    using BaseConfig::setupConversionMap;
    using BaseConfig::write;
};
