#include "store/DocumentWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Text.h"
#include "store/ByteBuffer.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

constexpr int sectionLevel = 1;  // down to this level of a document text is no value, so white space alone is indentation
constexpr int noLevel = -1;
constexpr std::size_t pieceSize = 64 * 1024;

/// How an element writes what it holds.
enum class Form { Empty, Indented, Verbatim };

bool isText(const DOMNode& node) {
    return node.getNodeType() == DOMNode::TEXT_NODE || node.getNodeType() == DOMNode::CDATA_SECTION_NODE;
}

/// The characters of a text or a comment; the XML library knows their number.
std::u16string_view dataOf(const DOMNode& node) {
    const auto& data = static_cast<const xercesc::DOMCharacterData&>(node);
    return {reinterpret_cast<const char16_t*>(data.getData()), data.getLength()};
}

/// The library asks an attribute for its class before it gives the value that its one text holds.
std::u16string_view valueOf(const DOMNode& attribute) {
    const DOMNode* const first = attribute.getFirstChild();
    const bool isOneText = first != nullptr && isText(*first) && first->getNextSibling() == nullptr;
    return isOneText ? dataOf(*first) : view(attribute.getNodeValue());
}

/// Other than 0 for a character that must be written in another way in some places. It has no branch, so that the
/// compiler lets one instruction examine several characters.
constexpr unsigned special(std::uint16_t c) {
    return static_cast<unsigned>(static_cast<std::uint16_t>(c - 0x20U) >= 0x5F) | static_cast<unsigned>(c == '&') |
           static_cast<unsigned>(c == '<') | static_cast<unsigned>(c == '>') | static_cast<unsigned>(c == '"');
}

class Writer {
public:
    /// A writer without a sink keeps the text until its caller takes it.
    Writer(bool isXml11, int lastIndentedLevel, const ByteSink* sink = nullptr)
        : m_isXml11(isXml11), m_lastIndentedLevel(lastIndentedLevel), m_sink(sink), m_names(sink == nullptr ? 16 : 509) {}

    void writeLine(const DOMNode& node, int level) {
        indent(level);
        writeNode(node, level, false);
        m_out.append('\n');
    }

    void writeNode(const DOMNode& node, int level, bool isInside) {
        switch (node.getNodeType()) {
            case DOMNode::ELEMENT_NODE:
                return writeElement(static_cast<const DOMElement&>(node), level, isInside);
            case DOMNode::TEXT_NODE:
                return escape(dataOf(node), false);
            case DOMNode::CDATA_SECTION_NODE:
                return wrap("<![CDATA[", dataOf(node), "]]>");
            case DOMNode::COMMENT_NODE:
                return wrap("<!--", dataOf(node), "-->");
            case DOMNode::PROCESSING_INSTRUCTION_NODE:
                return writeInstruction(node);
            default:
                return;
        }
    }

    void append(const char* text) { m_out.append(text); }
    [[nodiscard]] std::string take() const { return std::string(m_out.text()); }
    void passOn() {
        (*m_sink)(m_out.text());
        m_out.clear();
    }

private:
    void indent(int level) { m_out.append(static_cast<std::size_t>(level) * 2, ' '); }

    void writeElement(const DOMElement& element, int level, bool isInside) {
        m_out.append('<');
        writeName(element);
        writeAttributes(element);
        const Form form = isInside ? formInside(element) : formOf(element, level);
        if (form == Form::Empty) return m_out.append("/>");
        m_out.append('>');
        if (form == Form::Indented) {
            writeLines(element, level);
        } else {
            writeInside(element, level);
        }
        m_out.append("</");
        writeName(element);
        m_out.append('>');
        if (m_sink != nullptr && m_out.size() >= pieceSize) passOn();
    }

    /// A document keeps each name once, so that its place tells one from another.
    void writeName(const DOMElement& element) {
        const XMLCh* const name = element.getNodeName();
        KnownName& known = m_names[std::hash<const XMLCh*>()(name) / sizeof(void*) % m_names.size()];
        if (known.name == name) return m_out.append(known.bytes);
        const std::size_t begin = m_out.size();
        appendUtf8(view(name));
        known = {name, std::string(m_out.text().substr(begin))};
    }

