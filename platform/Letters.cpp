#include "platform/Text.h"
#include "platform/Words.h"

namespace XMLConfig::detail {
namespace {

const wchar_t* xmlEscape(wchar_t character) {
    switch (character) {
        case L'&':
            return L"&amp;";
        case L'<':
            return L"&lt;";
        case L'>':
            return L"&gt;";
        case L'"':
            return L"&quot;";
        default:
            return nullptr;
    }
}

}  // namespace

bool equalIgnoringCase(std::wstring_view left, std::wstring_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (lowerAscii(left[i]) != lowerAscii(right[i])) return false;
    }
    return true;
}

std::wstring escapedForXml(std::wstring_view text) {
    std::wstring escaped;
    escaped.reserve(text.size());
    for (const wchar_t character : text) {
        if (const wchar_t* const escape = xmlEscape(character)) {
            escaped += escape;
        } else {
            escaped += character;
        }
    }
    return escaped;
}

}  // namespace XMLConfig::detail
