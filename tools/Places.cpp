#include "tools/Places.h"

#include <algorithm>
#include <map>
#include <unordered_set>

#include "manager/Selector.h"
#include "manager/SettingSearch.h"
#include "platform/Words.h"
#include "tools/Output.h"
#include "tools/Showing.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;

/// The place of an element inside the one at `above`.
Address below(const Address& above, const ElementView& element) {
    Address place = above;
    const std::wstring id = element.id();
    if (above.subSection.empty() && above.key.empty() && !id.empty()) {
        place.subSection = element.name();
        place.subSectionID = id;
    } else {
        place.key += (above.key.empty() ? L"" : L"|") + element.name();
    }
    return place;
}

class Gathering {
public:
    void addItem(const ElementView& item, const Address& place) {
        const XMLConfig::Setting* const setting = XMLConfig::knownSetting(place);
        if (setting != nullptr && setting->type == XMLConfig::SettingType::Element) {
            for (const ElementView& part : item.children()) addSnippet(part, place, addressText(place) + L"/" + part.name());
        } else if (item.firstChild()) {
            for (const ElementView& part : item.children()) addItem(part, below(place, part));
        } else if (!place.key.empty()) {
            add({addressText(place), place, item, item.text(), setting, false});
        }
    }
    std::vector<AddressedText> take() { return std::move(m_texts); }

private:
    void addSnippet(const ElementView& element, const Address& place, const std::wstring& address) {
        for (const auto& [name, value] : element.attributes())
            add({address + L"@" + name, place, element, value, nullptr, true});
        if (!element.firstChild()) {
            add({address, place, element, XMLConfig::detail::withoutOuterBlanks(element.text()), nullptr, true});
            return;
        }
        std::map<std::wstring, int> met;
        for (const ElementView& part : element.children()) {
            const int number = ++met[part.name()];
            addSnippet(part, place, address + L"/" + part.name() + (number == 1 ? L"" : L"#" + std::to_wstring(number)));
        }
    }
    void add(AddressedText text) {
        if (m_met.insert(text.address).second) m_texts.push_back(std::move(text));
    }

    std::vector<AddressedText> m_texts;
    std::unordered_set<std::wstring> m_met;
};

}  // namespace

std::vector<Address> placesOf(const ConfigInfo& document, const Address& operand) {
    const XMLConfig::Selection selection = XMLConfig::select(document, operand);
    if (selection.candidates.empty()) return selection.places;
    constexpr std::size_t shown = 10;
    const Showing showing(document);
    std::wstring list;
    for (std::size_t i = 0; i < std::min(selection.candidates.size(), shown); ++i) {
        const Address device{operand.section, showing.device(operand.section, selection.candidates[i]), L"", L"", L""};
        list += (i == 0 ? L" " : L", ") + addressText(device);
    }
    if (selection.candidates.size() > shown) list += L", ...";
    throw Refusal(addressText(operand) + L": means one of " + std::to_wstring(selection.candidates.size()) + L" devices:" +
                  list + L"; " + operand.section + L"[*] means all");
}

std::vector<AddressedText> textsAt(const ElementView& element, const Address& place) {
    Gathering gathering;
    gathering.addItem(element, place);
    return gathering.take();
}

std::vector<AddressedText> textsOf(const ConfigInfo& document) {
    Gathering gathering;
    for (const ElementView& section : XMLConfig::rootElement(document).children())
        if (!XMLConfig::isHeaderElement(section.name()))
            gathering.addItem(section, {section.name(), section.id(), L"", L"", L""});
    return gathering.take();
}

}  // namespace tool
