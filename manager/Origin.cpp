#include "manager/Origin.h"

#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "store/TextForms.h"
#include "store/TokenItems.h"

namespace XMLConfig {
namespace {

template <typename T>
std::optional<std::wstring> listAsRead(const std::wstring& stored) {
    using Read = detail::Element<T>;
    const std::vector<std::wstring> tokens = detail::tokensOf(stored);
    if (tokens.size() != Read::tokens) return std::nullopt;
    return detail::textOf(Read::from(tokens));
}

std::optional<std::wstring> boolAsRead(const std::wstring& stored) {
    const std::optional<bool> value = detail::boolOf(stored);
    return value ? std::optional<std::wstring>(detail::textOf(*value)) : std::nullopt;
}

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
    switch (type) {
        case SettingType::Bool:
            return boolAsRead(stored);
        case SettingType::Int:
            return detail::textOf(static_cast<int>(detail::leadingInteger(stored)));
        case SettingType::Double:
            return detail::textOf(detail::leadingDouble(stored));
        case SettingType::IntPoint2:
            return listAsRead<Point_2Dim<int>>(stored);
        case SettingType::Point2:
            return listAsRead<Point_2Dim<double>>(stored);
        case SettingType::Point3:
            return listAsRead<Point_3Dim<double>>(stored);
        default:
            return stored;
    }
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
