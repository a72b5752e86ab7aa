#include "store/NewElement.h"

#include <algorithm>

#include "platform/Text.h"
#include "store/DocumentParser.h"
#include "store/ElementItem.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

/// Whether a parser gives a value back as it was written; it turns the characters of `changed` into others.
bool isKept(const std::wstring& value, const wchar_t* changed) {
    return value.find_first_of(changed) == std::wstring::npos && !firstCharacterXmlCannotHold(value);
}

}  // namespace

bool isPlain(const StoredElement& element) {
    const auto isAttributeKept = [](const auto& attribute) { return isKept(attribute.second, L"\t\n\r"); };
    return isKept(element.text, L"\r") &&
           std::all_of(element.attributes.begin(), element.attributes.end(), isAttributeKept) &&
           std::all_of(element.children.begin(), element.children.end(), isPlain);
}

std::wstring xmlOf(const StoredElement& element) {
    std::wstring xml = L'<' + element.name;
    for (const auto& [name, value] : element.attributes) xml += L' ' + name + L"=\"" + escapedForXml(value) + L'"';
    xml += L'>' + escapedForXml(element.text);
    for (const StoredElement& child : element.children) xml += xmlOf(child);
    return xml + L"</" + element.name + L'>';
}

NewElement makeElement(const StoredElement& element, Tree& tree) {
    NewElement made{tree.makeElement(toUtf16(element.name).c_str())};
    for (const auto& [name, value] : element.attributes)
        tree.addAttribute(*made.element, toUtf16(name).c_str(), toUtf16(value).c_str());
    if (!element.text.empty()) append(*made.element, *tree.makeText(element.text));
    for (const StoredElement& child : element.children) {
        NewElement inner = makeElement(child, tree);
        append(*made.element, *inner.element.release());
        made.levels = std::max(made.levels, inner.levels);
    }
    ++made.levels;
    return made;
}

NewElement readElement(const std::string& text, Tree& tree) {
    const ParsedTree parsed = parseElement(text);
    return {tree.copy(*parsed.document->getDocumentElement()), parsed.levels, parsed.namespaces};
}

}  // namespace XMLConfig::detail
