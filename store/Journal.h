#pragma once

#include <cstddef>
#include <vector>

#include "store/Tree.h"

namespace XMLConfig::detail {

/// What was done to the tree while it is open, so that it can be taken back without any memory. Nodes that left the tree
/// are in it, and so the tree must not be copied meanwhile.
class Journal {
public:
    void open() noexcept { ++m_depth; }
    void close() noexcept;
    [[nodiscard]] bool isOpen() const noexcept { return m_depth > 0; }
    /// How many steps there are.
    [[nodiscard]] std::size_t length() const noexcept { return m_steps.size(); }

    // Nothing is kept while it is closed.

    /// To be called before a change of so many steps: the only function that can fail.
    void makeRoom(std::size_t steps);
    void joined(xercesc::DOMNode& parent, xercesc::DOMNode& child) noexcept;
    /// `child` is about to leave.
    void parting(xercesc::DOMNode& parent, xercesc::DOMNode& child) noexcept;
    /// Takes back all steps after so many.
    void takeBack(std::size_t length, Tree& tree) noexcept;

private:
    struct Step {
        xercesc::DOMNode* parent;
        xercesc::DOMNode* child;
        bool hasJoined;          // else it left
        xercesc::DOMNode* next;  // what stood after a child that left; null for none
    };

    int m_depth = 0;
    std::vector<Step> m_steps;
};

}  // namespace XMLConfig::detail
