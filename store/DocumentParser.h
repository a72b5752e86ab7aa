#pragma once

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <string>
#include <unordered_map>
#include <vector>
#include <xercesc/dom/DOMComment.hpp>

#include "store/FilePlaces.h"
#include "store/XmlLibrary.h"

/// Parsing with limits and places. No other file is opened and no network reached, whatever the text asks for.
namespace XMLConfig::detail {

/// How deep elements may be nested, the root counted.
inline constexpr int maximumDepth = 1000;
/// How many attributes an element may have, and how many namespaces may be declared in it and the elements around it. They
/// are limited because the XML library needs longer for each one the more of them there are.
inline constexpr int maximumAttributes = 1000;
inline constexpr int maximumNamespaces = 1000;
/// How many different names the elements of a file may have. The library keeps a record for each, and so does the index of
/// the sections.
inline constexpr unsigned int maximumNames = 1000000;

/// Where the elements of a text begin. They come in so great a number that each one's own piece of memory would cost more
/// than all the rest.
struct ElementPlaces {
    std::pmr::monotonic_buffer_resource memory;
    std::pmr::unordered_map<const xercesc::DOMElement*, FilePlace> byElement{&memory};
    std::uint64_t content = 0;  ///< of the text
};

/// What a text was parsed to.
struct ParsedTree {
    DocumentPointer document = {};                          ///< has a document element
    std::vector<const xercesc::DOMComment*> comments = {};  ///< in that element, in document order
    std::size_t names = 0;                                  ///< how many elements and attributes it has
    std::uint64_t content = 0;                              ///< a hash of the text's bytes
    int levels = 0;                                         ///< of nested elements
    int namespaces = 0;                                     ///< declared at most in one element and those around it
    std::shared_ptr<const ElementPlaces> places = {};       ///< where they were to be noted, else null
};

/// Parses a file as it is read. Throws ParseFailure for text that is not well-formed, holds a document type or goes beyond
/// these limits, and FileError when reading fails.
ParsedTree parseFile(const std::wstring& path);
/// The same, which also notes the places of all elements.
ParsedTree parseFileWithPlaces(const std::wstring& path);
/// Parses a file's bytes, by the same rules.
ParsedTree parseBytes(const std::string& bytes);
/// Parses one element given as UTF-8. Throws ParseFailure for anything else, and for XML 1.1.
ParsedTree parseElement(const std::string& text);

}  // namespace XMLConfig::detail
