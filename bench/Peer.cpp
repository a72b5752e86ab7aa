#include "Peer.h"

#include <stdexcept>

#include "Raw.h"

namespace bench {
namespace {

std::string narrowed(const std::wstring& ascii) { return std::string(ascii.begin(), ascii.end()); }

class XercesDocument : public PeerDocument {
public:
    explicit XercesDocument(const std::string& path) : m_document(raw::load(path)) {}

    [[nodiscard]] std::string get(const NamedPlace& place) const override {
        const xercesc::DOMElement* const found = find(place);
        if (found == nullptr) return {};
        const raw::Text text = found->getTextContent();
        return std::string(text.begin(), text.end());
    }
    void set(const NamedPlace& place, const std::string& text) override {
        find(place)->setTextContent(raw::Text(text.begin(), text.end()).c_str());
    }
    void save(const std::string& path) const override { raw::save(*m_document, path); }

private:
    [[nodiscard]] xercesc::DOMElement* find(const NamedPlace& place) const {
        return raw::find(*m_document, raw::Place(place.section, place.id, place.key));
    }

    raw::Platform m_platform;
    raw::Document m_document;
};

}  // namespace

NamedPlace::NamedPlace(const Address& address) : section(narrowed(address.section)), id(narrowed(address.id)) {
    std::string rest = narrowed(address.key);
    for (std::size_t bar = rest.find('|'); bar != std::string::npos; bar = rest.find('|')) {
        key.push_back(rest.substr(0, bar));
        rest.erase(0, bar + 1);
    }
    key.push_back(rest);
}

std::unique_ptr<PeerDocument> loadWithXerces(const std::string& path) { return std::make_unique<XercesDocument>(path); }

const std::vector<Peer>& peers() {
    static const std::vector<Peer> all = {
        {"raw", loadWithXerces},
#ifdef BENCH_WITH_PUGIXML
        {"pugixml", loadWithPugixml},
#endif
#ifdef BENCH_WITH_LIBXML2
        {"libxml2", loadWithLibxml2},
#endif
    };
    return all;
}

std::vector<NamedPlace> namedPlaces(const std::vector<Address>& addresses) {
    return std::vector<NamedPlace>(addresses.begin(), addresses.end());
}

std::unique_ptr<PeerDocument> roundTrip(const Peer& peer, const std::string& file, const std::vector<NamedPlace>& places,
                                        const std::string& target) {
    std::unique_ptr<PeerDocument> document = peer.load(file);
    for (const NamedPlace& place : places)
        if (document->get(place).empty()) throw std::runtime_error(std::string(peer.name) + " finds no " + place.key.back());
    document->set(places.front(), "changed");
    document->save(target);
    return document;
}

std::unique_ptr<ConfigInfo> roundTrip(const std::string& file, const std::vector<Address>& addresses,
                                      const std::string& target) {
    static const std::wstring none;
    auto document = std::make_unique<ConfigInfo>(widened(file));
    for (const Address& at : addresses)
        if (document->getStringItem(at.section, at.key, none, at.id, none, none).empty())
            throw std::runtime_error("the library does not find an item");
    const Address& first = addresses.front();
    document->setStringItem(first.section, first.key, L"changed", first.id, none, none);
    document->save(widened(target));
    return document;
}

}  // namespace bench
