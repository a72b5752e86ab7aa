#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>
#include <xercesc/dom/DOMComment.hpp>

#include "store/XmlLibrary.h"

/// Parsing with limits and places. No other file is opened and no network reached, whatever the text asks for.
namespace XMLConfig::detail {

struct ElementPlaces;

/// What a text was parsed to.
struct ParsedTree {
    DocumentPointer document = {};                          ///< has a document element
    std::vector<const xercesc::DOMComment*> comments = {};  ///< in that element, in document order
    std::size_t names = 0;                                  ///< how many elements and attributes it has
    std::uint64_t contentHash = 0;                          ///< of the text's bytes
    int levels = 0;                                         ///< of nested elements
    int namespaces = 0;                                     ///< declared at most in one element and those around it
    std::shared_ptr<const ElementPlaces> places = {};       ///< where they were to be noted, else null
};

/// Parses a file as it is read. Throws ParseFailure for text that is not well-formed, holds a document type or goes beyond
/// the limits in Limits.h, and FileError when reading fails.
ParsedTree parseFile(const std::wstring& path);
/// The same, which also notes the places of all elements.
ParsedTree parseFileWithPlaces(const std::wstring& path);
/// Parses a file's bytes, by the same rules.
ParsedTree parseBytes(const std::string& bytes);
/// Parses one element given as UTF-8. Throws ParseFailure for anything else, and for XML 1.1.
ParsedTree parseElement(const std::string& text);

}  // namespace XMLConfig::detail
