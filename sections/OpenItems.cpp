#include "sections/OpenItems.h"

#include "platform/Numbers.h"

namespace XMLConfig::detail {
namespace {

std::vector<float> numbersOf(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    ConfigInfo::createTokenVector(tokens, text, L" ,\n\t");
    std::vector<float> numbers;
    numbers.reserve(tokens.size());
    for (const std::wstring& token : tokens) numbers.push_back(static_cast<float>(leadingDouble(token)));
    return numbers;
}

std::wstring textOfNumbers(const std::vector<float>& numbers) {
    std::wstring text;
    for (float number : numbers) text += formatGeneral(number) + L", ";
    return text;
}

}  // namespace

bool stored(const OpenItem& item, bool fallback) {
    return item.document.getBoolItem(item.section, item.key, fallback, item.sectionID);
}
int stored(const OpenItem& item, int fallback) {
    return item.document.getIntegerItem(item.section, item.key, fallback, item.sectionID);
}
float stored(const OpenItem& item, float fallback) {
    return static_cast<float>(item.document.getDoubleItem(item.section, item.key, fallback, item.sectionID));
}
Point_3Dim<double> stored(const OpenItem& item, const Point_3Dim<double>& fallback) {
    return item.document.getPoint3DItem(item.section, item.key, fallback, item.sectionID);
}
std::wstring stored(const OpenItem& item, const std::wstring& fallback) {
    return item.document.getStringItem(item.section, item.key, fallback, item.sectionID, L"", L"");
}
std::vector<float> stored(const OpenItem& item, const std::vector<float>& fallback) {
    if (!item.document.doesItemExist(item.section, item.key, item.sectionID)) return fallback;
    return numbersOf(stored(item, std::wstring()));
}

void store(const OpenItem& item, bool value) { item.document.setBoolItem(item.section, item.key, value, item.sectionID); }
void store(const OpenItem& item, int value) { item.document.setIntegerItem(item.section, item.key, value, item.sectionID); }
void store(const OpenItem& item, float value) {
    item.document.setDoubleItem(item.section, item.key, static_cast<double>(value), item.sectionID);
}
void store(const OpenItem& item, const Point_3Dim<double>& value) {
    item.document.setPoint3DItem(item.section, item.key, value, item.sectionID);
}
void store(const OpenItem& item, const std::wstring& value) {
    item.document.setStringItem(item.section, item.key, value, item.sectionID, L"", L"");
}
void store(const OpenItem& item, const std::vector<float>& value) { store(item, textOfNumbers(value)); }

}  // namespace XMLConfig::detail
