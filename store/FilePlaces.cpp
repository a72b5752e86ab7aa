#include "store/FilePlaces.h"

#include <unordered_map>

#include "platform/Files.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/DocumentParser.h"
#include "store/ElementAccess.h"
#include "store/PlaceScanner.h"

namespace XMLConfig {

namespace {

using detail::PlacedElement;
using xercesc::DOMElement;

/// Joins the elements of a tree to those of a text.
class Matching {
public:
    using Found = std::unordered_map<const DOMElement*, FilePlace>;

    explicit Matching(const detail::PlaceScanner& text) : m_text(text), m_nextEqual(text.elements.size()) {}

    Found run(const DOMElement& root) {
        match(root, 0);
        return std::move(m_found);
    }

private:
    using FirstOf = std::unordered_map<std::size_t, std::size_t>;  // by identity

    void match(const DOMElement& element, std::size_t placed) {
        const PlacedElement& here = m_text.elements[placed];
        m_found[&element] = {here.line, here.column};
        FirstOf next = childrenOf(here);
        if (next.empty()) return;
        for (const auto* child = element.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
            const auto found = next.find(identity(*child));
            if (found == next.end() || found->second == 0) continue;
            const std::size_t match = found->second;
            found->second = m_nextEqual[match];
            this->match(*child, match);
        }
    }

    FirstOf childrenOf(const PlacedElement& parent) {
        FirstOf first;
        FirstOf last;
        for (std::size_t child = parent.firstChild; child != 0; child = m_text.elements[child].next) {
            const std::size_t number = m_text.elements[child].identity;
            if (!first.emplace(number, child).second) m_nextEqual[last[number]] = child;
            last[number] = child;
        }
        return first;
    }

    [[nodiscard]] std::size_t identity(const DOMElement& element) const {
        const xercesc::DOMAttr* const id = element.getAttributeNode(detail::xmlText(u"ID"));
        const auto found = m_text.identities.find(
            detail::identityOf(detail::view(element.getNodeName()), id == nullptr ? nullptr : id->getValue()));
        return found == m_text.identities.end() ? m_text.identities.size() : found->second;
    }

    const detail::PlaceScanner& m_text;
    std::vector<std::size_t> m_nextEqual;  // the next one beside it of the same identity; 0 for none
    Found m_found;
};

}  // namespace

struct FilePlaces::Places {
    Matching::Found found;
};

FilePlaces::FilePlaces(const ConfigInfo& document, const std::wstring& path) : m_places(std::make_unique<Places>()) {
    const std::wstring failed = L"Error FilePlaces: " + path + L": ";
    try {
        detail::PlaceScanner text;
        text.scan(*detail::fileSource(path));
        const DOMElement* const root = ElementAccess::element(rootElement(document));
        if (root != nullptr) m_places->found = Matching(text).run(*root);
    } catch (const detail::ParseFailure& failure) {
        throw CorvaneException(failed + failure.message());
    } catch (const detail::FileError& error) {
        throw CorvaneException(failed + error.message());
    } catch (...) {
        detail::rethrow(failed);
    }
}

FilePlaces::~FilePlaces() = default;

std::optional<FilePlace> FilePlaces::find(const ElementView& element) const {
    const auto found = m_places->found.find(ElementAccess::element(element));
    return found == m_places->found.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace XMLConfig
