#include "store/Journal.h"

#include <algorithm>

#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

DOMElement* elementOf(DOMNode& node) {
    return node.getNodeType() == DOMNode::ELEMENT_NODE ? static_cast<DOMElement*>(&node) : nullptr;
}

void takeOut(DOMNode& parent, DOMNode& child) {
    if (DOMElement* const element = elementOf(parent)) unlink(*element, child);
    else parent.removeChild(&child);
}

void putBack(DOMNode& parent, DOMNode& child, DOMNode* next) {
    DOMElement* const element = elementOf(parent);
    if (element != nullptr && next == nullptr) append(*element, child);
    else parent.insertBefore(&child, next);
}

}  // namespace

void Journal::close() noexcept {
    if (--m_depth == 0) m_steps = {};
}

void Journal::makeRoom(const std::size_t steps) {
    if (!isOpen()) return;
    const std::size_t needed = m_steps.size() + steps;
    if (needed > m_steps.capacity()) m_steps.reserve(std::max(needed, m_steps.capacity() * 2));
}

void Journal::joined(DOMNode& parent, DOMNode& child) noexcept {
    if (isOpen()) m_steps.push_back({&parent, &child, true, nullptr});
}

void Journal::parting(DOMNode& parent, DOMNode& child) noexcept {
    if (isOpen()) m_steps.push_back({&parent, &child, false, child.getNextSibling()});
}

void Journal::takeBack(const std::size_t length, Tree& tree) noexcept {
    while (m_steps.size() > length) {
        const Step step = m_steps.back();
        m_steps.pop_back();
        if (step.hasJoined) {
            takeOut(*step.parent, *step.child);
            tree.discard(*step.child);
        } else {
            putBack(*step.parent, *step.child, step.next);
        }
    }
}

}  // namespace XMLConfig::detail
