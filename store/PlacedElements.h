#pragma once

#include <string>

#include "store/FilePlaces.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// What tells an element from those beside it: its tag and its "ID" attribute, which may be missing.
std::u16string identityOf(std::u16string_view tag, const XMLCh* id);
std::u16string identityOf(const xercesc::DOMElement& element);

/// The elements of a text by their numbers in document order: 0 is the root.
class PlacedElements {
public:
    PlacedElements() = default;
    virtual ~PlacedElements() = default;
    PlacedElements(const PlacedElements&) = delete;
    PlacedElements& operator=(const PlacedElements&) = delete;

    /// The first element inside one, and the next one beside it; 0 where there is none.
    [[nodiscard]] virtual std::size_t firstChild(std::size_t element) const = 0;
    [[nodiscard]] virtual std::size_t next(std::size_t element) const = 0;
    [[nodiscard]] virtual std::u16string identity(std::size_t element) const = 0;
    /// Whether an element of a tree has that identity.
    [[nodiscard]] virtual bool isLike(std::size_t element, const xercesc::DOMElement& other) const = 0;
    /// Where its start tag begins.
    [[nodiscard]] virtual FilePlace place(std::size_t element) const = 0;
};

}  // namespace XMLConfig::detail
