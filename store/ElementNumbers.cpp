#include "store/ElementNumbers.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include "store/ElementAccess.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;

class Numbering {
public:
    explicit Numbering(const std::vector<ElementView>& elements) {
        m_asked.reserve(elements.size());
        for (std::size_t i = 0; i < elements.size(); ++i)
            if (elements[i]) m_asked.push_back({ElementAccess::element(elements[i]), i});
        std::sort(m_asked.begin(), m_asked.end());
        m_met.reserve(m_asked.size());
        expect();
    }

    std::vector<NumberedElement> in(const DOMElement& root) {
        walk(root);
        return std::move(m_met);
    }

private:
    struct Asked {
        const DOMElement* element;
        std::size_t index;
        bool operator<(const Asked& other) const { return std::less<>()(element, other.element); }
    };

    static std::uintptr_t addressOf(const DOMElement* element) { return reinterpret_cast<std::uintptr_t>(element); }

    /// Mostly each element lies after the one before it in memory, since a load makes them one after the other. Then two
    /// comparisons tell of most elements that nobody asks for them.
    void walk(const DOMElement& element) {
        const std::uintptr_t address = addressOf(&element);
        if (address >= m_nextAddress || address <= m_lastAddress) meet(element);
        ++m_count;
        for (const DOMElement* child = firstElementIn(element); child != nullptr; child = elementAfter(*child)) walk(*child);
    }

    void meet(const DOMElement& element) {
        if (addressOf(&element) != m_nextAddress) {
            const auto place = std::lower_bound(m_asked.begin(), m_asked.end(), Asked{&element, 0});
            m_next = static_cast<std::size_t>(place - m_asked.begin());
        }
        for (; m_next < m_asked.size() && m_asked[m_next].element == &element; ++m_next)
            m_met.push_back({m_asked[m_next].index, m_count});
        expect();
    }

    void expect() {
        m_lastAddress = m_next == 0 ? 0 : addressOf(m_asked[m_next - 1].element);
        m_nextAddress = m_next == m_asked.size() ? UINTPTR_MAX : addressOf(m_asked[m_next].element);
    }

    std::vector<Asked> m_asked;
    std::size_t m_next = 0;
    std::uintptr_t m_lastAddress = 0;  // nobody asks for what lies between these two; this one may come later
    std::uintptr_t m_nextAddress = 0;
    std::size_t m_count = 0;
    std::vector<NumberedElement> m_met;
};

}  // namespace

std::vector<NumberedElement> numbered(const std::vector<ElementView>& elements, const DOMElement& root) {
    return Numbering(elements).in(root);
}

}  // namespace XMLConfig::detail
