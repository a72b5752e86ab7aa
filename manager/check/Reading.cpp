#include "manager/check/Reading.h"

#include <algorithm>
#include <unordered_map>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "platform/Numbers.h"
#include "store/Address.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

/// The ID in the way the catalogue's keys have it.
std::wstring withID(const std::wstring& name, const std::wstring& id) { return id.empty() ? name : name + L"[" + id + L"]"; }

/// Finds among the children of one element those that an earlier one of the same name and ID hides.
class Met {
public:
    /// The earlier one, or a view of no element.
    ElementView add(const std::wstring& nameWithID, const ElementView& element) {
        const auto [place, isNew] = m_met.emplace(nameWithID, element);
        return isNew ? ElementView() : place->second;
    }

private:
    std::unordered_map<std::wstring, ElementView> m_met;
};

const CheckedSection& noSection() {
    static const CheckedSection none(ElementView(), L"");
    return none;
}

const CheckedSection* at(const std::map<std::wstring, const CheckedSection*>& sections, const std::wstring& id) {
    const auto found = sections.find(id);
    return found == sections.end() ? nullptr : found->second;
}

}  // namespace

/// Reads sections, and asks the catalogue once for each key that it meets.
class SectionReader {
public:
    void read(CheckedSection& section) {
        section.isKnown = std::find(m_names.begin(), m_names.end(), section.tag) != m_names.end();
        if (section.isKnown) addChildren(section, section.element, L"");
        order(section);
    }

private:
    struct Known {
        const Setting* setting;
        bool isGroup;
    };

    const Known& knownAt(const std::wstring& tag, const std::wstring& key) {
        m_path.assign(tag).append(1, L'/').append(key);
        const auto found = m_known.find(m_path);
        if (found != m_known.end()) return found->second;
        const Address address{tag, L"", L"", L"", key};
        return m_known.emplace(m_path, Known{knownSetting(address), isGroupOfSettings(address)}).first->second;
    }

    void addChildren(CheckedSection& section, const ElementView& parent, const std::wstring& prefix) {
        Met met;
        for (const ElementView& child : parent.children()) {
            const std::wstring name = withID(child.name(), child.id());
            addItem(section, child, prefix + name, met.add(name, child));
        }
    }

    void addItem(CheckedSection& section, const ElementView& child, const std::wstring& key, const ElementView& earlier) {
        const Known& known = knownAt(section.tag, key);
        const bool isGroup = known.isGroup;
        const auto kind = isGroup                    ? CheckedItem::Kind::Group
                          : known.setting != nullptr ? CheckedItem::Kind::Value
                                                     : CheckedItem::Kind::Unknown;
        const bool holdsElements = static_cast<bool>(child.firstChild());
        const std::wstring text = isGroup || holdsElements ? std::wstring() : child.text();
        section.items.push_back({child, key, text, known.setting, kind, holdsElements, earlier});
        if (isGroup && !earlier) addChildren(section, child, key + L"|");
    }

    static void order(CheckedSection& section) {
        for (std::size_t i = 0; i < section.items.size(); ++i)
            if (!section.items[i].hiddenBy) section.m_byKey.push_back(i);
        const auto isBefore = [&](std::size_t a, std::size_t b) { return section.items[a].key < section.items[b].key; };
        std::sort(section.m_byKey.begin(), section.m_byKey.end(), isBefore);
    }

    const std::vector<std::wstring> m_names = sectionNames();
    std::unordered_map<std::wstring, Known> m_known;
    std::wstring m_path;
};

CheckedSection::CheckedSection(const ElementView& place, std::wstring name) : element(place), tag(std::move(name)) {
    id = element ? element.id() : L"";
}

const CheckedItem* CheckedSection::find(std::wstring_view key) const {
    const auto isBefore = [this](std::size_t index, std::wstring_view wanted) { return items[index].key < wanted; };
    const auto found = std::lower_bound(m_byKey.begin(), m_byKey.end(), key, isBefore);
    return found == m_byKey.end() || items[*found].key != key ? nullptr : &items[*found];
}

std::wstring CheckedSection::stored(std::wstring_view key) const {
    const CheckedItem* const item = find(key);
    return item == nullptr ? L"" : item->text;
}

std::wstring CheckedSection::title() const {
    const std::wstring name = stored(L"Name");
    return L"\"" + (name.empty() ? id : name) + L"\"";
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
    Met met;
    for (const ElementView& element : rootElement(document).children()) {
        const std::wstring name = element.name();
        if (isHeaderElement(name)) continue;
        m_sections.emplace_back(element, name);
        CheckedSection& section = m_sections.back();
        const bool lacksID = isDeviceSection(name) && section.id.empty();
        if (!lacksID) section.hiddenBy = met.add(withID(name, section.id), element);
        reader.read(section);
    }
}

