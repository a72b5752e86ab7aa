#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "store/XmlLibrary.h"

/// Parsing with limits and places. No other file is opened and no network reached, whatever the text asks for.
namespace XMLConfig::detail {

/// How deep elements may be nested, the root counted.
inline constexpr int maximumDepth = 1000;

/// Text that is refused, and where.
class ParseFailure : public std::runtime_error {
public:
    ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason);
    /// "line L, column C: reason"
    [[nodiscard]] const std::wstring& message() const { return m_message; }

private:
    std::wstring m_message;
};

struct ParsedDocument {
    DocumentPointer document;  ///< has a document element
    int depth = 0;             ///< levels of nested elements
};

/// Parses a file as it is read. Throws ParseFailure for text that is not well-formed, holds a document type or is nested
/// too deeply, and FileError when reading fails.
ParsedDocument parseFile(const std::wstring& path);
/// Parses elements given as UTF-8, one after the other: making a parser costs more than most elements.
class FragmentParser {
public:
    FragmentParser();
    ~FragmentParser();
    FragmentParser(const FragmentParser&) = delete;
    FragmentParser& operator=(const FragmentParser&) = delete;

    /// Throws ParseFailure likewise; the parser should be thrown away then.
    ParsedDocument parse(const std::string& text);

private:
    struct Parser;
    std::unique_ptr<Parser> m_parser;
};

/// Parses one element given as UTF-8. Throws ParseFailure likewise.
ParsedDocument parseFragment(const std::string& text);

}  // namespace XMLConfig::detail
