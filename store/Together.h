#pragma once

#include <cstddef>
#include <new>

class ConfigInfo;

namespace XMLConfig::detail {

/// Changes of a document that are made all together or not at all. While one exists, what is done to the document by any
/// operation can be undone; one may exist inside of another.
class Together {
public:
    /// Borrows the document.
    explicit Together(ConfigInfo& document) noexcept;
    /// Ends the group. Changes that undo() has not taken back stay.
    ~Together();
    Together(const Together&) = delete;
    Together& operator=(const Together&) = delete;

    /// The document, its dirty flag too, is as it was when this was made. Needs no memory. An observer is not told.
    void undo() noexcept;

private:
    ConfigInfo& m_document;
    const bool m_wasDirty;
    const std::size_t m_length;  // of the journal
};

/// Runs an operation that makes several changes; where memory runs out in it, none is made.
template <typename Operation>
void together(ConfigInfo& document, Operation&& operation) {
    Together changes(document);
    try {
        operation();
    } catch (const std::bad_alloc&) {
        changes.undo();
        throw;
    }
}

}  // namespace XMLConfig::detail
