#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Setting.h"
#include "store/ElementView.h"
#include "store/ValueTypes.h"

/// What the sections of one tag have in common. A document of many projectors holds the same keys in each of them, and
/// mostly the same texts too. So each key is looked up in the catalogue once for all sections, and each text is read once
/// for those sections that hold it one after the other.
namespace XMLConfig::detail {

/// A value as the application reads it: given as text, number or point, and made into another where that is asked for.
class ReadValue {
public:
    explicit ReadValue(std::wstring text) : m_text(std::move(text)) {}
    explicit ReadValue(double number) : m_number(number) {}
    explicit ReadValue(const Point_3Dim<double>& point) : m_point(point) {}

    [[nodiscard]] const std::wstring& text() const;  ///< in stored form
    [[nodiscard]] double number() const;
    [[nodiscard]] int integer() const;
    [[nodiscard]] Point_3Dim<double> point() const;  ///< zeros for another count of numbers

private:
    mutable std::optional<std::wstring> m_text;
    mutable std::optional<double> m_number;
    mutable std::optional<int> m_integer;
    std::optional<Point_3Dim<double>> m_point;
};

/// A text that one section after another stores at one key, and the value that the application reads of it.
class SharedText {
public:
    SharedText(std::wstring stored, const Setting* setting) : text(std::move(stored)), m_setting(setting) {}

    /// What the application makes of it; null where it counts as missing.
    [[nodiscard]] const ReadValue* value() const;
    /// The numbers that begin its pieces, whatever the setting's type.
    [[nodiscard]] const std::vector<double>& numbers() const;

    const std::wstring text;
    bool isFormFine = false;  ///< whether the rules on the form have examined this text and found no fault

private:
    [[nodiscard]] std::optional<ReadValue> read() const;

    const Setting* m_setting;
    mutable bool m_isRead = false;
    mutable std::optional<ReadValue> m_value;
    mutable std::optional<std::vector<double>> m_numbers;
};

/// The numbers that begin the pieces of a text.
std::vector<double> numbersOf(std::wstring_view text);

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
    std::size_t repeats = 0;                               ///< how many more elements it has there
    SharedText* lastText = nullptr;                        ///< the text of that element
    ElementView textSample;                                ///< the first of those one after the other that hold it
    std::unordered_map<std::wstring, SectionKey*> byName;  ///< the keys of all children, by name and ID
};

/// A key that the rules ask for.
struct AskedKey {
    std::wstring text;
    const SectionKey* met = nullptr;  ///< null where no section has it

    // What the application reads where a section does not have it.

    const Setting* setting = nullptr;
    std::optional<ReadValue> byDefault;
};

/// The keys that the sections of one tag hold, and their texts.
class KeysOfTag {
public:
    explicit KeysOfTag(std::wstring name);

    const std::wstring tag;
    const bool isKnown;          ///< whether the catalogue knows sections of that name
    std::size_t usualItems = 0;  ///< how many the next section has as a rule

    /// To be asked when all sections have been read.
    [[nodiscard]] const AskedKey& asked(std::wstring_view key) const;
    /// The key of a child of a group, or of the section where `group` is null; `before` is that of the child before it.
    SectionKey& keyOf(const ElementView& child, SectionKey* group, SectionKey* before);
    /// The text of an element at the key: the last one, where it is the same again.
    SharedText& textOf(const ElementView& element, SectionKey& key);
    /// What stands for the text of an element that holds elements.
    SharedText& noText() { return m_noText; }

private:
    SectionKey& add(const ElementView& child, const std::wstring& key);
    [[nodiscard]] const AskedKey* askedFirst(std::wstring_view key) const;

    SectionKey m_root;
    SharedText m_noText{L"", nullptr};
    std::deque<SectionKey> m_keys;
    std::deque<SharedText> m_texts;
    std::unordered_map<std::wstring_view, const SectionKey*> m_byText;
    mutable std::deque<AskedKey> m_asked;
    mutable std::unordered_map<std::wstring_view, const AskedKey*> m_askedByText;
    mutable std::array<const AskedKey*, 256>
        m_lastAsked{};  // by where the rule's own text stands, for it asks of each section
};

}  // namespace XMLConfig::detail
