#include "store/ElementReader.h"

#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

// What the XML library has made of a text when it refuses it is not all in the tree; at most this for each byte.
constexpr std::size_t wasteOfAByte = 16;

}  // namespace

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
