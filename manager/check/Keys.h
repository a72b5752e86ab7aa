#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/Setting.h"
#include "store/ElementView.h"

/// What all sections of one tag have in common: their keys, which are looked up in the catalogue once for all of them, and
/// the texts that one after the other holds at a key, of which whatever is made is made once.
namespace XMLConfig::detail {

/// A value as the application reads it.
struct ReadValue {
    explicit ReadValue(std::wstring read);

    std::wstring text;  ///< in stored form
    double number = 0.0;
    int integer = 0;
};

/// A text that is stored at a key.
class MetText {
public:
    MetText(std::wstring stored, const Setting* setting) : text(std::move(stored)), m_setting(setting) {}

    /// What the application makes of it; null where it counts as missing.
    [[nodiscard]] const ReadValue* value() const;

    const std::wstring text;
    bool isFormFine = false;  ///< whether the rules on the form have looked at it and found nothing

private:
    const Setting* m_setting;
    mutable bool m_isRead = false;
    mutable std::optional<ReadValue> m_value;
};

/// The way from a section to an element below it.
struct MetKey {
    enum class Kind { Value, Group, Unknown };

    std::wstring text;                 ///< parts joined by "|", with the IDs of subsections
    const Setting* setting = nullptr;  ///< null where the catalogue knows none
    Kind kind = Kind::Unknown;
    bool holdsIDs = false;   ///< whether the ID of a subsection is a part of it
    std::size_t number = 0;  ///< among those of the tag

    // What the last section had there, for it is what the next one has as a rule.

    ElementView sample;                                ///< an element of that name
    bool hasID = false;                                ///< whether the last part has an ID
    MetKey* inside = nullptr;                          ///< the first key inside
    MetKey* after = nullptr;                           ///< the key that came after it in the same group
    std::size_t section = 0;                           ///< the last section that had it
    ElementView element;                               ///< and the first element there
    MetText* lastText = nullptr;                       ///< and its text
    std::unordered_map<std::wstring, MetKey*> byName;  ///< those inside, by name and ID
};

/// What the application reads where no section holds the setting.
struct MissingValue {
    const Setting* setting = nullptr;
    std::optional<ReadValue> byDefault;
};

class TagKeys {
public:
    explicit TagKeys(std::wstring name);

    const std::wstring tag;
    const bool isKnown;  ///< whether the catalogue knows sections of that name

    [[nodiscard]] const MetKey* find(std::wstring_view key) const;
    /// The key of a child of a group, or of the section where `group` is null; `before` is that of the child before it.
    MetKey& keyOf(const ElementView& child, MetKey* group, MetKey* before);
    MetText& textOf(const ElementView& element, MetKey& key);
    MetText& noText() { return m_noText; }
    [[nodiscard]] const MissingValue& missing(std::wstring_view key) const;

private:
    MetKey& add(const ElementView& child, const std::wstring& key);

    MetKey m_root;
    MetText m_noText{L"", nullptr};
    std::deque<MetKey> m_keys;
    std::deque<MetText> m_texts;
    std::unordered_map<std::wstring_view, const MetKey*> m_byText;
    mutable std::unordered_map<std::wstring, MissingValue> m_missing;
};

}  // namespace XMLConfig::detail
