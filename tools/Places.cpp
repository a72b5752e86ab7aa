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

/// Those that have an address, and of several with one address the first, which is the one the library reads.
std::vector<StoredText> reached(std::vector<StoredText> texts) {
    std::unordered_set<std::wstring> met;
    const auto isOutOfReach = [&](const StoredText& text) {
        return text.place.key.empty() || !met.insert(text.path).second;
    };
    texts.erase(std::remove_if(texts.begin(), texts.end(), isOutOfReach), texts.end());
    return texts;
}

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
