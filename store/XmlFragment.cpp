#include "store/XmlFragment.h"

#include "platform/Text.h"
#include "store/DocumentParser.h"
#include "store/DocumentWriter.h"
#include "store/ElementAccess.h"
#include "store/Tree.h"

namespace XMLConfig::detail {

namespace {

constexpr const wchar_t* prefix = L"Error XmlFragment: ";

DocumentPointer parsed(const std::wstring& xml) {
    startXmlLibrary();
    return reporting(prefix, [&] { return parseElement(toUtf8(xml)).document; });
}

}  // namespace

XmlFragment::XmlFragment(const std::wstring& xml) : m_tree(std::make_unique<Tree>()) { m_tree->adopt(parsed(xml)); }

XmlFragment::~XmlFragment() = default;

ElementView XmlFragment::element() const { return ElementAccess::view(m_tree->root()); }

void XmlFragment::setAttribute(const std::wstring& name, const std::wstring& value) {
    reporting(prefix, [&] { m_tree->root()->setAttribute(xmlText(toUtf16(name)), xmlText(toUtf16(value))); });
}

bool XmlFragment::replaceChild(const std::wstring& name, const std::wstring& xml) {
    xercesc::DOMElement* const child = ElementAccess::element(element().child(name));
    if (child == nullptr) return false;
    const DocumentPointer other = parsed(xml);
    reporting(prefix, [&] { m_tree->root()->replaceChild(m_tree->copy(*other->getDocumentElement()).release(), child); });
    return true;
}

std::wstring XmlFragment::text() const { return writeElement(*m_tree->root()); }

}  // namespace XMLConfig::detail
