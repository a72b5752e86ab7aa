#include <libxml/parser.h>
#include <libxml/tree.h>

#include <stdexcept>

#include "Peer.h"

namespace bench {
namespace {

struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct FreeText {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Text = std::unique_ptr<xmlChar, FreeText>;

const xmlChar* textOf(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

xmlNode* childNamed(xmlNode* parent, const std::string& name) {
    xmlNode* child = xmlFirstElementChild(parent);
    while (child != nullptr && xmlStrEqual(child->name, textOf(name)) == 0) child = xmlNextElementSibling(child);
    return child;
}

class Libxml2Document : public PeerDocument {
public:
    explicit Libxml2Document(const std::string& path) : m_document(xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET)) {
        if (!m_document) throw std::runtime_error("libxml2 cannot load " + path);
    }

    [[nodiscard]] std::string get(const NamedPlace& place) const override {
        xmlNode* const node = find(place);
        const Text text(node == nullptr ? nullptr : xmlNodeGetContent(node));
        return text ? reinterpret_cast<const char*>(text.get()) : "";
    }
    void set(const NamedPlace& place, const std::string& text) override { xmlNodeSetContent(find(place), textOf(text)); }
    void save(const std::string& path) const override {
        if (xmlSaveFormatFile(path.c_str(), m_document.get(), 1) < 0)
            throw std::runtime_error("libxml2 cannot save " + path);
    }

private:
    [[nodiscard]] static bool hasId(xmlNode* section, const std::string& id) {
        const Text found(xmlGetProp(section, textOf("ID")));
        return xmlStrEqual(found.get(), textOf(id)) != 0;
    }
    [[nodiscard]] xmlNode* find(const NamedPlace& place) const {
        xmlNode* node = xmlFirstElementChild(xmlDocGetRootElement(m_document.get()));
        while (node != nullptr && !(xmlStrEqual(node->name, textOf(place.section)) != 0 && hasId(node, place.id)))
            node = xmlNextElementSibling(node);
        for (const std::string& part : place.key) node = node == nullptr ? nullptr : childNamed(node, part);
        return node;
    }

    std::unique_ptr<xmlDoc, FreeDocument> m_document;
};

}  // namespace

std::unique_ptr<PeerDocument> loadWithLibxml2(const std::string& path) { return std::make_unique<Libxml2Document>(path); }

}  // namespace bench
