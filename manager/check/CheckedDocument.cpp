#include "manager/check/CheckedDocument.h"

#include <algorithm>
#include <unordered_map>

#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "store/Address.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

const std::wstring& noText() {
    static const std::wstring none;
    return none;
}

const CheckedSection& noSection() {
    static const CheckedSection none(ElementView(), L"", nullptr);
    return none;
}

template <typename Sections, typename Name>
const CheckedSection* at(const Sections& sections, const Name& name) {
    const auto found = sections.find(name);
    return found == sections.end() ? nullptr : found->second;
}

}  // namespace

/// Reads the sections of one document.
class SectionReader {
public:
    void read(CheckedSection& section, KeysOfTag& keys) {
        section.isKnown = keys.isKnown;
        if (!section.isKnown) return;
        ++m_number;
        section.items.reserve(keys.usualItems);
        section.m_itemsByKey.reserve(keys.usualItems);
        addChildren(section, keys, section.element, nullptr);
        constexpr std::size_t most = 128;  // lest a large section make many small ones large
        keys.usualItems = std::min(section.items.size(), most);
        order(section);
    }

private:
    void addChildren(CheckedSection& section, KeysOfTag& keys, const ElementView& parent, SectionKey* group) {
        SectionKey* before = nullptr;
        for (const ElementView& child : parent.children()) {
            before = &keys.keyOf(child, group, before);
            addItem(section, keys, child, *before);
        }
    }

    void addItem(CheckedSection& section, KeysOfTag& keys, const ElementView& child, SectionKey& key) {
        const bool isHidden = key.section == m_number;
        const ElementView earlier = isHidden ? key.element : ElementView();
        const bool isGroup = key.kind == SectionKey::Kind::Group;
        const bool holdsElements = static_cast<bool>(child.firstChild());
        // Accessors read a value through the elements in it.
        const bool isText =
            !holdsElements || (key.kind == SectionKey::Kind::Value && key.setting->type != SettingType::Element);
        SharedText& text = isGroup || !isText ? keys.noText() : keys.textOf(child, key);
        if (!isHidden) section.m_itemsByKey.push_back({key.number, section.items.size()});
        section.items.emplace_back(child, key, text, holdsElements, earlier);
        key.repeats = isHidden ? key.repeats + 1 : 0;
        section.items.back().isSecond = key.repeats == 1;
        if (isHidden) return;
        key.section = m_number;
        key.element = child;
        if (isGroup) addChildren(section, keys, child, &key);
    }

    /// Sorts the items by the numbers of their keys. Mostly they are in order already, since keys are numbered as the first
    /// sections hold them, and the later ones have the same order.
    static void order(CheckedSection& section) {
        const auto isBefore = [](const auto& a, const auto& b) { return a.number < b.number; };
        auto& items = section.m_itemsByKey;
        if (!std::is_sorted(items.begin(), items.end(), isBefore)) std::sort(items.begin(), items.end(), isBefore);
    }

    std::size_t m_number = 0;  // of the section, from 1
};

CheckedSection::CheckedSection(const ElementView& place, std::wstring name, const KeysOfTag* keys)
    : element(place),
      tag(std::move(name)),
      id(element.id()),
      m_keys(keys),
      m_isDevice(!id.empty() && isDeviceSection(tag)) {}

const CheckedItem* CheckedSection::find(std::wstring_view key) const {
    return m_keys == nullptr ? nullptr : find(m_keys->asked(key).met);
}

const CheckedItem* CheckedSection::find(const SectionKey* known) const {
    if (known == nullptr) return nullptr;
    const std::size_t usual = known->number;  // its place where the section holds all keys of its tag
    if (usual < m_itemsByKey.size() && m_itemsByKey[usual].number == usual) return &items[m_itemsByKey[usual].item];
    const auto isBefore = [](const ItemOfKey& item, std::size_t number) { return item.number < number; };
    const auto found = std::lower_bound(m_itemsByKey.begin(), m_itemsByKey.end(), known->number, isBefore);
    return found == m_itemsByKey.end() || found->number != known->number ? nullptr : &items[found->item];
}

bool CheckedSection::holdsTwice(std::wstring_view key) const {
    return std::any_of(items.begin(), items.end(), [&](const auto& item) { return item.hiddenBy && item.key == key; });
}

const std::wstring& CheckedSection::stored(std::wstring_view key) const {
    const CheckedItem* const item = find(key);
    return item == nullptr ? noText() : item->text;
}

std::wstring CheckedSection::name() const {
    if (!isDevice()) return {};
    const std::wstring& given = stored(L"Name");
    return given.empty() ? id : given;
}

std::wstring CheckedSection::title() const {
    const std::wstring& given = stored(L"Name");
    return L"\"" + (given.empty() ? id : given) + L"\"";
}

const std::wstring& CheckedSection::address() const {
    if (m_address.empty()) m_address = addressText({tag, id, L"", L"", L""});
    return m_address;
}

ElementView CheckedSection::snippet() const {
    const CheckedItem* const item = find(L"DeviceSnippet");
    return item == nullptr ? ElementView() : item->element.firstChild();
}

CheckedDocument::CheckedDocument(const ConfigInfo& document) {
    readSections(document);
    gatherDevices();
}

