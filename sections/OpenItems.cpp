#include "sections/OpenItems.h"

#include "platform/Numbers.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {

std::vector<float> ValueTrait<std::vector<float>>::read(const ConfigInfo& document, const ItemPlace& at,
                                                        const Given& fallback) {
    if (!document.doesItemExist(at.section, at.key, at.sectionID)) return fallback;
    Given numbers;
    for (const std::wstring& token : tokensOf(ValueTrait<std::wstring>::read(document, at, {})))
        numbers.push_back(static_cast<float>(leadingDouble(token)));
    return numbers;
}

void ValueTrait<std::vector<float>>::write(ConfigInfo& document, const ItemPlace& at, const Given& value) {
    std::wstring text;
    for (const float number : value) text += formatGeneral(number) + L", ";
    ValueTrait<std::wstring>::write(document, at, text);
}

}  // namespace XMLConfig::detail
