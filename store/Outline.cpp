#include "store/Outline.h"

#include <algorithm>

#include "platform/Text.h"
#include "store/Document.h"
#include "store/ElementAccess.h"

namespace XMLConfig {

namespace {

OutlineNode nodeOf(const xercesc::DOMElement& element) {
    OutlineNode node;
    node.name = detail::fromUtf16(detail::view(element.getNodeName()));
    const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i) {
        const xercesc::DOMNode* const attribute = attributes->item(i);
        node.attributes.emplace_back(detail::fromUtf16(detail::view(attribute->getNodeName())),
                                     detail::fromUtf16(detail::view(attribute->getNodeValue())));
    }
    for (const auto* child = element.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
        node.children.push_back(nodeOf(*child));
    }
    if (node.children.empty()) node.text = detail::wideTextOf(element);
    return node;
}

}  // namespace

std::wstring OutlineNode::id() const {
    const auto found = std::find_if(attributes.begin(), attributes.end(), [](const auto& a) { return a.first == L"ID"; });
    return found == attributes.end() ? std::wstring() : found->second;
}

std::vector<OutlineNode> outline(const ConfigInfo& document) {
    const auto& tree = detail::Document::of(document);
    return tree.exists() ? nodeOf(*tree.root()).children : std::vector<OutlineNode>();
}

OutlineNode outline(const ElementView& element) {
    return element ? nodeOf(*ElementAccess::element(element)) : OutlineNode();
}

}  // namespace XMLConfig
