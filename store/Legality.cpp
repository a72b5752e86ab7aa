#include "store/Legality.h"

#include <algorithm>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/DocumentParser.h"

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

}  // namespace

std::wstring describe(const Address& address) {
    std::wstring text = describeSection(address.sectionName, address.sectionID);
    if (!address.subSectionName.empty()) text += L", sub" + describeSection(address.subSectionName, address.subSectionID);
    return text + L", key \"" + address.key + L"\"";
}

void refuseWhatXmlCannotHold(const wchar_t* prefix, const Address& address, const std::wstring& value) {
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

void refuseDeepNesting(const wchar_t* prefix, const Address& address, int depthInside) {
    const auto parts = std::count(address.key.begin(), address.key.end(), L'|') + 1;
    const auto above = address.subSectionName.empty() ? 2 : 3;  // the root, the section, the subsection
    if (above + parts + depthInside <= maximumDepth) return;
    throw CorvaneException(prefix + describe(address) + L": elements may be nested " + formatInteger(maximumDepth) +
                           L" levels deep at most");
}

}  // namespace XMLConfig::detail
