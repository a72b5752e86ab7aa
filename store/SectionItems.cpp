#include "store/SectionItems.h"

#include <algorithm>
#include <utility>

namespace XMLConfig::detail {

namespace {

// Each section has places for the keys below this number, whether it holds those items or not.
constexpr std::size_t commonKeys = 256;
// Most values are numbers or a few of them; what is longer takes long to read anyway.
constexpr std::size_t longestText = 128;
constexpr std::size_t longestCopies = UINT32_MAX - longestText;

}  // namespace

SectionItems::Rare& SectionItems::rare() {
    if (m_rare == nullptr) m_rare = std::make_unique<Rare>();
    return *m_rare;
}

KnownItem* SectionItems::find(std::size_t number) {
    if (number >= commonKeys) {
        if (m_rare == nullptr) return nullptr;
        const auto rare = m_rare->items.find(number);
        return rare == m_rare->items.end() ? nullptr : &rare->second;
    }
    if (number >= m_items.size() || m_items[number].element == nullptr) return nullptr;
    return &m_items[number];
}

KnownItem& SectionItems::add(std::size_t number, xercesc::DOMElement* element, std::size_t expectedNumbers) {
    const bool isCommon = number < commonKeys;
    if (isCommon && number >= m_items.size()) m_items.resize(std::max(number + 1, std::min(expectedNumbers, commonKeys)));
    KnownItem& item = isCommon ? m_items[number] : rare().items[number];
    if (item.element == nullptr) item.element = element;
    else rare().namesakes[number].add(element);
    return item;
}

void SectionItems::remove(std::size_t number) {
    KnownItem* const item = find(number);
    if (item == nullptr) return;
    forgetText(*item);
    if (m_rare != nullptr) m_rare->namesakes.erase(number);
    if (number >= commonKeys) m_rare->items.erase(number);
    else *item = {};
}

void SectionItems::removeFirst(std::size_t number, const xercesc::DOMElement& section) {
    Namesakes* const others = after(number);
    xercesc::DOMElement* const next = others == nullptr ? nullptr : others->takeFirst(section);
    if (next == nullptr) return remove(number);
    KnownItem& item = *find(number);
    forgetText(item);
    item.element = next;
}

void SectionItems::clear() noexcept { *this = {}; }

Namesakes* SectionItems::after(std::size_t number) {
    if (m_rare == nullptr) return nullptr;
    const auto found = m_rare->namesakes.find(number);
    return found == m_rare->namesakes.end() ? nullptr : &found->second;
}

std::u16string_view SectionItems::text(const KnownItem& item) const {
    return {m_copies.data() + (item.textLength == 0 ? 0 : item.textBegin), item.textLength};
}

void SectionItems::rememberText(KnownItem& item, std::u16string_view text) {
    if (text.size() > longestText || m_copies.size() > longestCopies) return;
    const std::size_t begin = m_copies.size();
    m_copies += text;  // what can fail comes first
    item.textBegin = static_cast<std::uint32_t>(begin);
    item.textLength = static_cast<std::uint32_t>(text.size());
}

void SectionItems::forgetText(KnownItem& item) {
    m_unused += std::exchange(item.textLength, 0);
    const std::size_t rareItems = m_rare == nullptr ? 0 : m_rare->items.size();
    if (m_unused > m_copies.size() / 2 + m_items.size() + rareItems) forgetTexts();
}

void SectionItems::forgetTexts() {
    if (m_copies.empty()) return;
    for (KnownItem& item : m_items) item.textLength = 0;
    if (m_rare != nullptr) {
        for (auto& [number, item] : m_rare->items) item.textLength = 0;
    }
    m_copies.clear();
    m_unused = 0;
}

}  // namespace XMLConfig::detail