    void writeLines(const DOMElement& element, int level) {
        m_out.append('\n');
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            if (!isText(*child)) writeLine(*child, level + 1);
        }
        indent(level);
    }

    void writeInside(const DOMElement& element, int level) {
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            writeNode(*child, level + 1, true);
        }
    }

    static Form formInside(const DOMElement& element) {
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            if (!isText(*child) || !dataOf(*child).empty()) return Form::Verbatim;
        }
        return Form::Empty;
    }

    Form formOf(const DOMElement& element, int level) const {
        bool hasOthers = false;
        bool hasBlanks = false;
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            const auto type = child->getNodeType();
            if (type == DOMNode::CDATA_SECTION_NODE) return Form::Verbatim;
            if (type != DOMNode::TEXT_NODE) {
                hasOthers = true;
                continue;
            }
            const std::u16string_view text = dataOf(*child);
            if (!isIndentation(text)) return Form::Verbatim;
            hasBlanks = hasBlanks || !text.empty();
        }
        if (hasOthers) return Form::Indented;
        return hasBlanks && level > m_lastIndentedLevel ? Form::Verbatim : Form::Empty;
    }

    void writeAttributes(const DOMElement& element) {
        const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
        const XMLSize_t count = attributes->getLength();
        for (XMLSize_t i = 0; i < count; ++i) {
            const DOMNode* const attribute = attributes->item(i);
            m_out.append(' ');
            appendUtf8(view(attribute->getNodeName()));
            m_out.append("=\"");
            escape(valueOf(*attribute), true);
            m_out.append('"');
        }
    }

    void writeInstruction(const DOMNode& node) {
        m_out.append("<?");
        appendUtf8(view(node.getNodeName()));
        const std::u16string_view data = view(node.getNodeValue());
        if (!data.empty()) m_out.append(' ');
        appendUtf8(data);
        m_out.append("?>");
    }

    void wrap(const char* begin, std::u16string_view text, const char* end) {
        m_out.append(begin);
        appendUtf8(text);
        m_out.append(end);
    }

    /// Most text is plain: it is copied and looked at in one pass. False, and nothing done, where it is not.
    bool appendPlain(std::u16string_view text) {
        char* const put = m_out.room(text.size());
        std::uint16_t others = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto c = static_cast<std::uint16_t>(text[i]);
            others = static_cast<std::uint16_t>(others | special(c));
            put[i] = static_cast<char>(c);
        }
        if (others != 0) return false;
        m_out.added(text.size());
        return true;
    }

    void appendUtf8(std::u16string_view text) {
        if (text.empty() || appendPlain(text)) return;
        std::string bytes;
        detail::appendUtf8(bytes, text);
        m_out.append(bytes);
    }

    void escape(std::u16string_view text, bool isAttribute) {
        if (appendPlain(text)) return;
        std::size_t plain = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char16_t c = text[i];
            if (c > u'>' && c < 0x7F) continue;
            const char* const named = nameFor(c, isAttribute);
            if (named == nullptr && !needsNumber(c, isAttribute)) continue;
            appendUtf8(text.substr(plain, i - plain));
            plain = i + 1;
            if (named != nullptr) {
                m_out.append(named);
            } else {
                writeReference(c);
            }
        }
        appendUtf8(text.substr(plain));
    }

    static const char* nameFor(char16_t c, bool isAttribute) {
        switch (c) {
            case u'&':
                return "&amp;";
            case u'<':
                return "&lt;";
            case u'>':
                return "&gt;";
            case u'"':
                return isAttribute ? "&quot;" : nullptr;
            default:
                return nullptr;
        }
    }

    // What the parser would turn into something else, and what XML 1.1 takes as references only.
    bool needsNumber(char16_t c, bool isAttribute) const {
        if (c == u'\r') return true;
        if (c == u'\t' || c == u'\n') return isAttribute;
        return m_isXml11 && (c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028);
    }

    void writeReference(char16_t c) {
        constexpr char digits[] = "0123456789ABCDEF";
        m_out.append("&#x");
        bool isStarted = false;
        for (int shift = 12; shift >= 0; shift -= 4) {
            const auto digit = static_cast<std::size_t>((c >> shift) & 0xF);
            isStarted = isStarted || digit != 0;
            if (isStarted) m_out.append(digits[digit]);
        }
        m_out.append(';');
    }

    struct KnownName {
        const XMLCh* name = nullptr;
        std::string bytes;
    };

    bool m_isXml11;
    int m_lastIndentedLevel;
    const ByteSink* m_sink;
    ByteBuffer m_out;
    std::vector<KnownName> m_names;  // by a hash; an element alone needs few
};

}  // namespace

bool isIndentation(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c == u' ' || c == u'\n' || c == u'\t'; });
}

void writeDocument(const xercesc::DOMDocument& document, const ByteSink& sink) {
    const bool isXml11 = view(document.getXmlVersion()) == u"1.1";
    Writer writer(isXml11, sectionLevel, &sink);
    writer.append(isXml11 ? "<?xml version=\"1.1\"" : "<?xml version=\"1.0\"");
    writer.append(" encoding=\"UTF-8\" standalone=\"no\" ?>\n");
    for (const DOMNode* node = document.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
        writer.writeLine(*node, 0);
    }
    writer.passOn();
}

std::string writeElement(const xercesc::DOMElement& element) {
    Writer writer(view(element.getOwnerDocument()->getXmlVersion()) == u"1.1", noLevel);
    writer.writeNode(element, 0, false);
    return writer.take();
}

}  // namespace XMLConfig::detail
