#include <pugixml.hpp>
#include <stdexcept>

#include "Peer.h"

namespace bench {
namespace {

class PugiDocument : public PeerDocument {
public:
    explicit PugiDocument(const std::string& path) {
        // As it comes: this drops comments, which the others keep.
        if (!m_document.load_file(path.c_str())) throw std::runtime_error("pugixml cannot load " + path);
    }

    [[nodiscard]] std::string get(const NamedPlace& place) const override { return find(place).text().get(); }
    void set(const NamedPlace& place, const std::string& text) override { find(place).text().set(text.c_str()); }
    void save(const std::string& path) const override {
        if (!m_document.save_file(path.c_str(), "  ")) throw std::runtime_error("pugixml cannot save " + path);
    }

private:
    [[nodiscard]] pugi::xml_node find(const NamedPlace& place) const {
        pugi::xml_node node =
            m_document.document_element().find_child_by_attribute(place.section.c_str(), "ID", place.id.c_str());
        for (const std::string& part : place.key) node = node.child(part.c_str());
        return node;
    }

    pugi::xml_document m_document;
};

}  // namespace

std::unique_ptr<PeerDocument> loadWithPugixml(const std::string& path) { return std::make_unique<PugiDocument>(path); }

}  // namespace bench
