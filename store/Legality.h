#pragma once

#include <string>

#include "store/Document.h"

/// What is refused before anything is changed, so that a document that has been written can always be read again.
namespace XMLConfig::detail {

/// "section "Name" [ID], key "Key"" for messages.
std::wstring describe(const ItemAddress& address);

/// Throws CorvaneException for a value or a part of the address with a character that XML 1.0 cannot hold; the message
/// begins with the prefix and names the section, the key, the character's number and its place.
void refuseWhatXmlCannotHold(const wchar_t* prefix, const ItemAddress& address, const std::wstring& value);
/// Throws likewise for a section's new identifier.
void refuseIdentifier(const wchar_t* prefix, const std::wstring& sectionName, const std::wstring& id);
/// Throws CorvaneException where the item, with `levelsInside` levels in it, would lie deeper than can be read again.
void refuseDeepNesting(const wchar_t* prefix, const ItemAddress& address, int levelsInside);
/// Throws CorvaneException where the item, with `inside` namespaces declared in it, would have more of them around one
/// element than can be read again. `around` is the innermost element there is around what will be stored.
void refuseManyNamespaces(const wchar_t* prefix, const ItemAddress& address, const xercesc::DOMElement& around, int inside);

/// Throws CorvaneException for a comment's text that would end the comment early, or that would be read as another text:
/// "--", "-" at the end, and control characters other than tabs and line feeds.
void refuseComment(const wchar_t* prefix, const std::wstring& text);

}  // namespace XMLConfig::detail