void CheckedDocument::readSections(const ConfigInfo& document) {
    SectionReader reader;
    std::unordered_map<std::wstring, ElementView> met;
    for (const ElementView& element : rootElement(document).children()) {
        const std::wstring name = element.name();
        if (isHeaderElement(name)) continue;
        KeysOfTag& keys = m_keys.try_emplace(name, name).first->second;
        CheckedSection& section = m_sections.emplace_back(element, name, &keys);
        const bool lacksID = isDeviceSection(name) && section.id.empty();
        if (!lacksID) {
            const auto [earlier, isNew] = met.emplace(section.id.empty() ? name : name + L"[" + section.id + L"]", element);
            if (!isNew) section.hiddenBy = earlier->second;
        }
        reader.read(section, keys);
    }
}

void CheckedDocument::gatherDevices() {
    for (const CheckedSection& section : m_sections) {
        m_firstOfTag.emplace(section.tag, &section);
        if (section.hiddenBy || !section.isDevice()) continue;
        const bool isCamera = section.tag == L"Camera";
        (isCamera ? m_cameras : m_projectors).push_back(&section);
        (isCamera ? m_cameraByID : m_projectorByID).emplace(section.id, &section);
        if (!isCamera || !section.holds(L"OldSectionID")) continue;
        const auto [old, isNew] = m_cameraByOldID.emplace(section.stored(L"OldSectionID"), &section);
        if (!isNew) old->second = nullptr;
    }
}

const CheckedSection& CheckedDocument::section(std::wstring_view tag) const {
    const CheckedSection* const found = at(m_firstOfTag, tag);
    return found == nullptr ? noSection() : *found;
}

const CheckedSection* CheckedDocument::camera(const std::wstring& id) const { return at(m_cameraByID, id); }
const CheckedSection* CheckedDocument::projector(const std::wstring& id) const { return at(m_projectorByID, id); }
const CheckedSection* CheckedDocument::cameraThatWas(const std::wstring& oldID) const { return at(m_cameraByOldID, oldID); }

const KeysOfTag& CheckedDocument::keysOf(std::wstring_view tag) const {
    const auto found = m_keys.find(tag);
    if (found != m_keys.end()) return found->second;
    const std::wstring name(tag);
    return m_keys.try_emplace(name, name).first->second;
}

const ReadValue& CheckedDocument::read(const CheckedSection& section, std::wstring_view key) const {
    const AskedKey& asked = (section.m_keys == nullptr ? keysOf(section.tag) : *section.m_keys).asked(key);
    const CheckedItem* const item = section.m_keys == nullptr ? nullptr : section.find(asked.met);
    if (item == nullptr) return inherited(asked);
    const ReadValue* const value = valueOf(*item);
    if (value != nullptr) return *value;
    return asked.byDefault ? *asked.byDefault : m_nothing;  // an own text that cannot be read hides what would be inherited
}

// A missing section, too, has defaults.
const ReadValue& CheckedDocument::read(std::wstring_view tag, std::wstring_view key) const {
    const CheckedSection* const found = at(m_firstOfTag, tag);
    return found == nullptr ? inherited(keysOf(tag).asked(key)) : read(*found, key);
}

const ReadValue& CheckedDocument::inherited(const AskedKey& key) const {
    if (key.setting == nullptr) return m_nothing;
    if (key.setting->inheritsFrom.empty()) return *key.byDefault;
    const CheckedItem* const above = section(key.setting->inheritsFrom).find(key.text);
    const ReadValue* const value = above == nullptr ? nullptr : valueOf(*above);
    return value == nullptr ? *key.byDefault : *value;
}

std::vector<double> CheckedDocument::numbers(const CheckedSection& section, std::wstring_view key) const {
    return numbersOf(text(section, key));
}
Point_3Dim<double> CheckedDocument::point(const CheckedSection& section, std::wstring_view key) const {
    return read(section, key).point();
}
Point_3Dim<double> CheckedDocument::point(std::wstring_view tag, std::wstring_view key) const {
    return read(tag, key).point();
}

const ReadValue* valueOf(const CheckedItem& item) {
    const bool isOfElements = item.kind != CheckedItem::Kind::Value || item.setting->type == SettingType::Element;
    return item.holdsElements && isOfElements ? nullptr : item.content.value();
}

std::wstring childText(const ElementView& element, const std::wstring& name) { return element.child(name).text(); }

std::wstring addressOf(const ElementView& element) {
    std::vector<ElementView> way;  // from the section down
    for (ElementView place = element; place && place.parent(); place = place.parent()) way.insert(way.begin(), place);
    if (way.empty()) return {};
    Address address{way[0].name(), way[0].id(), L"", L"", L""};
    std::size_t next = 1;
    if (way.size() > 1 && !way[1].id().empty()) {
        address.subSection = way[1].name();
        address.subSectionID = way[1].id();
        next = 2;
    }
    for (; next < way.size(); ++next) address.key += (address.key.empty() ? L"" : L"|") + way[next].name();
    return addressText(address);
}

std::wstring addressOf(const CheckedSection& section, const CheckedItem& item) {
    return item.sharedKey.holdsIDs ? addressOf(item.element) : addressOf(section, item.key);
}

std::wstring addressOf(const CheckedSection& section, std::wstring_view key) {
    std::wstring address = section.address();
    const std::size_t begin = address.size() + 1;
    address.reserve(begin + key.size());
    address.append(1, L'/').append(key);
    std::replace(address.begin() + static_cast<std::ptrdiff_t>(begin), address.end(), L'|', L'/');
    return address;
}

}  // namespace XMLConfig::detail
