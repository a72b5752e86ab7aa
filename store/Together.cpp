#include "store/Together.h"

#include "store/ConfigInfo.h"
#include "store/Document.h"

namespace XMLConfig::detail {

std::size_t Document::beginTogether() noexcept {
    m_journal.open();
    return m_journal.length();
}

void Document::endTogether() noexcept {
    m_journal.close();
    shedWaste();
}

void Document::undo(const std::size_t length) noexcept {
    m_journal.takeBack(length, m_tree);
    m_index.reset(root());
}

Together::Together(ConfigInfo& document) noexcept
    : m_document(document), m_wasDirty(document.isDirty()), m_length(Document::of(document).beginTogether()) {}

Together::~Together() { Document::of(m_document).endTogether(); }

void Together::undo() noexcept {
    Document::of(m_document).undo(m_length);
    m_document.setDirty(m_wasDirty);
}

}  // namespace XMLConfig::detail
