#include "store/Comments.h"

#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/ElementAccess.h"
#include "store/Legality.h"
#include "store/TreeLinks.h"

namespace XMLConfig {
namespace {

constexpr const wchar_t* addPrefix = L"Error addComment: ";
constexpr const wchar_t* removePrefix = L"Error removeComment: ";

xercesc::DOMElement& placeOf(const wchar_t* prefix, const detail::Document& document, const ElementView& around) {
    xercesc::DOMElement* const place = ElementAccess::element(around);
    if (place != nullptr && (place == document.root() || detail::parentOf(*place) == document.root())) return *place;
    throw CorvaneException(prefix + std::wstring(L"the element is neither the root nor a section"));
}

}  // namespace

void addComment(ConfigInfo& document, const std::vector<ElementView>& around, const std::wstring& text) {
    detail::reporting(addPrefix, [&] {
        detail::refuseComment(addPrefix, text);
        detail::Document& tree = detail::Document::of(document);
        std::vector<xercesc::DOMElement*> places;
        places.reserve(around.size());
        for (const ElementView& each : around) places.push_back(&placeOf(addPrefix, tree, each));
        if (places.empty()) return;
        tree.addComments(places, text);
        document.setDirty(true);
    });
}

std::size_t removeComment(ConfigInfo& document, const ElementView& around, const std::wstring& text) {
    return detail::reporting(removePrefix, [&] {
        detail::Document& tree = detail::Document::of(document);
        const std::size_t count = tree.removeComments(placeOf(removePrefix, tree, around), text);
        if (count > 0) document.setDirty(true);
        return count;
    });
}

}  // namespace XMLConfig
