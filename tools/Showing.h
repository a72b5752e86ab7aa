#pragma once

#include <map>
#include <string>
#include <utility>

#include "base/Setting.h"
#include "store/Address.h"
#include "tools/NumberTexts.h"

class ConfigInfo;

namespace tool {

/// How a document's places and values are shown to people: devices by their names, numbers in the document's units.
class Showing {
public:
    /// Borrows nothing: names and units are read once.
    explicit Showing(const ConfigInfo& document);

    /// The device's name as it stands; its ID where it has none or shares it with another of its kind.
    [[nodiscard]] std::wstring device(const std::wstring& section, const std::wstring& id) const;
    /// The address with the device's name in the place of its ID, printable. What follows the section in `text` stays as it
    /// is.
    [[nodiscard]] std::wstring address(const std::wstring& text, const XMLConfig::Address& place) const;
    [[nodiscard]] std::wstring address(const XMLConfig::Address& place) const;
    /// A stored text of the setting as people read it: shortest digits, angles and lengths in the document's units, cameras
    /// by name, one line. As it stands where it is not of the setting's type; `setting` may be null.
    [[nodiscard]] std::wstring value(const std::wstring& stored, const XMLConfig::Setting* setting) const;
    /// The same beside other words: a text of which nothing would be seen, empty or blank, stands in quotes.
    [[nodiscard]] std::wstring visibleValue(const std::wstring& stored, const XMLConfig::Setting* setting) const;
    [[nodiscard]] const Units& units() const { return m_units; }

private:
    [[nodiscard]] std::wstring number(double value, XMLConfig::Unit unit) const;
    [[nodiscard]] std::wstring cameras(const std::wstring& ids) const;

    Units m_units;
    std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_names;  // by section and ID, those that are unique
};

/// "old -> new" of a setting's two texts, each as its document shows it. Different ones that would look the same stand as
/// they are stored, and where that is the same in one line, in quotes with all their blanks.
std::wstring shownChange(const Showing& before, const std::wstring& old, const Showing& after, const std::wstring& now,
                         const XMLConfig::Setting* setting);

}  // namespace tool
