#include "Loaded.h"

#include <map>
#include <stdexcept>

#include <xercesc/util/XMLString.hpp>

namespace bench {
namespace {

struct Documents {
    std::map<int, std::unique_ptr<ConfigInfo>> library;
    std::map<int, raw::Document> raw;
};
struct Loaded {
    raw::Platform platform;
    Documents reading;
    Documents storing;
};

std::unique_ptr<Loaded>& all() {
    static std::unique_ptr<Loaded> loaded;
    if (!loaded) loaded = std::make_unique<Loaded>();
    return loaded;
}

void refuse(const Address& address, const char* side) {
    throw std::runtime_error(std::string(side) + " reads another value of " + address.item.section + " " + address.item.key);
}

ConfigInfo& libraryDocument(Documents& documents, int projectors) {
    std::unique_ptr<ConfigInfo>& document = documents.library[projectors];
    if (document) return *document;
    document = std::make_unique<ConfigInfo>(widened(sampleFile(projectors)));
    for (const Address& at : addressesOf(projectors))
        if (document->getStringItem(at.section, at.key, L"", at.id, L"", L"") != widened(at.item.text))
            refuse(at, "XMLConfig");
    return *document;
}

xercesc::DOMDocument& rawDocument(Documents& documents, int projectors) {
    raw::Document& document = documents.raw[projectors];
    if (document) return *document;
    document = raw::load(sampleFile(projectors));
    // The walk is slow, and one projector is like another: the first section of each kind stands for all.
    for (const Address& at : addressesOf(projectors)) {
        if (at.id != L"1") continue;
        const xercesc::DOMElement* item = raw::find(*document, raw::Place(at));
        if (item == nullptr || raw::textOf(widened(at.item.text)) != item->getTextContent()) refuse(at, "Xerces-C");
    }
    return *document;
}

}  // namespace

ConfigInfo& loadedDocument(int projectors) { return libraryDocument(all()->reading, projectors); }
ConfigInfo& documentForStoring(int projectors) { return libraryDocument(all()->storing, projectors); }
xercesc::DOMDocument& loadedRawDocument(int projectors) { return rawDocument(all()->reading, projectors); }
xercesc::DOMDocument& rawDocumentForStoring(int projectors) { return rawDocument(all()->storing, projectors); }
void releaseLoadedDocuments() { all().reset(); }

}  // namespace bench
