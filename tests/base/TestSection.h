#pragma once

#include <string>

#include "base/SettingTable.h"

/// A section of the tests' own, with a descriptor of every type.
struct TestItems : XMLConfig::detail::SettingTable {
    template <typename T>
    using Of = XMLConfig::detail::Descriptor<T>;
    static constexpr auto known = XMLConfig::detail::means(L"what it is");
    static constexpr XMLConfig::detail::AllZeros zeros{};

    constexpr TestItems() : SettingTable(L"Test") {}

    Of<bool> flag{*this, L"Flag", {true, false}, known};
    Of<int> count{*this, L"Count", {7, 3}, known};
    Of<double> ratio{*this, L"Ratio", {0.5}, known};
    Of<Point_2Dim<int>> size{*this, L"Size", {{4, 3}, {1, 2}}, known};
    Of<Point_2Dim<double>> spot{*this, L"Spot", {{0.5, 0.25}, {1.5, 2.5}}, known};
    Of<Point_3Dim<double>> place{*this, L"Place", {{1.0, 2.0, 3.0}, {0.0, 0.0, -1.0}}, known};
    Of<std::wstring> name{*this, L"Names|First", {L"nobody", L"somebody"}, known};
    Of<XMLConfig::detail::XmlElement> snippet{*this, L"Snippet", {L"", L""}, known};
    Of<Frustum> frustum{*this, L"Frustum", {zeros, zeros}, known};
    Of<BlackLevelBlending::PondOfMirrors> pond{*this, L"Pond", {zeros, zeros}, known};
};
inline constexpr TestItems testItems;

/// The protected members of BaseConfig, open to tests.
class TestSection : public BaseConfig {
public:
    explicit TestSection(ConfigInfo* configInfo, const std::wstring& sectionID = L"")
        : BaseConfig(configInfo, L"Test", sectionID) {}

    void initialize() override { writeInitialValues(testItems); }

    using BaseConfig::get;
    using BaseConfig::m_configInfo;
    using BaseConfig::oldSectionIDTagName;
    using BaseConfig::read;
    using BaseConfig::set;
    using BaseConfig::setupConversionMap;
    using BaseConfig::write;
};
