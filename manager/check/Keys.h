#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/Setting.h"
#include "store/ElementView.h"

/// What the sections of one tag have in common. A document of many projectors holds the same keys in each of them, and
/// mostly the same texts too. So each key is looked up in the catalogue once for all sections, and each text is read once
/// for those sections that hold it one after the other.
namespace XMLConfig::detail {

/// A value as the application reads it.
struct ReadValue {
    explicit ReadValue(std::wstring read);

    std::wstring text;  ///< in stored form
    double number = 0.0;
    int integer = 0;
};

/// A text that one section after another stores at one key, and the value that the application reads of it.
class SharedText {
public:
    SharedText(std::wstring stored, const Setting* setting) : text(std::move(stored)), m_setting(setting) {}

    /// What the application makes of it; null where it counts as missing.
    [[nodiscard]] const ReadValue* value() const;

    const std::wstring text;
    bool isFormFine = false;  ///< whether the rules on the form have examined this text and found no fault

private:
    const Setting* m_setting;
    mutable bool m_isRead = false;
    mutable std::optional<ReadValue> m_value;
};

/// The key of an element below a section, the same object in every section of the tag that holds such an element.
struct SectionKey {
    enum class Kind { Value, Group, Unknown };

    std::wstring text;                 ///< parts joined by "|", with the IDs of subsections
    const Setting* setting = nullptr;  ///< null where the catalogue knows none
    Kind kind = Kind::Unknown;
    bool holdsIDs = false;   ///< whether the ID of a subsection is a part of `text`
    std::size_t number = 0;  ///< counts the keys of the tag in the order in which they were first met

    // What the section read last has there. The next section mostly has the same, and is compared with it first.

    ElementView sample;                                    ///< an element with the name of the last part
    bool hasID = false;                                    ///< whether the last part has an ID
    SectionKey* inside = nullptr;                          ///< the key of the first child
    SectionKey* after = nullptr;                           ///< the key of the next element beside it
    std::size_t section = 0;                               ///< the number of the last section with the key
    ElementView element;                                   ///< the first element of that section at the key
    SharedText* lastText = nullptr;                        ///< the text of that element
    std::unordered_map<std::wstring, SectionKey*> byName;  ///< the keys of all children, by name and ID
};

/// What the application reads where no section holds the setting.
struct MissingValue {
    const Setting* setting = nullptr;
    std::optional<ReadValue> byDefault;
};

/// The keys that the sections of one tag hold, and their texts.
class KeysOfTag {
public:
    explicit KeysOfTag(std::wstring name);

    const std::wstring tag;
    const bool isKnown;  ///< whether the catalogue knows sections of that name

    /// Null for a key that no section read so far holds.
    [[nodiscard]] const SectionKey* find(std::wstring_view key) const;
    /// The key of a child of a group, or of the section where `group` is null; `before` is that of the child before it.
    SectionKey& keyOf(const ElementView& child, SectionKey* group, SectionKey* before);
    /// The text of an element at the key: the last one, where it is the same again.
    SharedText& textOf(const ElementView& element, SectionKey& key);
    /// What stands for the text of an element that holds elements.
    SharedText& noText() { return m_noText; }
    [[nodiscard]] const MissingValue& missing(std::wstring_view key) const;

private:
    SectionKey& add(const ElementView& child, const std::wstring& key);

    SectionKey m_root;
    SharedText m_noText{L"", nullptr};
    std::deque<SectionKey> m_keys;
    std::deque<SharedText> m_texts;
    std::unordered_map<std::wstring_view, const SectionKey*> m_byText;
    mutable std::unordered_map<std::wstring, MissingValue> m_missing;
};

}  // namespace XMLConfig::detail
