#include "store/FilePlaces.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "platform/Files.h"
#include "platform/Text.h"
#include "store/Attributes.h"
#include "store/ContentHash.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentParser.h"
#include "store/ElementAccess.h"
#include "store/ElementNumbers.h"
#include "store/MarkupBytes.h"
#include "store/PlaceScanner.h"
#include "store/StartTags.h"
#include "store/TagScanner.h"
#include "store/TreeLinks.h"

namespace XMLConfig {

namespace detail {

std::u16string identityOf(std::u16string_view tag, const XMLCh* id) {
    std::u16string identity(tag);
    if (id != nullptr) identity.append(1, u'=').append(view(id));  // no tag holds this character
    return identity;
}

std::u16string identityOf(const xercesc::DOMElement& element) {
    const xercesc::DOMAttr* const id = idAttributeOf(element);
    return identityOf(view(element.getNodeName()), id == nullptr ? nullptr : id->getValue());
}

}  // namespace detail

namespace {

using detail::PlacedElements;
using xercesc::DOMElement;

/// Joins the elements of a tree to those of a text: of one element those inside it, when any of them is asked for.
class Matching {
public:
    /// `areAlike` says that both are known to hold the same elements, so that none needs to be compared.
    Matching(const DOMElement& root, const PlacedElements& text, bool areAlike)
        : m_root(root), m_text(text), m_areAlike(areAlike) {}

    /// The number of the text's element; nothing where it has none.
    std::optional<std::size_t> find(const DOMElement* element) {
        if (element == nullptr || element == &m_root)
            return element == nullptr ? std::nullopt : std::optional<std::size_t>(0);
        const xercesc::DOMNode* const parent = detail::parentOf(*element);
        if (parent == nullptr || parent->getNodeType() != xercesc::DOMNode::ELEMENT_NODE) return std::nullopt;
        const auto* const around = static_cast<const DOMElement*>(parent);
        const std::optional<std::size_t> placed = find(around);
        return placed ? find(inside(*around, *placed), element) : std::nullopt;
    }

private:
    struct Pair {
        const DOMElement* element;
        std::size_t number;
        bool operator<(const Pair& other) const { return std::less<>()(element, other.element); }
    };
    using Pairs = std::vector<Pair>;  // by element

    static std::optional<std::size_t> find(const Pairs& pairs, const DOMElement* element) {
        const auto found = std::lower_bound(pairs.begin(), pairs.end(), Pair{element, 0});
        return found == pairs.end() || found->element != element ? std::nullopt : std::optional(found->number);
    }

    const Pairs& inside(const DOMElement& around, std::size_t placed) {
        const auto [place, isNew] = m_inside.try_emplace(&around);
        Pairs& pairs = place->second;
        if (!isNew) return pairs;
        pairs = matched(around, placed);
        if (!std::is_sorted(pairs.begin(), pairs.end())) std::sort(pairs.begin(), pairs.end());
        return pairs;
    }

    /// As long as both hold the same one after the other, the first of several that are equal is the first.
    [[nodiscard]] Pairs matched(const DOMElement& around, std::size_t placed) const {
        constexpr std::size_t usual = 64;
        Pairs pairs;
        pairs.reserve(usual);
        const std::size_t first = m_text.firstChild(placed);
        std::size_t same = first;
        const DOMElement* child = detail::firstElementIn(around);
        const auto isAlike = [&] { return m_areAlike || m_text.isLike(same, *child); };
        for (; child != nullptr && same != 0 && isAlike(); child = detail::elementAfter(*child)) {
            pairs.push_back({child, same});
            same = m_text.next(same);
        }
        return child == nullptr || same == 0 ? pairs : matchedByIdentity(around, first);
    }

    /// Joins elements and places of one identity in their order: the first element has the first place, and so on.
    [[nodiscard]] Pairs matchedByIdentity(const DOMElement& around, std::size_t first) const {
        std::unordered_map<std::u16string, std::vector<std::size_t>> placed;
        for (std::size_t number = first; number != 0; number = m_text.next(number))
            placed[m_text.identity(number)].push_back(number);
        std::unordered_map<std::u16string, std::size_t> met;
        Pairs pairs;
        for (const auto* child = detail::firstElementIn(around); child != nullptr; child = detail::elementAfter(*child)) {
            const std::u16string identity = detail::identityOf(*child);
            const auto equals = placed.find(identity);
            const std::size_t count = met[identity]++;
            if (equals != placed.end() && count < equals->second.size()) pairs.push_back({child, equals->second[count]});
        }
        return pairs;
    }

