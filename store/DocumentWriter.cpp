#include "store/DocumentWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>

#include "platform/Prefetch.h"
#include "platform/Text.h"
#include "store/NodeText.h"
#include "store/Pieces.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

constexpr int sectionLevel = 1;  // down to this level of a document text is no value, so white space alone is indentation
constexpr int noLevel = -1;
constexpr std::size_t documentPiece = 64 * 1024;
constexpr std::size_t elementPiece = 1024;

/// How an element writes what it holds.
enum class Form { Empty, Indented, Verbatim };

bool isTextNode(DOMNode::NodeType type) { return type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE; }

/// Empty for a character that no entity stands for.
std::u16string_view entityFor(char16_t character, bool isAttribute) {
    switch (character) {
        case u'&':
            return u"&amp;";
        case u'<':
            return u"&lt;";
        case u'>':
            return u"&gt;";
        case u'"':
            return isAttribute ? u"&quot;" : u"";
        default:
            return u"";
    }
}

std::u16string referenceTo(char16_t character) {
    std::u16string digits;
    for (unsigned rest = character; rest != 0; rest /= 16) digits.insert(digits.begin(), u"0123456789ABCDEF"[rest % 16]);
    return u"&#x" + digits + u';';
}

class Writer {
public:
    Writer(const xercesc::DOMDocument& document, int lastIndentedLevel, const ByteSink& sink, std::size_t pieceSize)
        : m_isXml11(view(document.getXmlVersion()) == u"1.1"),
          m_lastIndentedLevel(lastIndentedLevel),
          m_out(sink, pieceSize) {}

    void writeDeclaration() {
        m_out.append("<?xml version=\"1.", m_isXml11 ? "1" : "0", "\" encoding=\"UTF-8\" standalone=\"no\" ?>");
    }
    void writeLine(const DOMNode& node, const NodeLook& look, int level) {
        beginLine(level);
        writeNode(node, look, level, false);
    }
    void writeNode(const DOMNode& node, const NodeLook& look, int level, bool isInside) {
        switch (look.type) {
            case DOMNode::ELEMENT_NODE:
                return writeElement(static_cast<const DOMElement&>(node), level, isInside);
            case DOMNode::TEXT_NODE:
                return writeEscaped(look.text, false);
            case DOMNode::CDATA_SECTION_NODE:
                return writeBetween("<![CDATA[", look.text, "]]>");
            case DOMNode::COMMENT_NODE:
                return writeBetween("<!--", look.text, "-->");
            case DOMNode::PROCESSING_INSTRUCTION_NODE:
                return writeInstruction(node);
            default:
                return;
        }
    }
    void writeEnd(std::string_view text) {
        m_out.append(text);
        m_out.passOn();
    }

private:
    void beginLine(int level) {
        constexpr const char* usual = "\n                                               ";
        const std::size_t size = 1 + static_cast<std::size_t>(level) * 2;
        m_out.append(ShortText{usual, std::min(size, ShortText::most)});
        for (std::size_t i = ShortText::most; i < size; ++i) m_out.append(" ");
    }

    void writeElement(const DOMElement& element, int level, bool isInside) {
        const XMLCh* const name = element.getNodeName();
        writeTag("<", name, "");
        if (element.hasAttributes()) writeAttributes(element);
        const Form form = writeContent(element, level, isInside);
        if (form == Form::Empty) return m_out.append("/>");
        if (form == Form::Indented) beginLine(level);
        writeTag("</", name, ">");
    }

    void writeTag(std::string_view begin, const XMLCh* name, std::string_view end) {
        if (const std::optional<ShortText> known = knownName(name)) return m_out.append(begin, *known, end);
        writeBetween(begin, view(name), end);
    }

    /// Nothing for a name that is long or not plain. A document keeps each name once, so that its place tells one from
    /// another.
    std::optional<ShortText> knownName(const XMLCh* name) {
        const std::size_t place = std::hash<const XMLCh*>()(name) / sizeof(void*) % m_names.size();
        KnownName& known = m_knownNames[place];
        if (m_names[place] != name) {
            const std::u16string_view text = view(name);
            m_names[place] = nullptr;
            if (text.size() > ShortText::most || !copyPlain(text, known.bytes.data())) return std::nullopt;
            m_names[place] = name;
            known.size = text.size();
        }
        return ShortText{known.bytes.data(), known.size};
    }

    /// Writes nothing where the element is to be written as an empty one.
    Form writeContent(const DOMElement& element, int level, bool isInside) {
        const DOMNode* const first = element.getFirstChild();
        if (first == nullptr) return Form::Empty;
        const NodeLook look = lookAt(*first);
        if (look.type == DOMNode::TEXT_NODE && look.next == nullptr) return writeOneText(look.text, level, isInside);
        const Form form = formOf(first, level, isInside);
        if (form != Form::Empty) m_out.append(">");
        if (form == Form::Indented) writeLines(first, level);
        if (form == Form::Verbatim) writeInside(first, level);
        return form;
    }

