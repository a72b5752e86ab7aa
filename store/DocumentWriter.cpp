#include "store/DocumentWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <vector>

#include "store/Attributes.h"
#include "store/MarkupBuffer.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

constexpr int sectionLevel = 1;  // down to this level of a document text is no value, so white space alone is indentation
constexpr int noLevel = -1;
constexpr std::size_t pieceSize = 64 * 1024;

/// How an element writes what it holds.
enum class Form { Empty, Indented, Verbatim };

bool isTextNode(DOMNode::NodeType type) { return type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE; }

class Writer {
public:
    /// A writer without a sink keeps the text until its caller takes it.
    Writer(bool isXml11, int lastIndentedLevel, const ByteSink* sink = nullptr)
        : m_lastIndentedLevel(lastIndentedLevel), m_sink(sink), m_out(isXml11), m_names(sink == nullptr ? 16 : 256) {}

    void writeLine(const DOMNode& node, const NodeLook& look, int level) {
        writeNode(node, look, level, false, blanksOf(level));
        m_out.append('\n');
    }

    void writeNode(const DOMNode& node, const NodeLook& look, int level, bool isInside, Blanks before) {
        if (look.type == DOMNode::ELEMENT_NODE)
            return writeElement(static_cast<const DOMElement&>(node), level, isInside, before);
        m_out.append(before);
        switch (look.type) {
            case DOMNode::TEXT_NODE:
                return m_out.appendEscaped(look.text, false);
            case DOMNode::CDATA_SECTION_NODE:
                return m_out.appendBetween("<![CDATA[", look.text, "]]>");
            case DOMNode::COMMENT_NODE:
                return m_out.appendBetween("<!--", look.text, "-->");
            case DOMNode::PROCESSING_INSTRUCTION_NODE:
                return writeInstruction(node);
            default:
                return;
        }
    }

    void append(std::string_view text) { m_out.append(text); }
    [[nodiscard]] std::string take() const { return std::string(m_out.text()); }
    void passOn() {
        (*m_sink)(m_out.text());
        m_out.clear();
    }

private:
    static Blanks blanksOf(int level) { return {static_cast<std::size_t>(level) * 2}; }

    void writeElement(const DOMElement& element, int level, bool isInside, Blanks before) {
        const XMLCh* const name = element.getNodeName();
        writeTag(before, "<", name, "");
        if (element.hasAttributes()) writeAttributes(element);
        const Form form = writeContent(element, level, isInside);
        if (form == Form::Empty) return m_out.append("/>");
        writeTag(form == Form::Indented ? blanksOf(level) : Blanks{0}, "</", name, ">");
        if (m_sink != nullptr && m_out.size() >= pieceSize) passOn();
    }

    template <std::size_t beginSize, std::size_t endSize>
    void writeTag(Blanks before, const char (&begin)[beginSize], const XMLCh* name, const char (&end)[endSize]) {
        if (const ShortText<48>* const known = knownName(name)) return m_out.append(before, begin, *known, end);
        m_out.append(before, begin);
        m_out.appendText(view(name));
        m_out.append(end);
    }

    /// Null for a name that is long or not plain. A document keeps each name once, so that its place tells one from another.
    const ShortText<48>* knownName(const XMLCh* name) {
        KnownName& known = m_names[std::hash<const XMLCh*>()(name) / sizeof(void*) % m_names.size()];
        if (known.name == name) return &known.text;
        const std::u16string_view text = view(name);
        known.name = nullptr;
        if (text.size() > known.text.bytes.size() || !copyPlain(text, known.text.bytes.data())) return nullptr;
        known.name = name;
        known.text.size = text.size();
        return &known.text;
    }

    /// Writes nothing where the element is to be written as an empty one.
    Form writeContent(const DOMElement& element, int level, bool isInside) {
        const DOMNode* const first = firstNodeIn(element);
        if (first == nullptr) return Form::Empty;
        const NodeLook look = lookAt(*first);
        if (look.type == DOMNode::TEXT_NODE && look.next == nullptr) return writeOneText(look.text, level, isInside);
        const Form form = isInside ? formInside(first) : formOf(first, level);
        if (form == Form::Indented) writeLines(first, level);
        if (form == Form::Verbatim) writeInside(first, level);
        return form;
    }

