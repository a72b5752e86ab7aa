#include "manager/Origin.h"

#include <algorithm>

#include "base/TraitOfType.h"
#include "manager/SettingSearch.h"
#include "manager/SpecialForms.h"
#include "platform/Numbers.h"
#include "sections/ProjectorItems.h"
#include "sections/ScreenItems.h"
#include "store/TextForms.h"

namespace XMLConfig {
namespace {

bool isListed(const std::wstring& read, const Setting& setting) {
    const auto isIt = [&](const NamedNumber& named) { return named.number == detail::leadingInteger(read); };
    return std::find(setting.words.begin(), setting.words.end(), read) != setting.words.end() ||
           std::any_of(setting.numbers.begin(), setting.numbers.end(), isIt);
}

bool isSetting(const Setting& setting, const detail::SettingTable& table, const detail::AnyDescriptor& item) {
    return setting.type == item.type() && setting.key == item.key && setting.section == table.section;
}

bool isMirrorFlag(const Setting& setting) {
    static const std::wstring group = detail::projectorItems.pondOfMirrors.key + std::wstring(L"|");
    return setting.section == detail::projectorItems.section && setting.key.compare(0, group.size(), group) == 0;
}

/// Whether parts of the record have items of their own, and nobody reads a text in its place.
bool isRecord(const Setting& setting) {
    return setting.type == SettingType::Frustum || setting.type == SettingType::PondOfMirrors;
}

/// Elements inside an item are no fault to the accessors, which read all text in it.
bool holdsValue(const ElementView& element, const Setting* setting) {
    if (!element.firstChild()) return true;
    return setting != nullptr && setting->type != SettingType::Element && !isRecord(*setting);
}

/// What stands at the address, as the setting's accessor reads it; nothing where that counts as missing.
std::optional<EffectiveValue> valueAt(const Address& address, const ElementView& element, const Setting* setting,
                                      Origin origin) {
    EffectiveValue value{origin, address, element, element.text(), {}};
    const std::optional<std::wstring> read =
        setting == nullptr ? textAsRead(value.stored, SettingType::Text) : textAsRead(value.stored, *setting);
    if (!read) return std::nullopt;
    value.text = setting == nullptr ? *read : detail::specialFormAsRead(*read, setting->type).value_or(*read);
    return value;
}

/// A flag of a mirror is one byte of the number.
std::wstring byteOf(const std::wstring& number) {
    return detail::textOf(static_cast<int>(static_cast<unsigned char>(detail::leadingInteger(number))));
}

/// What the application reads of another setting of the same section.
std::wstring readBeside(const ConfigInfo& document, const Address& address, const detail::AnyDescriptor& item) {
    return effectiveValue(document, {address.section, address.sectionID, L"", L"", item.key}).value().text;
}

/// The middle of the projector's image.
std::wstring middleOfImage(const ConfigInfo& document, const Address& address) {
    const auto half = [&](const detail::AnyDescriptor& size) {
        return 0.5 * detail::leadingInteger(readBeside(document, address, size));
    };
    return detail::textOf(
        Point_2Dim<double>(half(detail::projectorItems.resolutionX), half(detail::projectorItems.resolutionY)));
}

std::wstring defaultText(const ConfigInfo& document, const Address& address, const Setting& setting) {
    if (isSetting(setting, detail::projectorItems, detail::projectorItems.initialOffset))
        return middleOfImage(document, address);
    return detail::specialFormAsRead(setting.defaultText, setting.type).value_or(setting.defaultText);
}

/// The definition of the screen's size that the number 3 leaves to an older setting; every other text as it is.
std::wstring decided(const ConfigInfo& document, const Address& address, const Setting& setting, const std::wstring& text) {
    const auto& items = detail::screenItems;
    const bool isLeft = isSetting(setting, items, items.sizeDefinition) && text == items.sizeDefinition.defaultText();
    if (!isLeft) return text;
    return readBeside(document, address, items.autoDimensions) == detail::textOf(true) ? L"1" : L"0";
}

std::optional<EffectiveValue> valueOf(const ConfigInfo& document, const Address& address, const Setting* setting) {
    const ElementView own = findElement(document, address);
    if (own && !holdsValue(own, setting)) return std::nullopt;
    std::optional<EffectiveValue> value;
    if (own) value = valueAt(address, own, setting, Origin::Stored);
    if (value || setting == nullptr) return value;
    // An own text that cannot be read hides what would be inherited.
    if (!own && !setting->inheritsFrom.empty()) {
        const Address above{setting->inheritsFrom, L"", L"", L"", setting->key};
        if (const ElementView element = findElement(document, above))
            value = valueAt(above, element, setting, Origin::Inherited);
    }
    if (value) return value;
    const std::wstring text = defaultText(document, address, *setting);
    return EffectiveValue{Origin::Default, {}, {}, text, text};
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
    if (isRecord(setting)) return std::nullopt;
    if (setting.olderWord && stored == setting.olderWord->text) return setting.olderWord->countsAs;
    std::optional<std::wstring> read = textAsRead(stored, setting.type);
    if (setting.type == SettingType::Int && isMirrorFlag(setting)) return byteOf(*read);
    if (read && setting.othersCountAs && !isListed(*read, setting)) return setting.othersCountAs;
    return read;
}

std::optional<EffectiveValue> effectiveValue(const ConfigInfo& document, const Address& address) {
    const Setting* const setting = knownSetting(address);
    std::optional<EffectiveValue> value = valueOf(document, address, setting);
    if (!value || setting == nullptr) return value;
    value->text = decided(document, address, *setting, value->text);
    if (value->origin == Origin::Default) value->stored = value->text;
    return value;
}

}  // namespace XMLConfig
