#include "store/XmlFragment.h"

#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/DocumentParser.h"
#include "store/DocumentWriter.h"
#include "store/SectionIndex.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

namespace {

constexpr const wchar_t* prefix = L"Error XmlFragment: ";

DocumentPointer parsed(const std::wstring& xml) {
    startXmlLibrary();
    try {
        return parseElement(toUtf8(xml)).document;
    } catch (const ParseFailure& failure) {
        throw CorvaneException(prefix + std::wstring(L" XML message is: ") + failure.message());
    }
}

}  // namespace

struct XmlFragment::Tree {
    DocumentPointer document;
    [[nodiscard]] xercesc::DOMElement& element() const { return *document->getDocumentElement(); }
};

XmlFragment::XmlFragment(const std::wstring& xml) : m_tree(std::make_unique<Tree>(Tree{parsed(xml)})) {}

XmlFragment::~XmlFragment() = default;

std::optional<std::wstring> XmlFragment::attribute(const std::wstring& name) const {
    const xercesc::DOMAttr* const found = m_tree->element().getAttributeNode(xmlText(toUtf16(name)));
    return found == nullptr ? std::nullopt : std::optional(fromUtf16(view(found->getValue())));
}

void XmlFragment::setAttribute(const std::wstring& name, const std::wstring& value) {
    reporting(prefix, [&] { m_tree->element().setAttribute(xmlText(toUtf16(name)), xmlText(toUtf16(value))); });
}

bool XmlFragment::hasChild(const std::wstring& name) const {
    return childNamed(&m_tree->element(), toUtf16(name)) != nullptr;
}

bool XmlFragment::replaceChild(const std::wstring& name, const std::wstring& xml) {
    xercesc::DOMElement* const child = childNamed(&m_tree->element(), toUtf16(name));
    if (child == nullptr) return false;
    const DocumentPointer other = parsed(xml);
    reporting(prefix, [&] {
        xercesc::DOMNode* const imported = m_tree->document->importNode(other->getDocumentElement(), true);
        m_tree->element().replaceChild(imported, child)->release();
    });
    return true;
}

std::wstring XmlFragment::text() const { return writeElement(m_tree->element()); }

}  // namespace XMLConfig::detail
