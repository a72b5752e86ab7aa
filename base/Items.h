#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/BaseConfig.h"
#include "base/Setting.h"
#include "base/UnitConversionTable.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"

/// Typed descriptors of settings. A section is a table of them: key, default and the value of a new document stand here
/// and nowhere else, and feed the accessor, initialize() and the catalogue.
namespace XMLConfig::detail {

/// Marks an item that holds an XML element; at the accessor it is text.
struct Fragment {};
/// Stands in descriptors for a record whose fields are all zero.
struct AllZeros {
    operator Frustum() const { return {}; }                            // NOLINT(google-explicit-constructor)
    operator BlackLevelBlending::PondOfMirrors() const { return {}; }  // NOLINT(google-explicit-constructor)
};

/// How a descriptor keeps a value of T (constant expressions only), and what an accessor gives.
template <typename T>
struct ItemTypes {
    using Kept = T;
    using Given = T;
};
template <>
struct ItemTypes<std::wstring> {
    using Kept = const wchar_t*;
    using Given = std::wstring;
};
template <>
struct ItemTypes<Fragment> {
    using Kept = const wchar_t*;
    using Given = std::wstring;
};
template <>
struct ItemTypes<Frustum> {
    using Kept = AllZeros;
    using Given = Frustum;
};
template <>
struct ItemTypes<BlackLevelBlending::PondOfMirrors> {
    using Kept = AllZeros;
    using Given = BlackLevelBlending::PondOfMirrors;
};

template <typename T>
class Item {
public:
    using Kept = typename ItemTypes<T>::Kept;
    using Given = typename ItemTypes<T>::Given;

    /// A new document does not hold the item.
    constexpr Item(const wchar_t* itemKey, Kept itemFallback)
        : key(itemKey), fallback(itemFallback), initial(itemFallback) {}
    /// A new document holds `itemInitial`.
    constexpr Item(const wchar_t* itemKey, Kept itemFallback, Kept itemInitial)
        : key(itemKey), fallback(itemFallback), initial(itemInitial), hasInitial(true) {}

    constexpr Item in(const wchar_t* itemUnit) const { return with(&Item::unit, itemUnit); }
    constexpr Item inheritsFrom(const wchar_t* section) const { return with(&Item::parent, section); }
    constexpr Item holds(const wchar_t* itemForm) const { return with(&Item::form, itemForm); }
    constexpr Item means(const wchar_t* text) const { return with(&Item::meaning, text); }
    constexpr Item onlyRead() const { return with(&Item::readOnly, true); }

    const wchar_t* key;
    Kept fallback;
    Kept initial;
    bool hasInitial = false;
    bool readOnly = false;
    const wchar_t* unit = L"";
    const wchar_t* parent = L"";    ///< section that is asked when the item is missing
    const wchar_t* form = nullptr;  ///< name of a special text form
    const wchar_t* meaning = L"";

private:
    template <typename Field, typename Value>
    constexpr Item with(Field Item::*field, Value value) const {
        Item copy = *this;
        copy.*field = value;
        return copy;
    }
};

/// Degrees as radians, by the arithmetic of UnitConversionTable::convertValue.
constexpr double degrees(double value) { return value * (1.0 / 57.29577951308232); }

/// What a descriptor gave. Converts to exactly its own type, so that an accessor of another type does not compile.
template <typename T>
class ReadValue {
public:
    using Given = typename ItemTypes<T>::Given;
    explicit ReadValue(Given given) : value(std::move(given)) {}
    template <typename U, typename = std::enable_if_t<std::is_same_v<U, Given>>>
    operator U() const {  // NOLINT(google-explicit-constructor): exact type only
        return value;
    }
    Given value;
};

/// Whether a setter's value has exactly the type that the descriptor gives.
template <typename T, typename Value>
inline constexpr bool isValueOf = std::is_same_v<Value, typename ItemTypes<T>::Given>;

// The store's operations, chosen by the descriptor's type.

inline bool readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<bool>& i) {
    return c.getBoolItem(s, i.key, i.fallback, id);
}
inline int readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<int>& i) {
    return c.getIntegerItem(s, i.key, i.fallback, id);
}
inline double readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<double>& i) {
    return c.getDoubleItem(s, i.key, i.fallback, id);
}
inline Point_2Dim<int> readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                                const Item<Point_2Dim<int>>& i) {
    return c.getPoint2IItem(s, i.key, i.fallback, id);
}
inline Point_2Dim<double> readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                                   const Item<Point_2Dim<double>>& i) {
    return c.getPoint2DItem(s, i.key, i.fallback, id);
}
inline Point_3Dim<double> readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                                   const Item<Point_3Dim<double>>& i) {
    return c.getPoint3DItem(s, i.key, i.fallback, id);
}
inline std::wstring readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                             const Item<std::wstring>& i) {
    return c.getStringItem(s, i.key, i.fallback, id, {}, {});
}
inline std::wstring readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Fragment>& i) {
    return c.getStringItemAsDOMElement(s, i.key, i.fallback, id);
}
inline Frustum readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Frustum>& i) {
    return c.getFrustum(s, i.key, Frustum(), id);
}
inline BlackLevelBlending::PondOfMirrors readItem(const ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                                                  const Item<BlackLevelBlending::PondOfMirrors>& i) {
    BlackLevelBlending::PondOfMirrors value;
    c.getPondOfMirrors(s, i.key, value, id);
    return value;
}

inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<bool>& i, bool value) {
    c.setBoolItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<int>& i, int value) {
    c.setIntegerItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<double>& i, double value) {
    c.setDoubleItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Point_2Dim<int>>& i,
                      const Point_2Dim<int>& value) {
    c.setPoint2IItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Point_2Dim<double>>& i,
                      const Point_2Dim<double>& value) {
    c.setPoint2DItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Point_3Dim<double>>& i,
                      const Point_3Dim<double>& value) {
    c.setPoint3DItem(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<std::wstring>& i,
                      const std::wstring& value) {
    c.setStringItem(s, i.key, value, id, {}, {});
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Fragment>& i,
                      const std::wstring& value) {
    c.setStringItemAsDOMElement(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id, const Item<Frustum>& i,
                      const Frustum& value) {
    c.setFrustum(s, i.key, value, id);
}
inline void writeItem(ConfigInfo& c, const std::wstring& s, const std::wstring& id,
                      const Item<BlackLevelBlending::PondOfMirrors>& i, const BlackLevelBlending::PondOfMirrors& value) {
    c.setPondOfMirrors(s, i.key, value, id);
}

/// The name of a type in the catalogue.
template <typename T>
constexpr const wchar_t* typeName() {
    if constexpr (std::is_same_v<T, bool>) return L"bool";
    else if constexpr (std::is_same_v<T, int>) return L"int";
    else if constexpr (std::is_same_v<T, double>) return L"double";
    else if constexpr (std::is_same_v<T, Point_2Dim<int>>) return L"2-D integer point";
    else if constexpr (std::is_same_v<T, Point_2Dim<double>>) return L"2-D point";
    else if constexpr (std::is_same_v<T, Point_3Dim<double>>) return L"3-D point";
    else if constexpr (std::is_same_v<T, Fragment>) return L"XML element";
    else if constexpr (std::is_same_v<T, Frustum>) return L"frustum";
    else if constexpr (std::is_same_v<T, BlackLevelBlending::PondOfMirrors>) return L"pond of mirrors";
    else return L"text";
}

inline std::wstring keptText(const wchar_t* value) { return value; }
inline std::wstring keptText(AllZeros) { return L"all zeros"; }
template <typename T>
std::wstring keptText(const T& value) {
    return textOf(value);
}

template <typename T>
Setting settingOf(const wchar_t* section, const Item<T>& item) {
    Setting setting;
    setting.section = section;
    setting.key = item.key;
    setting.type = item.form != nullptr ? item.form : typeName<T>();
    setting.defaultText = keptText(item.fallback);
    if (item.hasInitial) setting.initialText = keptText(item.initial);
    setting.unit = item.unit;
    setting.inheritsFrom = item.parent;
    setting.readOnly = item.readOnly;
    setting.meaning = item.meaning;
    return setting;
}

/// Every setting of a section whose items stand in a tuple, in its order.
template <typename... T>
std::vector<Setting> settingsOf(const wchar_t* section, const std::tuple<Item<T>...>& items) {
    return std::apply([&](const auto&... item) { return std::vector<Setting>{settingOf(section, item)...}; }, items);
}

/// For static_assert: no two items of a section share a key.
template <typename... T>
constexpr bool keysAreDistinct(const std::tuple<Item<T>...>& items) {
    const wchar_t* keys[sizeof...(T) + 1] = {};  // an empty tuple is a table too
    std::size_t count = 0;
    std::apply([&](const auto&... item) { ((keys[count++] = item.key), ...); }, items);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = i + 1; j < count; ++j)
            if (std::wstring_view(keys[i]) == std::wstring_view(keys[j])) return false;
    return true;
}

/// A descriptor's key with its "%d" replaced by a number.
inline std::wstring numberedKey(std::wstring_view pattern, int number) {
    return std::wstring(pattern).replace(pattern.find(L"%d"), 2, formatInteger(number));
}

/// The reverse, for a pattern that ends in "%d"; nothing when the key is not of that pattern.
inline std::optional<int> numberOfKey(std::wstring_view pattern, std::wstring_view key) {
    const std::wstring_view prefix = pattern.substr(0, pattern.find(L"%d"));
    if (key.substr(0, prefix.size()) != prefix) return std::nullopt;
    const int number = leadingInteger(key.substr(prefix.size()));
    return numberedKey(pattern, number) == key ? std::optional<int>(number) : std::nullopt;
}

}  // namespace XMLConfig::detail

template <typename T>
XMLConfig::detail::ReadValue<T> BaseConfig::read(const XMLConfig::detail::Item<T>& item) const {
    return XMLConfig::detail::ReadValue<T>(
        XMLConfig::detail::readItem(*m_configInfo, getSectionName(), getSectionID(), item));
}

template <typename T, typename Value>
void BaseConfig::write(const XMLConfig::detail::Item<T>& item, const Value& value) {
    static_assert(XMLConfig::detail::isValueOf<T, Value>, "the setter's type is not the descriptor's");
    XMLConfig::detail::writeItem(*m_configInfo, getSectionName(), getSectionID(), item, value);
}

template <typename T>
void BaseConfig::writeInitial(const XMLConfig::detail::Item<T>& item) {
    XMLConfig::detail::writeItem(*m_configInfo, getSectionName(), getSectionID(), item, item.initial);
}
