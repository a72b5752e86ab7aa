#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/BaseConfig.h"
#include "base/Setting.h"
#include "base/SettingFacts.h"
#include "base/TraitOfType.h"

/// A section is a table of settings. A table is a struct whose members are descriptors; each enters itself into the table
/// when it is made, so that none can be left out:
///
///     struct LampItems : SettingTable {
///         constexpr LampItems() : SettingTable(L"Lamp") {}
///
///         Descriptor<double> power{*this, L"Power", {100.0, 80.0}, means(L"power the lamp is run at").in(Unit::Percent)};
///         Descriptor<int> hours{*this, L"Hours", {0}, means(L"how long the lamp has burnt").onlyRead()};
///     };
///     inline constexpr LampItems lampItems;
///
/// Key, default and the value of a new section stand there and nowhere else. They feed the accessor, initialize(), the
/// catalogue and the tests. The table stands in the order in which initialize() writes.
namespace XMLConfig::detail {

class AnyDescriptor;

/// The settings of one section. An object with static lifetime: its descriptors point into it.
class SettingTable {
public:
    constexpr explicit SettingTable(const wchar_t* sectionName) : section(sectionName) {}
    SettingTable(const SettingTable&) = delete;
    SettingTable& operator=(const SettingTable&) = delete;

    constexpr const AnyDescriptor* const* begin() const { return m_items; }
    constexpr const AnyDescriptor* const* end() const { return m_items + m_count; }

    const wchar_t* const section;  ///< the tag of the section

protected:
    ~SettingTable() = default;

private:
    friend class AnyDescriptor;
    const AnyDescriptor* m_items[64] = {};
    std::size_t m_count = 0;
};

/// What a descriptor is without its type.
class AnyDescriptor {
public:
    AnyDescriptor(const AnyDescriptor&) = delete;
    AnyDescriptor& operator=(const AnyDescriptor&) = delete;

    virtual SettingType type() const = 0;
    virtual std::wstring defaultText() const = 0;
    virtual std::wstring initialText() const = 0;
    /// Writes what a new section holds; "%s" in a text becomes the section's ID.
    virtual void writeInitial(ConfigInfo& document, const std::wstring& section, const std::wstring& sectionID) const = 0;

    const wchar_t* const key;
    const bool hasInitial;  ///< whether a new section holds the item
    const SettingFacts facts;

protected:
    constexpr AnyDescriptor(SettingTable& table, const wchar_t* itemKey, bool isInitial, const SettingFacts& itemFacts)
        : key(itemKey), hasInitial(isInitial), facts(itemFacts) {
        table.m_items[table.m_count++] = this;
    }
    ~AnyDescriptor() = default;
};

/// What a missing item reads as, and what a new section holds.
template <typename T>
struct StartValues {
    using Kept = typename ValueTrait<T>::Kept;

    /// A new section does not hold the item.
    constexpr StartValues(Kept whenMissing) : fallback(whenMissing), initial(whenMissing) {}  // NOLINT: read as a list
    constexpr StartValues(Kept whenMissing, Kept whenNew) : fallback(whenMissing), initial(whenNew), hasInitial(true) {}

    Kept fallback;
    Kept initial;
    bool hasInitial = false;
};

/// A section's ID in the place of the "%s" of a new device's text.
std::wstring withSectionID(std::wstring pattern, const std::wstring& sectionID);

/// One setting whose value has the type T.
template <typename T>
class Descriptor final : public AnyDescriptor {
    static_assert(isListed<T>(ValueTypes()), "ValueTypes must list every type that a setting has");

public:
    using Trait = ValueTrait<T>;
    using Kept = typename Trait::Kept;
    using Given = typename Trait::Given;

    constexpr Descriptor(SettingTable& table, const wchar_t* itemKey, const StartValues<T>& values,
                         const SettingFacts& itemFacts)
        : AnyDescriptor(table, itemKey, values.hasInitial, itemFacts), fallback(values.fallback), initial(values.initial) {}

    SettingType type() const override { return Trait::type; }
    std::wstring defaultText() const override { return Trait::text(fallback); }
    std::wstring initialText() const override { return Trait::text(initial); }
    void writeInitial(ConfigInfo& document, const std::wstring& section, const std::wstring& sectionID) const override {
        if constexpr (std::is_same_v<Given, std::wstring>)
            Trait::write(document, {section, sectionID, key}, withSectionID(initial, sectionID));
        else Trait::write(document, {section, sectionID, key}, initial);
    }

    const Kept fallback;  ///< what a missing item reads as
    const Kept initial;   ///< what a new section holds; the fallback where it does not hold the item
};

/// Degrees as radians, by the arithmetic of UnitConversionTable::convertValue.
constexpr double fromDegrees(double value) { return value * (1.0 / 57.29577951308232); }

/// Every setting of a table, in its order.
std::vector<Setting> settingsOf(const SettingTable& table);

/// For static_assert: no two items of a section share a key.
constexpr bool keysAreDistinct(const SettingTable& table) {
    for (const AnyDescriptor* const* one = table.begin(); one != table.end(); ++one)
        for (const AnyDescriptor* const* other = table.begin(); other != one; ++other)
            if (std::wstring_view((*one)->key) == (*other)->key) return false;
    return true;
}

/// Whether a setter's value has exactly the type that the descriptor gives.
template <typename T, typename Value>
inline constexpr bool isValueOf = std::is_same_v<Value, typename ValueTrait<T>::Given>;

/// A descriptor's key with its "%d" replaced by a number.
std::wstring numberedKey(std::wstring_view pattern, int number);
/// The number in a key that was made from the pattern, which ends in "%d"; nothing when the key was not made from it.
std::optional<int> numberOfKey(std::wstring_view pattern, std::wstring_view key);

}  // namespace XMLConfig::detail

template <typename T>
BaseConfig::Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> BaseConfig::read(
    const XMLConfig::detail::Descriptor<T>& item) const {
    return {XMLConfig::detail::ValueTrait<T>::read(*m_configInfo, {m_sectionName, m_sectionID, item.key}, item.fallback)};
}

template <typename T, typename Value>
void BaseConfig::write(const XMLConfig::detail::Descriptor<T>& item, const Value& value) {
    static_assert(XMLConfig::detail::isValueOf<T, Value>, "the setter's type is not the descriptor's");
    XMLConfig::detail::ValueTrait<T>::write(*m_configInfo, {m_sectionName, m_sectionID, item.key}, value);
}
