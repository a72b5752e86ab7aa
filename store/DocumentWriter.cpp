#include "store/DocumentWriter.h"

#include "platform/Text.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

constexpr int sectionLevel = 1;  // down to this level of a document text is no value, so white space alone is layout
constexpr int noLevel = -1;
constexpr std::size_t pieceSize = 64 * 1024;

enum class Content { Empty, Layout, Verbatim };

bool isText(const DOMNode& node) {
    return node.getNodeType() == DOMNode::TEXT_NODE || node.getNodeType() == DOMNode::CDATA_SECTION_NODE;
}

class Writer {
public:
    /// Without a sink the text is kept until it is taken.
    Writer(bool isXml11, int lastLayoutLevel, const ByteSink* sink = nullptr)
        : m_isXml11(isXml11), m_lastLayoutLevel(lastLayoutLevel), m_sink(sink) {}

    void writeLine(const DOMNode& node, int level) {
        m_out.append(static_cast<std::size_t>(level) * 2, ' ');
        writeNode(node, level, false);
        m_out += '\n';
    }

    void writeNode(const DOMNode& node, int level, bool isInside) {
        switch (node.getNodeType()) {
            case DOMNode::ELEMENT_NODE:
                return writeElement(static_cast<const DOMElement&>(node), level, isInside);
            case DOMNode::TEXT_NODE:
                return escape(view(node.getNodeValue()), false);
            case DOMNode::CDATA_SECTION_NODE:
                return wrap("<![CDATA[", node.getNodeValue(), "]]>");
            case DOMNode::COMMENT_NODE:
                return wrap("<!--", node.getNodeValue(), "-->");
            case DOMNode::PROCESSING_INSTRUCTION_NODE:
                return writeInstruction(node);
            default:
                return;
        }
    }

    void append(const char* text) { m_out += text; }
    std::string take() { return std::move(m_out); }
    void passOn() {
        (*m_sink)(m_out);
        m_out.clear();
    }

private:
    void writeElement(const DOMElement& element, int level, bool isInside) {
        const std::u16string_view name = view(element.getNodeName());
        m_out += '<';
        appendUtf8(m_out, name);
        writeAttributes(element);
        const Content content = isInside ? contentInside(element) : contentOf(element, level);
        if (content == Content::Empty) {
            m_out += "/>";
            return;
        }
        m_out += '>';
        if (content == Content::Layout) {
            m_out += '\n';
            for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
                if (!isText(*child)) writeLine(*child, level + 1);
            }
            m_out.append(static_cast<std::size_t>(level) * 2, ' ');
        } else {
            for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
                writeNode(*child, level + 1, true);
            }
        }
        m_out += "</";
        appendUtf8(m_out, name);
        m_out += '>';
        if (m_sink != nullptr && m_out.size() >= pieceSize) passOn();
    }

    static Content contentInside(const DOMElement& element) {
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            if (!isText(*child) || !view(child->getNodeValue()).empty()) return Content::Verbatim;
        }
        return Content::Empty;
    }

    Content contentOf(const DOMElement& element, int level) const {
        bool hasOthers = false;
        bool hasBlanks = false;
        for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
            if (!isText(*child)) {
                hasOthers = true;
            } else if (child->getNodeType() == DOMNode::CDATA_SECTION_NODE || !isLayout(view(child->getNodeValue()))) {
                return Content::Verbatim;
            } else {
                hasBlanks = hasBlanks || !view(child->getNodeValue()).empty();
            }
        }
        if (hasOthers) return Content::Layout;
        return hasBlanks && level > m_lastLayoutLevel ? Content::Verbatim : Content::Empty;
    }

    void writeAttributes(const DOMElement& element) {
        const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
        const XMLSize_t count = attributes->getLength();
        for (XMLSize_t i = 0; i < count; ++i) {
            const DOMNode* const attribute = attributes->item(i);
            m_out += ' ';
            appendUtf8(m_out, view(attribute->getNodeName()));
            m_out += "=\"";
            escape(view(attribute->getNodeValue()), true);
            m_out += '"';
        }
    }

    void writeInstruction(const DOMNode& node) {
        m_out += "<?";
        appendUtf8(m_out, view(node.getNodeName()));
        const std::u16string_view data = view(node.getNodeValue());
        if (!data.empty()) m_out += ' ';
        appendUtf8(m_out, data);
        m_out += "?>";
    }

    void wrap(const char* begin, const XMLCh* text, const char* end) {
        m_out += begin;
        appendUtf8(m_out, view(text));
        m_out += end;
    }

    void escape(std::u16string_view text, bool isAttribute) {
        std::size_t plain = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char16_t c = text[i];
            if (c > u'>' && c < 0x7F) continue;
            const char* const named = nameFor(c, isAttribute);
            if (named == nullptr && !needsNumber(c, isAttribute)) continue;
            appendUtf8(m_out, text.substr(plain, i - plain));
            plain = i + 1;
            if (named != nullptr) {
                m_out += named;
            } else {
                writeReference(c);
            }
        }
        appendUtf8(m_out, text.substr(plain));
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
        m_out += "&#x";
        bool isStarted = false;
        for (int shift = 12; shift >= 0; shift -= 4) {
            const auto digit = static_cast<std::size_t>((c >> shift) & 0xF);
            isStarted = isStarted || digit != 0;
            if (isStarted) m_out += digits[digit];
        }
        m_out += ';';
    }

    bool m_isXml11;
    int m_lastLayoutLevel;
    const ByteSink* m_sink;
    std::string m_out;
};

}  // namespace

bool isLayout(std::u16string_view text) { return text.find_first_not_of(u" \t\n") == std::u16string_view::npos; }

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
