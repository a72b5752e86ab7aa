#include "manager/Origin.h"

#include <algorithm>

#include "base/TraitOfType.h"
#include "manager/SettingSearch.h"
#include "platform/Numbers.h"

namespace XMLConfig {
namespace {

bool holdsText(const ElementView& element) { return element && !element.firstChild(); }

bool isListed(const std::wstring& read, const Setting& setting) {
    const auto isIt = [&](const NamedNumber& named) { return named.number == detail::leadingInteger(read); };
    return std::find(setting.words.begin(), setting.words.end(), read) != setting.words.end() ||
           std::any_of(setting.numbers.begin(), setting.numbers.end(), isIt);
}

/// What stands at the address, as the setting's accessor reads it; nothing where that counts as missing.
std::optional<EffectiveValue> valueAt(const ConfigInfo& document, const Address& address, const Setting* setting,
                                      Origin origin) {
    const ElementView element = findElement(document, address);
    if (!holdsText(element)) return std::nullopt;
    EffectiveValue value{origin, address, element, element.text(), {}};
    const std::optional<std::wstring> read =
        setting == nullptr ? textAsRead(value.stored, SettingType::Text) : textAsRead(value.stored, *setting);
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

std::optional<std::wstring> textAsRead(const std::wstring& stored, const Setting& setting) {
    std::optional<std::wstring> read = textAsRead(stored, setting.type);
    if (read && setting.othersCountAs && !isListed(*read, setting)) return setting.othersCountAs;
    return read;
}

std::optional<EffectiveValue> effectiveValue(const ConfigInfo& document, const Address& address) {
    const Setting* const setting = knownSetting(address);
    std::optional<EffectiveValue> value = valueAt(document, address, setting, Origin::Stored);
    if (value || setting == nullptr) return value;
    if (const ElementView element = findElement(document, address); element && element.firstChild()) return std::nullopt;
    if (!setting->inheritsFrom.empty()) {
        const Address above{setting->inheritsFrom, L"", L"", L"", setting->key};
        value = valueAt(document, above, setting, Origin::Inherited);
        if (value) return value;
    }
    return EffectiveValue{Origin::Default, {}, {}, setting->defaultText, setting->defaultText};
}

}  // namespace XMLConfig
