#pragma once

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/RunType.h"
#include "store/Address.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"

/// What the accessors give for each setting, in the form in which the library stores such a value: a row a setting, and one
/// for each part of a record.
namespace XMLConfig::tests {

struct AccessorReading {
    std::wstring catalogueKey;                      ///< as the catalogue spells it; "" for a part of a record
    Address place;                                  ///< where the tests' documents hold it
    std::function<std::wstring(ConfigInfo&)> read;  ///< changes the document where the accessor does
};
using AccessorReadings = std::vector<AccessorReading>;

/// The ID of the devices in the rows.
inline const wchar_t* const readDevice = L"a";

AccessorReadings accessorReadings();
// Some of its parts, which stand in sources of their own.
AccessorReadings readingsOfScreen();
AccessorReadings readingsOfTarget();
AccessorReadings readingsOfProjectors();
AccessorReadings readingsOfCameras();

inline std::wstring formOf(const std::wstring& value) { return value; }
inline std::wstring formOf(RunType value) { return RunTypeToString(value); }
inline std::wstring formOf(Cinema::Frame value) { return Cinema::FrameToString(value); }
template <typename Value>
std::wstring formOf(const Value& value) {
    if constexpr (std::is_enum_v<Value>) return detail::textOf(static_cast<int>(value));
    else return detail::textOf(value);
}

/// What a setter of a section in a document of its own stores.
template <typename Store>
std::wstring storedBy(const Address& place, const Store& store) {
    ConfigInfo document;
    store(document);
    return document.getStringItem(place.section, place.key, L"(none)", {}, {}, {});
}

/// Makes the rows of one section.
template <typename Section>
class Readings {
public:
    using Make = std::function<std::unique_ptr<Section>(ConfigInfo&)>;

    Readings(std::wstring section, std::wstring sectionID, Make make)
        : m_section(std::move(section)), m_id(std::move(sectionID)), m_make(std::move(make)) {}

    /// Getters are members or callables that take the section.
    template <typename Getter>
    Readings& row(const wchar_t* key, Getter getter) {
        return add(key, {m_section, m_id, L"", L"", key}, getter);
    }
    template <typename Getter>
    Readings& part(const wchar_t* key, Getter getter) {
        return add(L"", {m_section, m_id, L"", L"", key}, getter);
    }
    /// A setting whose key in the catalogue stands for many places.
    template <typename Getter>
    Readings& oneOfMany(const wchar_t* catalogueKey, const wchar_t* address, Getter getter) {
        return add(catalogueKey, parseAddress(m_section + L"/" + address), getter);
    }
    const AccessorReadings& rows() const { return m_rows; }

private:
    template <typename Getter>
    Readings& add(const wchar_t* catalogueKey, const Address& place, Getter getter) {
        const auto read = [getter, make = m_make](ConfigInfo& document) {
            const std::unique_ptr<Section> section = make(document);
            return formOf(std::invoke(getter, *section));
        };
        m_rows.push_back({catalogueKey, place, read});
        return *this;
    }

    std::wstring m_section;
    std::wstring m_id;
    Make m_make;
    AccessorReadings m_rows;
};

}  // namespace XMLConfig::tests
