#include "manager/check/Keys.h"

#include <algorithm>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "store/Address.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

bool isNameOfSections(const std::wstring& tag) {
    const std::vector<std::wstring> names = sectionNames();
    return std::find(names.begin(), names.end(), tag) != names.end();
}

/// The ID in the way the catalogue's keys have it.
std::wstring withID(const std::wstring& name, const std::wstring& id) { return id.empty() ? name : name + L"[" + id + L"]"; }

std::optional<Point_3Dim<double>> pointOf(const std::vector<double>& numbers) {
    if (numbers.size() != 3) return std::nullopt;
    return Point_3Dim<double>{numbers[0], numbers[1], numbers[2]};
}

ReadValue defaultOf(const Setting& setting) { return ReadValue(setting.defaultText); }

}  // namespace

const std::wstring& ReadValue::text() const {
    if (!m_text) m_text = m_point ? textOf(*m_point) : textOf(*m_number);
    return *m_text;
}

double ReadValue::number() const {
    if (!m_number) m_number = leadingDouble(text());
    return *m_number;
}

int ReadValue::integer() const {
    if (!m_integer) m_integer = leadingInteger(text());
    return *m_integer;
}

Point_3Dim<double> ReadValue::point() const {
    return m_point ? *m_point : pointOf(numbersOf(text())).value_or(Point_3Dim<double>{});
}

const ReadValue* SharedText::value() const {
    if (!m_isRead) m_value = read();
    m_isRead = true;
    return m_value ? &*m_value : nullptr;
}

std::optional<ReadValue> SharedText::read() const {
    const SettingType type = m_setting == nullptr ? SettingType::Text : m_setting->type;
    if (type == SettingType::Double) return ReadValue(leadingDouble(text));
    if (type == SettingType::Point3) {
        const std::optional<Point_3Dim<double>> point = pointOf(numbers());
        return point ? std::optional<ReadValue>(ReadValue(*point)) : std::nullopt;
    }
    std::optional<std::wstring> read = m_setting == nullptr ? textAsRead(text, type) : textAsRead(text, *m_setting);
    return read ? std::optional<ReadValue>(ReadValue(std::move(*read))) : std::nullopt;
}

const std::vector<double>& SharedText::numbers() const {
    if (m_numbers) return *m_numbers;
    const bool isOneNumber = m_setting != nullptr && m_setting->type == SettingType::Double && !text.empty() &&
                             std::none_of(text.begin(), text.end(), isListDelimiter);
    m_numbers = isOneNumber ? std::vector<double>{value()->number()} : numbersOf(text);
    return *m_numbers;
}

std::vector<double> numbersOf(std::wstring_view text) {
    std::vector<double> numbers;
    for (auto at = text.begin(); at != text.end();) {
        at = std::find_if_not(at, text.end(), isListDelimiter);
        const auto end = std::find_if(at, text.end(), isListDelimiter);
        if (at != end) numbers.push_back(leadingDouble({&*at, static_cast<std::size_t>(end - at)}));
        at = end;
    }
    return numbers;
}

KeysOfTag::KeysOfTag(std::wstring name) : tag(std::move(name)), isKnown(isNameOfSections(tag)) {}

const AskedKey& KeysOfTag::asked(std::wstring_view key) const {
    const AskedKey*& last = m_lastAsked[reinterpret_cast<std::uintptr_t>(key.data()) / sizeof(wchar_t) % m_lastAsked.size()];
    if (last == nullptr || last->text != key) last = askedFirst(key);
    return *last;
}

const AskedKey* KeysOfTag::askedFirst(std::wstring_view key) const {
    const auto known = m_askedByText.find(key);
    if (known != m_askedByText.end()) return known->second;
    AskedKey& asked = m_asked.emplace_back();
    asked.text = key;
    const auto met = m_byText.find(key);
    if (met != m_byText.end()) asked.met = met->second;
    asked.setting = knownSetting({tag, L"", L"", L"", asked.text});
    if (asked.setting != nullptr) asked.byDefault = defaultOf(*asked.setting);
    m_askedByText.emplace(asked.text, &asked);
    return &asked;
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
    if (key.lastText == nullptr || !haveEqualTexts(element, key.textSample)) {
        key.lastText = &m_texts.emplace_back(element.text(), key.setting);
        key.textSample = element;
    }
    return *key.lastText;
}

}  // namespace XMLConfig::detail
