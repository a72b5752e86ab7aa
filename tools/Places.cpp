#include "tools/Places.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "manager/Selector.h"
#include "manager/SettingSearch.h"
#include "tools/Output.h"
#include "tools/Showing.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;
using XMLConfig::StoredText;

/// The texts that an address leads to. Of several texts with one address it is the first, as for the library.
std::vector<StoredText> reached(std::vector<StoredText> texts) {
    std::unordered_set<std::wstring> met;
    const auto isOutOfReach = [&](const StoredText& text) {
        return text.place.key.empty() || !met.insert(text.path).second;
    };
    texts.erase(std::remove_if(texts.begin(), texts.end(), isOutOfReach), texts.end());
    return texts;
}

/// A list of the sections with these IDs, by their devices' names; of many the first ones only.
std::wstring listOf(const ConfigInfo& document, const std::wstring& section, const std::vector<std::wstring>& ids) {
    constexpr std::size_t shown = 10;
    const Showing showing(document);
    std::wstring list;
    for (std::size_t i = 0; i < std::min(ids.size(), shown); ++i)
        list += (i == 0 ? L"" : L", ") + XMLConfig::addressText({section, showing.device(section, ids[i]), L"", L"", L""});
    return ids.size() > shown ? list + L", ..." : list;
}

}  // namespace

std::vector<ElementView> reachedSections(const ConfigInfo& document, const std::wstring& section) {
    std::vector<ElementView> sections = XMLConfig::sectionElements(document, section);
    const auto isHidden = [&](const ElementView& one) {
        return XMLConfig::findElement(document, {section, one.id(), L"", L"", L""}) != one;
    };
    sections.erase(std::remove_if(sections.begin(), sections.end(), isHidden), sections.end());
    return sections;
}

std::wstring heldSections(const ConfigInfo& document, const std::wstring& section) {
    std::vector<std::wstring> ids;
    for (const ElementView& one : reachedSections(document, section)) ids.push_back(one.id());
    return ids.empty() ? L"no " + section : listOf(document, section, ids);
}

std::vector<Address> placesOf(const ConfigInfo& document, const Address& operand) {
    const XMLConfig::Selection selection = XMLConfig::select(document, operand);
    if (selection.candidates.empty()) return selection.places;
    throw Refusal(addressText(operand) + L": means one of " + std::to_wstring(selection.candidates.size()) + L" devices: " +
                  listOf(document, operand.section, selection.candidates) + L"; " + operand.section + L"[*] means all");
}

std::vector<StoredText> textsAt(const ElementView& element, const Address& place) {
    return reached(storedTexts(element, place, addressText(place)));
}

std::vector<StoredText> textsOf(const ConfigInfo& document) {
    std::vector<StoredText> texts;
    for (const ElementView& section : XMLConfig::rootElement(document).children()) {
        if (XMLConfig::isHeaderElement(section.name())) continue;
        const Address place{section.name(), section.id(), L"", L"", L""};
        std::vector<StoredText> more = storedTexts(section, place, addressText(place));
        texts.insert(texts.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    return reached(std::move(texts));
}

}  // namespace tool
