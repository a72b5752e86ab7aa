#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Setting.h"
#include "base/TextChecks.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

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

/// Marks a text of a special form, which its section reads and writes; at the accessor it is text.
template <SettingType form>
struct Special {};

/// Of a type T: `Given`, what an accessor takes and gives; `Kept`, how a descriptor keeps a value (constant expressions
/// only); the type's place and name in the catalogue; whether its texts are one number or several; reading, writing and the
/// stored text of a kept value; whether a stored text is the whole of a value (`isValid`), and what the application makes of
/// a stored text, in stored form, which is nothing for a text that counts as missing (`asRead`). A type without a trait
/// cannot be a setting's.
template <typename T>
struct ValueTrait;

/// The part of a trait that is the same for all texts that the library takes as they stand.
struct TextAsItStands {
    static constexpr bool isNumbers = false;
    static bool isValid(std::wstring_view /*text*/) { return true; }
    static std::optional<std::wstring> asRead(const std::wstring& stored) { return stored; }
};

/// A point's text as the application reads it; nothing for another count of numbers.
template <typename Point>
std::optional<std::wstring> pointAsRead(const std::wstring& stored) {
    const std::vector<std::wstring> tokens = tokensOf(stored);
    if (tokens.size() != FormOfTokens<Point>::tokens) return std::nullopt;
    return textOf(FormOfTokens<Point>::from(tokens));
}

template <>
struct ValueTrait<bool> {
    using Given = bool;
    using Kept = bool;
    static constexpr SettingType type = SettingType::Bool;
    static constexpr const wchar_t* name = L"bool";
    static constexpr bool isNumbers = false;
    static bool read(const ConfigInfo& document, const ItemPlace& at, bool fallback) {
        return document.getBoolItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, bool value) {
        document.setBoolItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(bool value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isBoolText(text); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) {
        const std::optional<bool> value = boolOf(stored);
        return value ? std::optional<std::wstring>(textOf(*value)) : std::nullopt;
    }
};

template <>
struct ValueTrait<int> {
    using Given = int;
    using Kept = int;
    static constexpr SettingType type = SettingType::Int;
    static constexpr const wchar_t* name = L"int";
    static constexpr bool isNumbers = true;
    static int read(const ConfigInfo& document, const ItemPlace& at, int fallback) {
        return document.getIntegerItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, int value) {
        document.setIntegerItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(int value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isIntegerText(text); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) {
        return textOf(static_cast<int>(leadingInteger(stored)));
    }
};

template <>
struct ValueTrait<double> {
    using Given = double;
    using Kept = double;
    static constexpr SettingType type = SettingType::Double;
    static constexpr const wchar_t* name = L"double";
    static constexpr bool isNumbers = true;
    static double read(const ConfigInfo& document, const ItemPlace& at, double fallback) {
        return document.getDoubleItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, double value) {
        document.setDoubleItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(double value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isNumberText(text); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) { return textOf(leadingDouble(stored)); }
};

template <>
struct ValueTrait<Point_2Dim<int>> {
    using Given = Point_2Dim<int>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::IntPoint2;
    static constexpr const wchar_t* name = L"2-D integer point";
    static constexpr bool isNumbers = true;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint2IItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint2IItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isIntegerPointText(text, 2); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) { return pointAsRead<Given>(stored); }
};

template <>
struct ValueTrait<Point_2Dim<double>> {
    using Given = Point_2Dim<double>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::Point2;
    static constexpr const wchar_t* name = L"2-D point";
    static constexpr bool isNumbers = true;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint2DItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint2DItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isPointText(text, 2); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) { return pointAsRead<Given>(stored); }
};

template <>
struct ValueTrait<Point_3Dim<double>> {
    using Given = Point_3Dim<double>;
    using Kept = Given;
    static constexpr SettingType type = SettingType::Point3;
    static constexpr const wchar_t* name = L"3-D point";
    static constexpr bool isNumbers = true;
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getPoint3DItem(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPoint3DItem(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(const Given& value) { return textOf(value); }
    static bool isValid(std::wstring_view text) { return isPointText(text, 3); }
    static std::optional<std::wstring> asRead(const std::wstring& stored) { return pointAsRead<Given>(stored); }
};

template <>
struct ValueTrait<std::wstring> : TextAsItStands {
    using Given = std::wstring;
    using Kept = const wchar_t*;
    static constexpr SettingType type = SettingType::Text;
    static constexpr const wchar_t* name = L"text";
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getStringItem(at.section, at.key, fallback, at.sectionID, {}, {});
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setStringItem(at.section, at.key, value, at.sectionID, {}, {});
    }
    static std::wstring text(Kept value) { return value; }
};

template <>
struct ValueTrait<XmlElement> : TextAsItStands {
    using Given = std::wstring;
    using Kept = const wchar_t*;
    static constexpr SettingType type = SettingType::Element;
    static constexpr const wchar_t* name = L"XML element";
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getStringItemAsDOMElement(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setStringItemAsDOMElement(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept value) { return value; }
};

template <>
struct ValueTrait<Frustum> : TextAsItStands {
    using Given = Frustum;
    using Kept = AllZeros;
    static constexpr SettingType type = SettingType::Frustum;
    static constexpr const wchar_t* name = L"frustum";
    static Given read(const ConfigInfo& document, const ItemPlace& at, const Given& fallback) {
        return document.getFrustum(at.section, at.key, fallback, at.sectionID);
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setFrustum(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept) { return L"all zeros"; }
};

template <>
struct ValueTrait<BlackLevelBlending::PondOfMirrors> : TextAsItStands {
    using Given = BlackLevelBlending::PondOfMirrors;
    using Kept = AllZeros;
    static constexpr SettingType type = SettingType::PondOfMirrors;
    static constexpr const wchar_t* name = L"pond of mirrors";
    static Given read(const ConfigInfo& document, const ItemPlace& at, Given fallback) {
        document.getPondOfMirrors(at.section, at.key, fallback, at.sectionID);
        return fallback;
    }
    static void write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
        document.setPondOfMirrors(at.section, at.key, value, at.sectionID);
    }
    static std::wstring text(Kept) { return L"all zeros"; }
};

template <SettingType form>
inline constexpr const wchar_t* nameOfForm = nullptr;
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::Path> = L"path";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::CameraIDs> = L"list of camera IDs";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::OverlapPoint> = L"3-D point and two channels";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::BlackBox> = L"black box";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::IntegerPairs> = L"integer pairs";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::FourIntegers> = L"four integers";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::MarkerPlaces> = L"calibration points";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::PointList> = L"list of 3-D points";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::Matrix> = L"4 x 4 matrix";
template <>
inline constexpr const wchar_t* nameOfForm<SettingType::AxisTable> = L"axis table";

template <SettingType form>
struct ValueTrait<Special<form>> : ValueTrait<std::wstring> {
    static constexpr SettingType type = form;
    static constexpr const wchar_t* name = nameOfForm<form>;
    static_assert(name != nullptr, "a form without a name");
};

}  // namespace XMLConfig::detail
