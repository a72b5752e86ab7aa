#include "Raw.h"

#include <stdexcept>

#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace bench::raw {

using xercesc::DOMDocument;
using xercesc::DOMElement;
using xercesc::DOMImplementationLS;
using xercesc::XMLPlatformUtils;
using xercesc::XMLString;
using xercesc::XMLUni;

namespace {

struct ReleaseResource {
    template <typename Resource>
    void operator()(Resource* resource) const {
        resource->release();
    }
};
template <typename Resource>
using Released = std::unique_ptr<Resource, ReleaseResource>;

DOMImplementationLS& implementation() {
    static const Text features = textOf(L"LS");
    auto* found = xercesc::DOMImplementationRegistry::getDOMImplementation(features.c_str());
    if (found == nullptr) throw std::runtime_error("Xerces-C has no load-and-save implementation");
    return *found;
}

DOMElement* childNamed(const DOMElement& parent, const Text& name) {
    for (DOMElement* child = parent.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling())
        if (XMLString::equals(child->getNodeName(), name.c_str())) return child;
    return nullptr;
}

}  // namespace

Platform::Platform() { XMLPlatformUtils::Initialize(); }
Platform::~Platform() { XMLPlatformUtils::Terminate(); }

Document load(const std::string& path) {
    const Released<xercesc::DOMLSParser> parser(
        implementation().createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr, XMLPlatformUtils::fgMemoryManager));
    parser->getDomConfig()->setParameter(XMLUni::fgDOMDatatypeNormalization, true);
    parser->getDomConfig()->setParameter(XMLUni::fgXercesUserAdoptsDOMDocument, true);
    return Document(parser->parseURI(path.c_str()));
}

void save(const DOMDocument& document, const std::string& path) {
    static const Text encoding = textOf(L"UTF-8");
    const Released<xercesc::DOMLSSerializer> serializer(implementation().createLSSerializer());
    serializer->getDomConfig()->setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
    xercesc::LocalFileFormatTarget target(path.c_str());
    const Released<xercesc::DOMLSOutput> output(implementation().createLSOutput());
    output->setEncoding(encoding.c_str());
    output->setByteStream(&target);
    if (!serializer->write(&document, output.get())) throw std::runtime_error("Xerces-C did not write " + path);
}

Text textOf(const std::wstring& ascii) { return Text(ascii.begin(), ascii.end()); }

Place::Place(const Address& address) : section(textOf(address.section)), id(textOf(address.id)) {
    std::wstring rest = address.key;
    for (std::size_t bar = rest.find(L'|'); bar != std::wstring::npos; bar = rest.find(L'|')) {
        key.push_back(textOf(rest.substr(0, bar)));
        rest.erase(0, bar + 1);
    }
    key.push_back(textOf(rest));
}

Place::Place(const std::string& sectionName, const std::string& identifier, const std::vector<std::string>& keyParts)
    : section(sectionName.begin(), sectionName.end()), id(identifier.begin(), identifier.end()) {
    for (const std::string& part : keyParts) key.emplace_back(part.begin(), part.end());
}

DOMElement* find(const DOMDocument& document, const Place& place) {
    static const Text idName = textOf(L"ID");
    DOMElement* element = document.getDocumentElement()->getFirstElementChild();
    for (; element != nullptr; element = element->getNextElementSibling())
        if (XMLString::equals(element->getNodeName(), place.section.c_str()) &&
            XMLString::equals(element->getAttribute(idName.c_str()), place.id.c_str()))
            break;
    for (std::size_t part = 0; element != nullptr && part < place.key.size(); ++part)
        element = childNamed(*element, place.key[part]);
    return element;
}

}  // namespace bench::raw
