#pragma once

#include <string>

#include "platform/Files.h"
#include "store/XmlLibrary.h"

/// XML text of a document or an element, as UTF-8 with line feeds and two blanks a level.
///
/// White space between elements is indentation and made anew; everything else is kept to the byte: text, mixed content
/// (whose inside is never indented), comments, processing instructions, CDATA sections, attributes. What is written reads
/// back as the same tree and is written the same way again. The XML library's own serializer adds white space to comments
/// and mixed content at every save and cuts the output at what it cannot write, so it is not used.
namespace XMLConfig::detail {

/// With the XML declaration and a final line feed. The sink gets it in pieces of up to 64 KiB, a larger value in one piece;
/// what the sink throws passes.
void writeDocument(const xercesc::DOMDocument& document, const ByteSink& sink);
/// The element alone, without a declaration and without a final line feed.
std::wstring writeElement(const xercesc::DOMElement& element);

/// Whether the text is made of blanks, tabs and line feeds only (or empty).
bool isIndentation(std::u16string_view text);

}  // namespace XMLConfig::detail