    const DOMElement& m_root;
    const PlacedElements& m_text;
    const bool m_areAlike;
    std::unordered_map<const DOMElement*, Pairs> m_inside;
};

/// A file's content.
struct Bytes {
    std::unique_ptr<char[]> data;  // a string would be cleared before it is read into, and copied while it grows
    std::size_t size = 0;
    [[nodiscard]] std::string_view all() const { return {data.get(), size}; }
};

/// The file's bytes; nothing where they are not those that the document was made of, so that they may be malformed.
std::optional<Bytes> knownBytes(const detail::FileState& file, const std::wstring& path) {
    if (!file.isOf(path)) return std::nullopt;
    const std::size_t room = static_cast<std::size_t>(file.size()) + 1;  // one more tells whether the file has grown
    Bytes bytes{std::unique_ptr<char[]>(new char[room]), 0};
    detail::FileReader reader(path);
    while (const std::size_t count = reader.read(bytes.data.get() + bytes.size, room - bytes.size)) bytes.size += count;
    detail::ContentHash content;
    content.add(bytes.all());
    return file.isContent(content.value()) ? std::optional(std::move(bytes)) : std::nullopt;
}

std::unique_ptr<PlacedElements> scanStrictly(const std::wstring& path) {
    auto scanner = std::make_unique<detail::PlaceScanner>();
    try {
        scanner->scan(*detail::fileSource(path));
    } catch (const detail::WrongBytes& failure) {
        failure.throwWithPlaceInFile(path);
    }
    return scanner;
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

using FoundPlaces = std::vector<std::optional<FilePlace>>;

/// Nothing unless the document and the file hold the same elements one after the other.
std::optional<FoundPlaces> placesInOrder(const std::vector<ElementView>& elements, const ConfigInfo& document,
                                         const std::wstring& path) {
    const detail::Document& tree = detail::Document::of(document);
    if (!tree.isAsParsed() || tree.root() == nullptr) return std::nullopt;
    const std::optional<Bytes> bytes = knownBytes(tree.file, path);
    const std::optional<std::string_view> markup = bytes ? detail::markupOf(bytes->all()) : std::nullopt;
    if (!markup) return std::nullopt;
    FoundPlaces places(elements.size());
    detail::StartTags tags(*markup);
    for (const detail::NumberedElement& met : detail::numbered(elements, *tree.root()))
        places[met.index] = tags.place(met.number);
    return places;
}

}  // namespace

struct FilePlaces::Places {
    std::optional<Bytes> bytes;
    std::unique_ptr<PlacedElements> elements;
    std::optional<Matching> matching;  // nothing for a document without a root
};

FilePlaces::FilePlaces(const ConfigInfo& document, const std::wstring& path) : m_places(std::make_unique<Places>()) {
    reporting(path, [&] {
        const detail::Document& tree = detail::Document::of(document);
        m_places->bytes = knownBytes(tree.file, path);
        if (m_places->bytes) m_places->elements = detail::TagScanner::scan(m_places->bytes->all());
        const bool areAlike = m_places->elements != nullptr && tree.isAsParsed();
        if (m_places->elements == nullptr) m_places->elements = scanStrictly(path);
        const DOMElement* const root = ElementAccess::element(rootElement(document));
        if (root != nullptr) m_places->matching.emplace(*root, *m_places->elements, areAlike);
    });
}

FilePlaces::~FilePlaces() = default;

std::optional<FilePlace> FilePlaces::find(const ElementView& element) const {
    if (!m_places->matching) return std::nullopt;
    const std::optional<std::size_t> number = m_places->matching->find(ElementAccess::element(element));
    return number ? std::optional(m_places->elements->place(*number)) : std::nullopt;
}

std::vector<std::optional<FilePlace>> placesOf(const std::vector<ElementView>& elements, const ConfigInfo& document,
                                               const std::wstring& path) {
    std::optional<FoundPlaces> inOrder;
    reporting(path, [&] { inOrder = placesInOrder(elements, document, path); });
    if (inOrder) return std::move(*inOrder);
    const FilePlaces places(document, path);
    FoundPlaces found;
    found.reserve(elements.size());
    for (const ElementView& element : elements) found.push_back(places.find(element));
    return found;
}

}  // namespace XMLConfig
