#include "store/FilePlaces.h"

#include <unordered_map>
#include <vector>

#include "platform/Cancellation.h"
#include "platform/Files.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/ElementAccess.h"
#include "store/ElementPlaces.h"
#include "store/NodeText.h"
#include "store/ParseFailure.h"
#include "store/TreeLinks.h"

namespace XMLConfig {

namespace {

using detail::ElementPlaces;
using xercesc::DOMElement;

/// What tells an element from those beside it.
std::u16string identityOf(const DOMElement& element) {
    std::u16string identity(detail::view(element.getNodeName()));
    const xercesc::DOMAttr* const id = detail::idAttributeOf(element);
    if (id != nullptr) identity.append(1, u'=').append(detail::valueOf(*id));  // no tag holds this character
    return identity;
}

/// Gives the elements of a document the places that a file's elements have.
class Matching {
public:
    Matching(const ElementPlaces& inFile, ElementPlaces& matched) : m_inFile(inFile), m_matched(matched) {}

    void match(const DOMElement& element, const DOMElement& inFile) {
        m_matched.byElement.emplace(&element, m_inFile.byElement.at(&inFile));
        matchInside(element, inFile);
    }

private:
    /// Of several of one identity the first is matched to the first, and so on.
    void matchInside(const DOMElement& element, const DOMElement& inFile) {
        std::unordered_map<std::u16string, std::vector<const DOMElement*>> alike;
        for (auto* child = detail::firstElementIn(inFile); child != nullptr; child = detail::elementAfter(*child))
            alike[identityOf(*child)].push_back(child);
        std::unordered_map<std::u16string, std::size_t> met;
        for (auto* child = detail::firstElementIn(element); child != nullptr; child = detail::elementAfter(*child)) {
            const std::u16string identity = identityOf(*child);
            const std::vector<const DOMElement*>& others = alike[identity];
            const std::size_t index = met[identity]++;
            if (index < others.size()) match(*child, *others[index]);
        }
    }

    const ElementPlaces& m_inFile;
    ElementPlaces& m_matched;
};

std::shared_ptr<const ElementPlaces> matchedPlaces(const DOMElement* root, const std::wstring& path) {
    const detail::ParsedTree file = detail::parseFileWithPlaces(path);
    auto matched = std::make_shared<ElementPlaces>();
    if (root != nullptr) Matching(*file.places, *matched).match(*root, *file.document->getDocumentElement());
    return matched;
}

/// The places that were noted during the load; null where they are not those in the file.
std::shared_ptr<const ElementPlaces> notedPlaces(const detail::Document& document, const std::wstring& path) {
    const auto& places = document.parsedPlaces();
    const bool areGood = places != nullptr && document.file.isContent(places->contentHash) && document.file.isOf(path) &&
                         !document.file.hasChanged();
    return areGood ? places : nullptr;
}

template <typename Action>
void reporting(const std::wstring& path, const Action& action) {
    const std::wstring failed = L"Error FilePlaces: " + path + L": ";
    try {
        action();
    } catch (const detail::ParseFailure& failure) {
        throw CorvaneException(failed + failure.message());
    } catch (const detail::FileError& error) {
        throw CorvaneException(failed + error.message());
    } catch (...) {
        detail::rethrow(failed);
    }
}

}  // namespace

FilePlaces::FilePlaces(const ConfigInfo& document, const std::wstring& path) {
    reporting(path, [&] {
        const detail::Document& tree = detail::Document::of(document);
        m_places = notedPlaces(tree, path);
        if (m_places == nullptr) m_places = matchedPlaces(tree.root(), path);
    });
}

std::optional<FilePlace> FilePlaces::find(const ElementView& element) const {
    const auto place = m_places->byElement.find(ElementAccess::element(element));
    return place == m_places->byElement.end() ? std::nullopt : std::optional(place->second);
}

std::unique_ptr<ConfigInfo> loadWithPlaces(const std::wstring& path) {
    const detail::HeldCancellation held;
    auto document = std::make_unique<ConfigInfo>();
    detail::Document::of(*document).parseDataFile(path, detail::parseFileWithPlaces);
    return document;
}

}  // namespace XMLConfig
