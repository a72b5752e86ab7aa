#include "manager/check/Keys.h"

#include <algorithm>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "store/Address.h"

namespace XMLConfig::detail {
namespace {

bool isNameOfSections(const std::wstring& tag) {
    const std::vector<std::wstring> names = sectionNames();
    return std::find(names.begin(), names.end(), tag) != names.end();
}

/// The ID in the way the catalogue's keys have it.
std::wstring withID(const std::wstring& name, const std::wstring& id) { return id.empty() ? name : name + L"[" + id + L"]"; }

ReadValue defaultOf(const Setting& setting) { return ReadValue(setting.defaultText); }

}  // namespace

ReadValue::ReadValue(std::wstring read)
    : text(std::move(read)), number(leadingDouble(text)), integer(leadingInteger(text)) {}

const ReadValue* SharedText::value() const {
    if (!m_isRead) {
        std::optional<std::wstring> read = textAsRead(text, m_setting == nullptr ? SettingType::Text : m_setting->type);
        if (read) m_value.emplace(std::move(*read));
        m_isRead = true;
    }
    return m_value ? &*m_value : nullptr;
}

KeysOfTag::KeysOfTag(std::wstring name) : tag(std::move(name)), isKnown(isNameOfSections(tag)) {}

const SectionKey* KeysOfTag::find(std::wstring_view key) const {
    const auto found = m_byText.find(key);
    return found == m_byText.end() ? nullptr : found->second;
}

SectionKey& KeysOfTag::keyOf(const ElementView& child, SectionKey* group, SectionKey* before) {
    SectionKey& around = group == nullptr ? m_root : *group;
    SectionKey*& expected = before == nullptr ? around.inside : before->after;
    const std::wstring id = child.id();
    const bool isExpected = expected != nullptr && id.empty() && !expected->hasID && child.isNamedLike(expected->sample);
    if (isExpected) return *expected;
    const std::wstring name = withID(child.name(), id);
    SectionKey*& known = around.byName[name];
    if (known == nullptr) known = &add(child, group == nullptr ? name : around.text + L"|" + name);
    expected = known;
    return *known;
}

SectionKey& KeysOfTag::add(const ElementView& child, const std::wstring& key) {
    SectionKey& added = m_keys.emplace_back();
    const Address address{tag, L"", L"", L"", key};
    added.text = key;
    added.setting = knownSetting(address);
    if (isGroupOfSettings(address)) added.kind = SectionKey::Kind::Group;
    else if (added.setting != nullptr) added.kind = SectionKey::Kind::Value;
    added.holdsIDs = key.find(L'[') != std::wstring::npos;
    added.number = m_keys.size() - 1;
    added.sample = child;
    added.hasID = !child.id().empty();
    m_byText.emplace(added.text, &added);
    return added;
}

SharedText& KeysOfTag::textOf(const ElementView& element, SectionKey& key) {
    if (key.lastText == nullptr || !element.isText(key.lastText->text))
        key.lastText = &m_texts.emplace_back(element.text(), key.setting);
    return *key.lastText;
}

const MissingValue& KeysOfTag::missing(std::wstring_view key) const {
    const auto [place, isNew] = m_missing.try_emplace(std::wstring(key));
    MissingValue& value = place->second;
    if (!isNew) return value;
    value.setting = knownSetting({tag, L"", L"", L"", place->first});
    if (value.setting != nullptr) value.byDefault = defaultOf(*value.setting);
    return value;
}

}  // namespace XMLConfig::detail
