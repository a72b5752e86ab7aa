#include "store/ElementReader.h"

#include <algorithm>
#include <utility>

#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

// When the XML library refuses a text, some nodes that it has made of it are in no tree and cannot be counted. They take at
// most so many bytes for each byte of the text.
constexpr std::size_t wasteOfAByte = 16;

}  // namespace

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

NewElement ElementReader::read(const std::string& text, Tree& tree) {
    if (m_parser == nullptr) m_parser = std::make_unique<FragmentParser>();
    if (m_holder == nullptr) m_holder = tree.makeElement(u"Parsed").release();
    try {
        const int depth = m_parser->parse(text, *m_holder);
        xercesc::DOMElement* const element = m_holder->getFirstElementChild();
        unlink(*m_holder, *element);
        tree.empty(*m_holder);
        return {{element, {&tree}}, depth, m_parser->namespaces()};
    } catch (...) {
        m_parser.reset();
        tree.countWaste(text.size() * wasteOfAByte);
        tree.empty(*m_holder);
        throw;
    }
}

}  // namespace XMLConfig::detail
