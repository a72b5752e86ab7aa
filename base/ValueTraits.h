#pragma once

#include <string>
#include <string_view>

#include "base/Setting.h"
#include "base/StoredTexts.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"

/// What the library knows of each type of value that a setting can have, once for each type.
namespace XMLConfig::detail {

/// Where an item stands in a document. Borrows its texts: for calls only.
struct ItemPlace {
    const std::wstring& section;
    const std::wstring& sectionID;
    const std::wstring& key;
};

/// Marks an item that holds an XML element; at the accessor it is text.
struct XmlElement {};
/// Stands in descriptors for a record whose fields are all zero.
struct AllZeros {
    operator Frustum() const { return {}; }                            // NOLINT(google-explicit-constructor)
    operator BlackLevelBlending::PondOfMirrors() const { return {}; }  // NOLINT(google-explicit-constructor)
};

/// Of a type T: `Given`, what an accessor takes and gives; `Kept`, how a descriptor keeps a value (constant expressions
/// only); the type's name in the catalogue; reading, writing, the stored text of a kept value, and whether a stored text is
/// the whole of a value. A type without a trait cannot be a setting's.
template <typename T>
struct ValueTrait;

template <>
struct ValueTrait<bool> {
    using Given = bool;
    using Kept = bool;
    static constexpr SettingType type = SettingType::Bool;
    static bool read(const ConfigInfo& document, const ItemPlace& at, bool fallback) {
        return document.getBoolItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, bool value) {
        document.setBoolItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(bool value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isBoolText(text); }
};

template <>
struct ValueTrait<int> {
    using Given = int;
    using Kept = int;
    static constexpr SettingType type = SettingType::Int;
    static int read(const ConfigInfo& document, const ItemPlace& at, int fallback) {
        return document.getIntegerItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, int value) {
        document.setIntegerItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(int value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isIntegerText(text); }
};

template <>
struct ValueTrait<double> {
    using Given = double;
    using Kept = double;
    static constexpr SettingType type = SettingType::Double;
    static double read(const ConfigInfo& document, const ItemPlace& at, double fallback) {
        return document.getDoubleItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, double value) {
        document.setDoubleItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(double value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isNumberText(text); }
};

template <>
struct ValueTrait<Point_2Dim<int>> {
    using Given = Point_2Dim<int>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::IntPoint2;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint2IItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint2IItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isIntegerPointText(text, 2); }
};

template <>
struct ValueTrait<Point_2Dim<double>> {
    using Given = Point_2Dim<double>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::Point2;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint2DItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint2DItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isPointText(text, 2); }
};

template <>
struct ValueTrait<Point_3Dim<double>> {
    using Given = Point_3Dim<double>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::Point3;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint3DItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint3DItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isPointText(text, 3); }
};

template <>
struct ValueTrait<std::wstring> {
    using Given = std::wstring;
    using Kept = const wchar_t*;
    static constexpr SettingType type = SettingType::Text;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getStringItem(at.section, at.key, fallback, at.sectionID, {}, {});
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setStringItem(at.section, at.key, value, at.sectionID, {}, {});
    }
    static std::wstring text(Kept value) { return value; }
    static bool isValid(std::wstring_view) { return true; }
};

template <>
struct ValueTrait<XmlElement> {
    using Given = std::wstring;
    using Kept = const wchar_t*;
    static constexpr SettingType type = SettingType::Element;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getStringItemAsDOMElement(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setStringItemAsDOMElement(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept value) { return value; }
    static bool isValid(std::wstring_view) { return true; }
};

template <>
struct ValueTrait<Frustum> {
    using Given = Frustum;
    using Kept = AllZeros;
    static constexpr SettingType type = SettingType::Frustum;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getFrustum(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setFrustum(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept) { return L"all zeros"; }
    static bool isValid(std::wstring_view) { return true; }
};

template <>
struct ValueTrait<BlackLevelBlending::PondOfMirrors> {
    using Given = BlackLevelBlending::PondOfMirrors;
    using Kept = AllZeros;
    static constexpr SettingType type = SettingType::PondOfMirrors;
    static Given read(const ConfigInfo& document, const ItemPlace& at, Given fallback) {
        document.getPondOfMirrors(at.section, at.key, fallback, at.sectionID);
        return fallback;
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPondOfMirrors(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept) { return L"all zeros"; }
    static bool isValid(std::wstring_view) { return true; }
};

}  // namespace XMLConfig::detail
