#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class ConfigInfo;

namespace XMLConfig::detail {

/// One element that is to be stored, told part by part instead of as XML text, which would have to be parsed.
class ElementParts {
public:
    enum class Kind { Begin, Attribute, Text, End };
    struct Part {
        Kind kind;
        const char16_t* name;       ///< of an element or attribute
        std::u16string_view value;  ///< of an attribute or text, ended by U+0000
    };

    /// Begins an element in the one that was begun last. Names must be legal and without a prefix.
    ElementParts& begin(std::wstring_view name) { return add(Kind::Begin, name, {}); }
    /// To be given before anything that the element holds, and each once.
    ElementParts& attribute(std::wstring_view name, std::wstring_view value) { return add(Kind::Attribute, name, value); }
    ElementParts& text(std::wstring_view value) { return add(Kind::Text, {}, value); }
    ElementParts& end() { return add(Kind::End, {}, {}); }
    /// An element that holds a text and nothing else.
    ElementParts& element(std::wstring_view name, std::wstring_view value) { return begin(name).text(value).end(); }

    /// The same element as XML text.
    [[nodiscard]] std::wstring xml() const;
    /// Whether a parser would make of that text these very parts. Others it refuses, or takes some characters for others.
    [[nodiscard]] bool isPlain() const;
    [[nodiscard]] std::size_t size() const { return m_places.size(); }
    /// Good until more is added.
    [[nodiscard]] Part operator[](std::size_t number) const;

private:
    struct Place {
        Kind kind;
        std::size_t name;
        std::size_t value;
        std::size_t end;
    };
    ElementParts& add(Kind kind, std::wstring_view name, std::wstring_view value);

    std::vector<Place> m_places;
    std::u16string m_texts;  // names and values, with an end after each
};

/// Stores the element as ConfigInfo::setStringItemAsDOMElement stores its text, with the same outcome.
void setElementItem(ConfigInfo& document, const std::wstring& sectionName, const std::wstring& key,
                    const ElementParts& value, const std::wstring& sectionID);

}  // namespace XMLConfig::detail
