#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/Document.h"
#include "store/TextForms.h"
#include "store/Together.h"
#include "store/Tokens.h"

using XMLConfig::detail::Document;
using XMLConfig::detail::leadingDouble;
using XMLConfig::detail::leadingInteger;
using XMLConfig::detail::readOr;
using XMLConfig::detail::reporting;
using XMLConfig::detail::textOf;
using XMLConfig::detail::together;
using XMLConfig::detail::tokensOf;

namespace {

// A number of an item's text, without making wide text of it; the default when there is no item.
template <typename Number, typename Convert>
Number numberItem(const Document& document, const std::wstring& sectionName, const std::wstring& key, Number defaultValue,
                  const std::wstring& sectionID, Convert convert) {
    return reporting(L"Error getItem: ", [&] {
        const auto item = document.getItem(sectionName, key, sectionID);
        if (item.element == nullptr) return defaultValue;
        std::u16string buffer;
        return static_cast<Number>(convert(document.textOf(item, buffer)));
    });
}

}  // namespace

bool ConfigInfo::getBoolItem(const std::wstring& sectionName, const std::wstring& key, bool defaultValue,
                             const std::wstring& sectionID) const {
    return XMLConfig::detail::boolOf(getStringItem(sectionName, key, {}, sectionID, {}, {})).value_or(defaultValue);
}

void ConfigInfo::setBoolItem(const std::wstring& sectionName, const std::wstring& key, bool value,
                             const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

int ConfigInfo::getIntegerItem(const std::wstring& sectionName, const std::wstring& key, int defaultValue,
                               const std::wstring& sectionID) const {
    return numberItem(*m_document, sectionName, key, defaultValue, sectionID,
                      [](std::u16string_view text) { return leadingInteger(text); });
}

void ConfigInfo::setIntegerItem(const std::wstring& sectionName, const std::wstring& key, int value,
                                const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

double ConfigInfo::getDoubleItem(const std::wstring& sectionName, const std::wstring& key, double defaultValue,
                                 const std::wstring& sectionID) const {
    return numberItem(*m_document, sectionName, key, defaultValue, sectionID,
                      [](std::u16string_view text) { return leadingDouble(text); });
}

void ConfigInfo::setDoubleItem(const std::wstring& sectionName, const std::wstring& key, double value,
                               const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

Point_2Dim<int> ConfigInfo::getPoint2IItem(const std::wstring& sectionName, const std::wstring& key,
                                           const Point_2Dim<int>& defaultValue, const std::wstring& sectionID) const {
    return readOr(tokensOf(*this, sectionName, key, sectionID), defaultValue);
}

void ConfigInfo::setPoint2IItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<int>& value,
                                const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

Point_2Dim<double> ConfigInfo::getPoint2DItem(const std::wstring& sectionName, const std::wstring& key,
                                              const Point_2Dim<double>& defaultValue, const std::wstring& sectionID) const {
    return readOr(tokensOf(*this, sectionName, key, sectionID), defaultValue);
}

void ConfigInfo::setPoint2DItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<double>& value,
                                const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

Point_3Dim<double> ConfigInfo::getPoint3DItem(const std::wstring& sectionName, const std::wstring& key,
                                              const Point_3Dim<double>& defaultValue, const std::wstring& sectionID) const {
    return readOr(tokensOf(*this, sectionName, key, sectionID), defaultValue);
}

void ConfigInfo::setPoint3DItem(const std::wstring& sectionName, const std::wstring& key, const Point_3Dim<double>& value,
                                const std::wstring& sectionID) {
    setStringItem(sectionName, key, textOf(value), sectionID, {}, {});
}

Frustum ConfigInfo::getFrustum(const std::wstring& sectionName, const std::wstring& key, const Frustum& defaultValue,
                               const std::wstring& sectionID) const {
    const auto number = [&](const wchar_t* suffix, double field) {
        return getDoubleItem(sectionName, key + suffix, field, sectionID);
    };
    const auto offset = getPoint3DItem(sectionName, key + L"|Offset", defaultValue.Offset, sectionID);
    const auto rotation = getPoint3DItem(sectionName, key + L"|RotationYPR", defaultValue.RotationYPR, sectionID);
    const double left = number(L"|FOVLeft", defaultValue.FOVLeft);
    const double right = number(L"|FOVRight", defaultValue.FOVRight);
    const double top = number(L"|FOVTop", defaultValue.FOVTop);
    const double bottom = number(L"|FOVBottom", defaultValue.FOVBottom);
    const int resolutionX = getIntegerItem(sectionName, key + L"|ResolutionX", defaultValue.ResolutionX, sectionID);
    const int resolutionY = getIntegerItem(sectionName, key + L"|ResolutionY", defaultValue.ResolutionY, sectionID);
    return {offset, rotation, left, right, top, bottom, resolutionX, resolutionY};
}

void ConfigInfo::setFrustum(const std::wstring& sectionName, const std::wstring& key, Frustum value,
                            const std::wstring& sectionID) {
    together(*this, [&] {
        setPoint3DItem(sectionName, key + L"|Offset", value.Offset, sectionID);
        setPoint3DItem(sectionName, key + L"|RotationYPR", value.RotationYPR, sectionID);
        setDoubleItem(sectionName, key + L"|FOVLeft", value.FOVLeft, sectionID);
        setDoubleItem(sectionName, key + L"|FOVRight", value.FOVRight, sectionID);
        setDoubleItem(sectionName, key + L"|FOVTop", value.FOVTop, sectionID);
        setDoubleItem(sectionName, key + L"|FOVBottom", value.FOVBottom, sectionID);
        setIntegerItem(sectionName, key + L"|ResolutionX", value.ResolutionX, sectionID);
        setIntegerItem(sectionName, key + L"|ResolutionY", value.ResolutionY, sectionID);
    });
}

void ConfigInfo::getPondOfMirrors(const std::wstring& sectionName, const std::wstring& key,
                                  BlackLevelBlending::PondOfMirrors& value, const std::wstring& sectionID) const {
    const auto flag = [&](const wchar_t* suffix, std::uint8_t& field) {
        field = static_cast<std::uint8_t>(getIntegerItem(sectionName, key + suffix, field, sectionID));
    };
    flag(L"|Top", value.Top);
    flag(L"|Bottom", value.Bottom);
    flag(L"|Left", value.Left);
    flag(L"|Right", value.Right);
}

void ConfigInfo::setPondOfMirrors(const std::wstring& sectionName, const std::wstring& key,
                                  const BlackLevelBlending::PondOfMirrors& value, const std::wstring& sectionID) {
    together(*this, [&] {
        setIntegerItem(sectionName, key + L"|Top", value.Top, sectionID);
        setIntegerItem(sectionName, key + L"|Bottom", value.Bottom, sectionID);
        setIntegerItem(sectionName, key + L"|Left", value.Left, sectionID);
        setIntegerItem(sectionName, key + L"|Right", value.Right, sectionID);
    });
}