    Form writeOneText(std::u16string_view text, int level, bool isInside) {
        const bool isValue = isInside || level > m_lastIndentedLevel || !isIndentation(text);
        if (!isValue || text.empty()) return Form::Empty;
        m_out.append('>');
        m_out.appendEscaped(text, false);
        return Form::Verbatim;
    }

    void writeLines(const DOMNode* child, int level) {
        m_out.append(">\n");
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            if (!isTextNode(look.type)) writeLine(*child, look, level + 1);
            child = look.next;
        }
    }

    void writeInside(const DOMNode* child, int level) {
        m_out.append('>');
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            writeNode(*child, look, level + 1, true, Blanks{0});
            child = look.next;
        }
    }

    static Form formInside(const DOMNode* child) {
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            if (!isTextNode(look.type) || !look.text.empty()) return Form::Verbatim;
            child = look.next;
        }
        return Form::Empty;
    }

    Form formOf(const DOMNode* child, int level) const {
        bool hasOthers = false;
        bool hasBlanks = false;
        while (child != nullptr) {
            const NodeLook look = lookAt(*child);
            child = look.next;
            if (look.type == DOMNode::CDATA_SECTION_NODE) return Form::Verbatim;
            if (look.type != DOMNode::TEXT_NODE) {
                hasOthers = true;
                continue;
            }
            if (!isIndentation(look.text)) return Form::Verbatim;
            hasBlanks = hasBlanks || !look.text.empty();
        }
        if (hasOthers) return Form::Indented;
        return hasBlanks && level > m_lastIndentedLevel ? Form::Verbatim : Form::Empty;
    }

    void writeAttributes(const DOMElement& element) {
        const xercesc::DOMNamedNodeMap* const attributes = element.getAttributes();
        const XMLSize_t count = attributes->getLength();
        for (XMLSize_t i = 0; i < count; ++i) {
            const DOMNode* const attribute = attributes->item(i);
            writeTag(Blanks{1}, "", attribute->getNodeName(), "=\"");
            m_out.appendEscaped(valueOf(*attribute), true);
            m_out.append('"');
        }
    }

    void writeInstruction(const DOMNode& node) {
        m_out.append("<?");
        m_out.appendText(view(node.getNodeName()));
        const std::u16string_view data = view(node.getNodeValue());
        if (!data.empty()) m_out.append(' ');
        m_out.appendText(data);
        m_out.append("?>");
    }

    struct KnownName {
        const XMLCh* name;
        ShortText<48> text;
    };

    int m_lastIndentedLevel;
    const ByteSink* m_sink;
    MarkupBuffer m_out;
    std::vector<KnownName> m_names;  // by a hash; an element alone needs few
};

}  // namespace

bool isIndentation(std::u16string_view text) {
    constexpr std::u16string_view usual = u"\n                                ";
    if (text.size() <= usual.size() && std::memcmp(text.data(), usual.data(), text.size() * sizeof(char16_t)) == 0)
        return true;
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c == u' ' || c == u'\n' || c == u'\t'; });
}

void writeDocument(const xercesc::DOMDocument& document, const ByteSink& sink) {
    const bool isXml11 = view(document.getXmlVersion()) == u"1.1";
    Writer writer(isXml11, sectionLevel, &sink);
    writer.append(isXml11 ? "<?xml version=\"1.1\"" : "<?xml version=\"1.0\"");
    writer.append(" encoding=\"UTF-8\" standalone=\"no\" ?>\n");
    for (const DOMNode* node = document.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
        writer.writeLine(*node, lookAt(*node), 0);
    }
    writer.passOn();
}

std::string writeElement(const xercesc::DOMElement& element) {
    Writer writer(view(element.getOwnerDocument()->getXmlVersion()) == u"1.1", noLevel);
    writer.writeNode(element, lookAt(element), 0, false, Blanks{0});
    return writer.take();
}

}  // namespace XMLConfig::detail
