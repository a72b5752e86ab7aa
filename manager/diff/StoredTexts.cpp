#include "manager/diff/StoredTexts.h"

#include <map>

#include "manager/SettingSearch.h"
#include "platform/Words.h"

namespace XMLConfig::detail {
namespace {

/// "[ID]" as addresses have it, or nothing.
std::wstring inBrackets(const std::wstring& id) {
    return id.empty() ? std::wstring() : addressText({L"", id, L"", L"", L""});
}

}  // namespace

StoredTexts::StoredTexts(const ElementView& section) {
    m_section.section = section.name();
    m_section.sectionID = section.id();
    for (const ElementView& child : section.children()) addChild(child);
}

const StoredText* StoredTexts::find(const std::wstring& path) const {
    const auto place = m_places.find(path);
    return place == m_places.end() ? nullptr : &m_texts[place->second];
}

void StoredTexts::addChild(const ElementView& child) {
    Address place = m_section;
    const std::wstring id = child.id();
    (id.empty() ? place.key : place.subSection) = child.name();
    place.subSectionID = id;
    addItem(child, place, child.name() + inBrackets(id));
}

void StoredTexts::addItem(const ElementView& item, const Address& place, const std::wstring& path) {
    const Setting* const setting = knownSetting(place);
    if (setting != nullptr && setting->type == SettingType::Element) {
        for (const ElementView& part : item.children()) addSnippet(part, place, path + L"/" + part.name());
    } else if (!item.firstChild()) {
        add({path, place, setting, item.text(), false});
    } else {
        for (const ElementView& part : item.children()) {
            Address below = place;
            below.key += (below.key.empty() ? L"" : L"|") + part.name();
            addItem(part, below, path + L"/" + part.name());
        }
    }
}

void StoredTexts::addSnippet(const ElementView& element, const Address& place, const std::wstring& path) {
    for (const auto& [name, value] : element.attributes()) add({path + L"@" + name, place, nullptr, value, true});
    if (!element.firstChild()) {
        add({path, place, nullptr, withoutOuterBlanks(element.text()), true});
        return;
    }
    std::map<std::wstring, int> met;
    for (const ElementView& part : element.children()) {
        const int number = ++met[part.name()];
        addSnippet(part, place, path + L"/" + part.name() + (number == 1 ? L"" : L"#" + std::to_wstring(number)));
    }
}

void StoredTexts::add(StoredText text) {
    if (m_places.emplace(text.path, m_texts.size()).second) m_texts.push_back(std::move(text));
}

}  // namespace XMLConfig::detail
