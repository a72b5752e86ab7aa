#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/PlacedElements.h"

namespace XMLConfig::detail {

/// Finds the elements of a text that is known to be well-formed, because a document was loaded from it: nothing is checked,
/// so that it takes a small part of the time of a load. The text stays the caller's.
class TagScanner : public PlacedElements {
public:
    /// Nothing where the text is written in a way that this does not read: in another encoding than UTF-8, with carriage
    /// returns alone for the ends of lines, or with references or line ends in an ID.
    static std::unique_ptr<TagScanner> scan(std::string_view text);

    [[nodiscard]] std::size_t firstChild(std::size_t element) const override { return m_tags[element].firstChild; }
    [[nodiscard]] std::size_t next(std::size_t element) const override { return m_tags[element].next; }
    [[nodiscard]] std::u16string identity(std::size_t element) const override;
    [[nodiscard]] bool isLike(std::size_t element, const xercesc::DOMElement& other) const override;
    [[nodiscard]] FilePlace place(std::size_t element) const override;

private:
    struct Tag {
        std::size_t begin = 0;  ///< where the "<" stands
        std::size_t firstChild = 0;
        std::size_t next = 0;
    };
    struct Open {
        std::size_t element = 0;
        std::size_t lastChild = 0;
    };

    explicit TagScanner(std::string_view text) : m_text(text) {}
    bool run();
    bool readMarkup(std::size_t& at);
    bool readStartTag(std::size_t& at);
    void add(std::size_t begin, bool isEmpty);
    bool skip(std::size_t& at, char end) const;
    [[nodiscard]] std::string_view nameOf(std::size_t element) const;
    [[nodiscard]] std::optional<std::string_view> idOf(std::size_t element) const;
    void countLines();

    std::string_view m_text;
    std::vector<Tag> m_tags;
    std::vector<Open> m_open;            // from the root to where the scan is
    std::vector<std::uint64_t> m_lines;  // line ends before each block of the text
};

}  // namespace XMLConfig::detail