void CheckedDocument::gatherDevices() {
    for (const CheckedSection& section : m_sections) {
        m_firstOfTag.emplace(section.tag, &section);
        if (section.hiddenBy || !section.isDevice()) continue;
        const bool isCamera = section.tag == L"Camera";
        (isCamera ? m_cameras : m_projectors).push_back(&section);
        (isCamera ? m_cameraByID : m_projectorByID).emplace(section.id, &section);
        if (isCamera && section.holds(L"OldSectionID")) m_cameraByOldID.emplace(section.stored(L"OldSectionID"), &section);
    }
}

const CheckedSection& CheckedDocument::section(const std::wstring& tag) const {
    const CheckedSection* const found = at(m_firstOfTag, tag);
    return found == nullptr ? noSection() : *found;
}

const CheckedSection* CheckedDocument::camera(const std::wstring& id) const { return at(m_cameraByID, id); }
const CheckedSection* CheckedDocument::projector(const std::wstring& id) const { return at(m_projectorByID, id); }
const CheckedSection* CheckedDocument::cameraThatWas(const std::wstring& oldID) const { return at(m_cameraByOldID, oldID); }

std::wstring CheckedDocument::text(const CheckedSection& section, const std::wstring& key) const {
    if (const CheckedItem* const item = section.find(key))
        if (const std::optional<std::wstring> value = valueOf(*item)) return *value;
    const Setting* const setting = knownSetting({section.tag, L"", L"", L"", key});
    if (setting == nullptr) return {};
    if (setting->inheritsFrom.empty()) return setting->defaultText;
    const CheckedItem* const above = this->section(setting->inheritsFrom).find(key);
    const std::optional<std::wstring> value = above == nullptr ? std::nullopt : valueOf(*above);
    return value.value_or(setting->defaultText);
}

double CheckedDocument::number(const CheckedSection& section, const std::wstring& key) const {
    return leadingDouble(text(section, key));
}
int CheckedDocument::integer(const CheckedSection& section, const std::wstring& key) const {
    return leadingInteger(text(section, key));
}
bool CheckedDocument::flag(const CheckedSection& section, const std::wstring& key) const {
    return text(section, key) == L"true";
}
std::vector<double> CheckedDocument::numbers(const CheckedSection& section, const std::wstring& key) const {
    return numbersOf(text(section, key));
}
Point_3Dim<double> CheckedDocument::point(const CheckedSection& section, const std::wstring& key) const {
    const std::vector<double> values = numbers(section, key);
    return values.size() == 3 ? Point_3Dim<double>{values[0], values[1], values[2]} : Point_3Dim<double>{};
}

// A section that is missing is asked by its name all the same, for its defaults.

std::wstring CheckedDocument::text(const std::wstring& tag, const std::wstring& key) const {
    const CheckedSection* const found = at(m_firstOfTag, tag);
    return found == nullptr ? text(CheckedSection(ElementView(), tag), key) : text(*found, key);
}
double CheckedDocument::number(const std::wstring& tag, const std::wstring& key) const {
    return leadingDouble(text(tag, key));
}
int CheckedDocument::integer(const std::wstring& tag, const std::wstring& key) const {
    return leadingInteger(text(tag, key));
}
bool CheckedDocument::flag(const std::wstring& tag, const std::wstring& key) const { return text(tag, key) == L"true"; }
Point_3Dim<double> CheckedDocument::point(const std::wstring& tag, const std::wstring& key) const {
    const std::vector<double> values = numbersOf(text(tag, key));
    return values.size() == 3 ? Point_3Dim<double>{values[0], values[1], values[2]} : Point_3Dim<double>{};
}

std::optional<std::wstring> valueOf(const CheckedItem& item) {
    if (item.holdsElements) return std::nullopt;
    return textAsRead(item.text, item.setting == nullptr ? SettingType::Text : item.setting->type);
}

std::vector<double> numbersOf(const std::wstring& text) {
    std::vector<double> numbers;
    for (const std::wstring& token : tokensOf(text)) numbers.push_back(leadingDouble(token));
    return numbers;
}

ElementView childOf(const ElementView& element, const std::wstring& name) {
    if (!element) return {};
    for (const ElementView& child : element.children())
        if (child.isNamed(name)) return child;
    return {};
}

std::wstring childText(const ElementView& element, const std::wstring& name) {
    const ElementView child = childOf(element, name);
    return child ? child.text() : L"";
}

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

}  // namespace XMLConfig::detail