    Form writeOneText(std::u16string_view text, int level, bool isInside) {
        const bool isValue = isInside || level > m_lastIndentedLevel || !isIndentation(text);
        if (!isValue || text.empty()) return Form::Empty;
        m_out.append(">");
        writeEscaped(text, false);
        return Form::Verbatim;
    }

    Form formOf(const DOMNode* child, int level, bool isInside) const {
        bool hasOthers = false;
        bool hasBlanks = false;
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            if (look.type == DOMNode::ELEMENT_NODE) prefetch(child, 4096, 512);  // what is written soon mostly lies there
            child = look.next;
            const bool isText = look.type == DOMNode::TEXT_NODE;
            if (look.text.empty() && (isText || (isInside && isTextNode(look.type)))) continue;
            if (isInside || look.type == DOMNode::CDATA_SECTION_NODE) return Form::Verbatim;
            if (isText && !isIndentation(look.text)) return Form::Verbatim;
            (isText ? hasBlanks : hasOthers) = true;
        }
        if (hasOthers) return Form::Indented;
        return hasBlanks && level > m_lastIndentedLevel ? Form::Verbatim : Form::Empty;
    }

    void writeLines(const DOMNode* child, int level) {
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            if (!isTextNode(look.type)) writeLine(*child, look, level + 1);
            child = look.next;
        }
    }

    void writeInside(const DOMNode* child, int level) {
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            writeNode(*child, look, level + 1, true);
            child = look.next;
        }
    }

    void writeAttributes(const DOMElement& element) {
        const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
        const XMLSize_t count = attributes->getLength();
        for (XMLSize_t i = 0; i < count; ++i) {
            const DOMNode* const attribute = attributes->item(i);
            writeTag(" ", attribute->getNodeName(), "=\"");
            writeEscaped(valueOf(*attribute), true);
            m_out.append("\"");
        }
    }

    void writeInstruction(const DOMNode& node) {
        const std::u16string_view data = view(node.getNodeValue());
        writeBetween("<?", view(node.getNodeName()), data.empty() ? "" : " ");
        writeBetween("", data, "?>");
    }

    void writeBetween(std::string_view begin, std::u16string_view text, std::string_view end) {
        std::string bytes;
        appendUtf8(bytes, text);
        m_out.append(begin, bytes, end);
    }

    void writeEscaped(std::u16string_view text, bool isAttribute) {
        if (m_out.appendPlain(text)) return;
        std::u16string escaped;
        for (const char16_t character : text) {
            const std::u16string_view entity = entityFor(character, isAttribute);
            if (!entity.empty()) escaped += entity;
            else if (needsNumber(character, isAttribute)) escaped += referenceTo(character);
            else escaped += character;
        }
        writeBetween("", escaped, "");
    }

    // What the parser would turn into something else, and what XML 1.1 takes as references only.
    [[nodiscard]] bool needsNumber(char16_t character, bool isAttribute) const {
        if (character == u'\r') return true;
        if (character == u'\t' || character == u'\n') return isAttribute;
        const bool isControl = character < 0x20 || (character >= 0x7F && character <= 0x9F);
        return m_isXml11 && (isControl || character == 0x2028);
    }

    struct KnownName {
        std::size_t size;
        std::array<char, ShortText::most> bytes;
    };

    bool m_isXml11;
    int m_lastIndentedLevel;
    Pieces m_out;
    std::array<const XMLCh*, 256> m_names{};  // by a hash
    std::array<KnownName, 256> m_knownNames;  // beside them
};

}  // namespace

bool isIndentation(std::u16string_view text) {
    constexpr std::u16string_view usual = u"\n                                ";
    if (text.size() <= usual.size() && std::memcmp(text.data(), usual.data(), text.size() * sizeof(char16_t)) == 0)
        return true;
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c == u' ' || c == u'\n' || c == u'\t'; });
}

void writeDocument(const xercesc::DOMDocument& document, const ByteSink& sink) {
    Writer writer(document, sectionLevel, sink, documentPiece);
    writer.writeDeclaration();
    for (const DOMNode* node = document.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
        writer.writeLine(*node, lookAt(*node), 0);
    }
    writer.writeEnd("\n");
}

std::wstring writeElement(const xercesc::DOMElement& element) {
    std::string text;
    const ByteSink sink = [&text](std::string_view piece) { text += piece; };
    Writer writer(*element.getOwnerDocument(), noLevel, sink, elementPiece);
    writer.writeNode(element, lookAt(element), 0, false);
    writer.writeEnd("");
    return fromUtf8(text);
}

}  // namespace XMLConfig::detail
