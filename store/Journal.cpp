#include "store/Journal.h"

#include <algorithm>

namespace XMLConfig::detail {

using xercesc::DOMNode;

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
        if (step.hasJoined) tree.remove(*step.parent, *step.child);
        else step.parent->insertBefore(step.child, step.next);
    }
}

}  // namespace XMLConfig::detail
