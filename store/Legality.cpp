#include "store/Legality.h"

#include <algorithm>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/Limits.h"

namespace XMLConfig::detail {

namespace {

std::wstring describeSection(const std::wstring& name, const std::wstring& id) {
    return L"section \"" + name + L"\"" + (id.empty() ? L"" : L" [" + id + L"]");
}

std::wstring codePoint(char32_t character) {
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (; character != 0 || text.size() < 4; character /= 16) text.insert(text.begin(), digits[character % 16]);
    return L"U+" + text;
}

void refuse(const wchar_t* prefix, const std::wstring& where, const wchar_t* what, const std::wstring& text) {
    const auto fault = firstCharacterXmlCannotHold(text);
    if (!fault) return;
    throw CorvaneException(prefix + where + L": " + what + L" holds the character " + codePoint(fault->character) +
                           L" (number " + formatInteger(static_cast<long long>(fault->position)) +
                           L"), which XML cannot hold");
}

int declarationsIn(const xercesc::DOMNamedNodeMap& attributes) {
    int count = 0;
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const std::u16string_view name = view(attributes.item(i)->getNodeName());
        count += name == u"xmlns" || name.substr(0, 6) == u"xmlns:" ? 1 : 0;
    }
    return count;
}

}  // namespace

std::wstring describe(const ItemAddress& address) {
    std::wstring text = describeSection(address.sectionName, address.sectionID);
    if (!address.subSectionName.empty()) text += L", sub" + describeSection(address.subSectionName, address.subSectionID);
    return text + L", key \"" + address.key + L"\"";
}

void refuseWhatXmlCannotHold(const wchar_t* prefix, const ItemAddress& address, const std::wstring& value) {
    const auto isHeld = [](const std::wstring& text) { return !firstCharacterXmlCannotHold(text); };
    if (isHeld(value) && isHeld(address.sectionName) && isHeld(address.sectionID) && isHeld(address.key) &&
        isHeld(address.subSectionName) && isHeld(address.subSectionID))
        return;
    const std::wstring where = describe(address);
    refuse(prefix, where, L"the section's name", address.sectionName);
    refuse(prefix, where, L"the subsection's name", address.subSectionName);
    refuse(prefix, where, L"the key", address.key);
    refuse(prefix, where, L"the section's ID", address.sectionID);
    refuse(prefix, where, L"the subsection's ID", address.subSectionID);
    refuse(prefix, where, L"the value", value);
}

void refuseIdentifier(const wchar_t* prefix, const std::wstring& sectionName, const std::wstring& id) {
    refuse(prefix, describeSection(sectionName, {}), L"the new ID", id);
}

void refuseDeepNesting(const wchar_t* prefix, const ItemAddress& address, int levelsInside) {
    constexpr int mostAbove = 4;  // with a key's first part, whose other parts have a character each at least
    if (mostAbove + levelsInside + static_cast<std::ptrdiff_t>(address.key.size()) <= maximumDepth) return;
    const auto parts = std::count(address.key.begin(), address.key.end(), L'|') + 1;
    const auto above = address.subSectionName.empty() ? 2 : 3;  // the root, the section, the subsection
    if (above + parts + levelsInside <= maximumDepth) return;
    throw CorvaneException(prefix + describe(address) + L": elements may be nested " + formatInteger(maximumDepth) +
                           L" levels deep at most");
}

void refuseManyNamespaces(const wchar_t* prefix, const ItemAddress& address, const xercesc::DOMElement& around, int inside) {
    int count = inside;
    for (const xercesc::DOMNode* each = &around; each->getAttributes() != nullptr; each = each->getParentNode())
        count += declarationsIn(*each->getAttributes());
    if (count <= maximumNamespaces) return;
    throw CorvaneException(prefix + describe(address) + L": at most " + formatInteger(maximumNamespaces) +
                           L" namespaces may be declared in an element and those around it");
}

void refuseComment(const wchar_t* prefix, const std::wstring& text) {
    refuse(prefix, L"a comment", L"the text", text);
    const auto isAltered = [](wchar_t c) {
        const bool isControl = c < L' ' || (c >= 0x7F && c <= 0x9F);
        return (isControl && c != L'\t' && c != L'\n') || c == 0x2028;  // XML 1.1 has more line ends
    };
    const auto altered = std::find_if(text.begin(), text.end(), isAltered);
    if (altered != text.end())
        throw CorvaneException(prefix + std::wstring(L"a comment: the text holds the character ") +
                               codePoint(static_cast<char32_t>(*altered)) + L", which a comment cannot hold");
    const bool hasDashes = text.find(L"--") != std::wstring::npos;
    if (hasDashes || (!text.empty() && text.back() == L'-'))
        throw CorvaneException(prefix + std::wstring(L"a comment: the text ") +
                               (hasDashes ? L"holds \"--\"" : L"ends with \"-\"") + L", which would end it early");
}

}  // namespace XMLConfig::detail
