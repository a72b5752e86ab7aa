#include "store/ElementParts.h"

#include <algorithm>

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

// Whether a parser gives the character back as it was written; it refuses some, and turns others into a blank or a line
// feed.
bool isPlainUnit(char16_t unit) { return unit >= u' ' && unit < 0xFFFE; }
bool isPlainInText(char16_t unit) { return isPlainUnit(unit) || unit == u'\t' || unit == u'\n'; }

}  // namespace

ElementParts& ElementParts::add(Kind kind, std::wstring_view name, std::wstring_view value) {
    const std::size_t nameBegin = m_texts.size();
    appendUtf16(m_texts, name);
    m_texts += u'\0';
    const std::size_t valueBegin = m_texts.size();
    appendUtf16(m_texts, value);
    m_places.push_back({kind, nameBegin, valueBegin, m_texts.size()});
    m_texts += u'\0';
    return *this;
}

ElementParts::Part ElementParts::operator[](std::size_t number) const {
    const Place& place = m_places[number];
    const char16_t* const texts = m_texts.data();
    return {place.kind, texts + place.name, {texts + place.value, place.end - place.value}};
}

bool ElementParts::isPlain() const {
    for (std::size_t i = 0; i < size(); ++i) {
        const Part part = (*this)[i];
        const auto isPlainHere = part.kind == Kind::Text ? isPlainInText : isPlainUnit;
        if (!std::all_of(part.value.begin(), part.value.end(), isPlainHere)) return false;
    }
    return true;
}

std::wstring ElementParts::xml() const {
    std::wstring xml;
    std::vector<std::wstring> open;
    bool isInTag = false;
    for (std::size_t i = 0; i < size(); ++i) {
        const Part part = (*this)[i];
        const std::wstring value = escapedForXml(fromUtf16(part.value));
        if (isInTag && part.kind != Kind::Attribute) xml += L'>';
        isInTag = part.kind == Kind::Begin || part.kind == Kind::Attribute;
        switch (part.kind) {
            case Kind::Begin:
                xml += L'<' + open.emplace_back(fromUtf16(part.name));
                break;
            case Kind::Attribute:
                xml += L' ' + fromUtf16(part.name) + L"=\"" + value + L'"';
                break;
            case Kind::Text:
                xml += value;
                break;
            case Kind::End:
                xml += L"</" + open.back() + L'>';
                open.pop_back();
        }
    }
    return xml;
}

}  // namespace XMLConfig::detail
