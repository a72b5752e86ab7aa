#include "tools/TreeText.h"

#include <algorithm>

#include "manager/StoredTexts.h"
#include "platform/Words.h"
#include "tools/Printable.h"
#include "tools/Showing.h"

namespace tool {
namespace {

using XMLConfig::ElementView;

std::wstring indent(int depth) { return std::wstring(2 * static_cast<std::size_t>(depth), L' '); }

std::wstring attributesText(const ElementView& element) {
    std::wstring text;
    for (const auto& [name, value] : element.attributes())
        text += name == L"ID" ? L" [" + printable(value) + L"]" : L" " + name + L"=\"" + printable(value) + L"\"";
    return text;
}

std::wstring linesText(const std::wstring& text, int depth) {
    std::wstring lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        const std::wstring line = XMLConfig::detail::withoutOuterBlanks(text.substr(start, end - start));
        if (!line.empty()) lines += indent(depth) + printable(line) + L"\n";
        start = end + 1;
    }
    return lines;
}

std::wstring valueText(const std::wstring& text, int depth) {
    if (text.find(L'\n') == std::wstring::npos) return L" = " + printable(text) + L"\n";
    return L" =\n" + linesText(text, depth + 1);
}

}  // namespace

ShownTexts shownNumbers(const ElementView& element, const XMLConfig::Address& place, const Showing& showing) {
    ShownTexts shown;
    for (const XMLConfig::StoredText& text : storedTexts(element, place, L"")) {
        const bool isNumber = text.setting != nullptr && isNumbers(text.setting->type);
        if (isNumber && isOfType(text.text, text.setting->type))
            shown[text.element] = showing.value(text.text, text.setting);
    }
    return shown;
}

std::wstring treeText(const ElementView& element, const ShownTexts& shown, int depth) {
    std::wstring text = indent(depth) + printable(element.name()) + attributesText(element);
    const auto known = shown.find(element);
    if (known != shown.end()) return text + valueText(known->second, depth);
    const std::wstring value = element.firstChild() ? L"" : element.text();
    if (!element.firstChild() && (depth > 0 || !value.empty())) return text + valueText(value, depth);
    text += L"\n";
    for (const ElementView& child : element.children()) text += treeText(child, shown, depth + 1);
    return text;
}

}  // namespace tool
