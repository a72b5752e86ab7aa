#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ElementView.h"

class ConfigInfo;

/// The comments of a document, which every save keeps. `commentsOf` in store/ElementView.h lists all of them.
namespace XMLConfig {

/// The comments inside one element, at any depth; empty for a view of no element.
XMLCONFIG_API std::vector<CommentView> commentsIn(const ElementView& around);

/// Writes a comment at the end of each of those elements and sets the document dirty. Each is the document's root or a
/// section. Throws CorvaneException ("Error addComment: ...") for any other element, and for a text that a comment cannot
/// hold: "--", "-" at the end, and control characters other than tabs and line feeds. Where anything is thrown, no comment
/// was written. All views of the document are invalid afterwards.
XMLCONFIG_API void addComment(ConfigInfo& document, const std::vector<ElementView>& around, const std::wstring& text);
/// Removes the comments of exactly that text that stand directly in the element, the root or a section, and returns how many
/// there were. Sets the document dirty where there was one. Throws CorvaneException ("Error removeComment: ...") for any
/// other element. All views of the document are invalid afterwards.
XMLCONFIG_API std::size_t removeComment(ConfigInfo& document, const ElementView& around, const std::wstring& text);

}  // namespace XMLConfig
