#include "manager/Origin.h"

#include "base/TraitOfType.h"
#include "manager/SettingSearch.h"

namespace XMLConfig {
namespace {

bool holdsText(const ElementView& element) { return element && !element.firstChild(); }

/// What stands at the address, read as the setting's type; nothing where that counts as missing.
std::optional<EffectiveValue> valueAt(const ConfigInfo& document, const Address& address, SettingType type, Origin origin) {
    const ElementView element = findElement(document, address);
    if (!holdsText(element)) return std::nullopt;
    EffectiveValue value{origin, address, element, element.text(), {}};
    const std::optional<std::wstring> read = textAsRead(value.stored, type);
    if (!read) return std::nullopt;
    value.text = *read;
    return value;
}

}  // namespace

const wchar_t* nameOf(Origin origin) {
    if (origin == Origin::Stored) return L"stored";
    return origin == Origin::Inherited ? L"inherited" : L"default";
}

std::optional<std::wstring> textAsRead(const std::wstring& stored, SettingType type) {
    return detail::withTrait(type, [&](auto trait) { return decltype(trait)::asRead(stored); });
}

std::optional<EffectiveValue> effectiveValue(const ConfigInfo& document, const Address& address) {
    const Setting* const setting = knownSetting(address);
    const SettingType type = setting == nullptr ? SettingType::Text : setting->type;
    std::optional<EffectiveValue> value = valueAt(document, address, type, Origin::Stored);
    if (value || setting == nullptr) return value;
    if (const ElementView element = findElement(document, address); element && element.firstChild()) return std::nullopt;
    if (!setting->inheritsFrom.empty()) {
        const Address above{setting->inheritsFrom, L"", L"", L"", setting->key};
        value = valueAt(document, above, type, Origin::Inherited);
        if (value) return value;
    }
    return EffectiveValue{Origin::Default, {}, {}, setting->defaultText, setting->defaultText};
}

}  // namespace XMLConfig
