#include "store/Together.h"

#include "store/ConfigInfo.h"
#include "store/Document.h"

namespace XMLConfig::detail {

Together::Together(ConfigInfo& document) noexcept
    : m_document(document), m_wasDirty(document.isDirty()), m_length(Document::of(document).m_journal.length()) {
    Document::of(document).m_journal.open();
}

Together::~Together() {
    Document& document = Document::of(m_document);
    document.m_journal.close();
    document.shedWaste();
}

void Together::undo() noexcept {
    Document& document = Document::of(m_document);
    document.m_journal.takeBack(m_length, document.m_tree);
    document.m_index.reset(document.root());
    m_document.setDirty(m_wasDirty);
}

}  // namespace XMLConfig::detail
