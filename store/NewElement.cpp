#include "store/NewElement.h"

#include <algorithm>
#include <utility>

#include "store/DocumentParser.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

NewElement makeElement(const ElementParts& parts, Tree& tree) {
    using Kind = ElementParts::Kind;
    NewElement outermost;
    xercesc::DOMElement* innermost = nullptr;
    int depth = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const ElementParts::Part part = parts[i];
        if (part.kind == Kind::Begin) {
            LooseElement element = tree.makeElement(part.name);
            xercesc::DOMElement* const inner = element.get();
            if (innermost == nullptr) outermost.element = std::move(element);
            else append(*innermost, *element.release());
            innermost = inner;
            outermost.depth = std::max(outermost.depth, ++depth);
        } else if (part.kind == Kind::Attribute) {
            tree.addAttribute(*innermost, part.name, part.value.data());
        } else if (part.kind == Kind::Text) {
            if (!part.value.empty()) append(*innermost, *tree.makeText(part.value.data()));
        } else {
            innermost = --depth == 0 ? nullptr : static_cast<xercesc::DOMElement*>(parentOf(*innermost));
        }
    }
    return outermost;
}

NewElement readElement(const std::string& text, Tree& tree) {
    const ParsedTree parsed = parseElement(text);
    return {tree.copy(*parsed.document->getDocumentElement()), parsed.levels, parsed.namespaces};
}

}  // namespace XMLConfig::detail
