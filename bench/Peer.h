#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Sample.h"
#include "store/ConfigInfo.h"

/// The same work done with other XML libraries, as their users write it: by the shortest way that the library's manual
/// shows.
namespace bench {

/// An address as these libraries take it.
struct NamedPlace {
    explicit NamedPlace(const Address& address);

    std::string section;
    std::string id;
    std::vector<std::string> key;
};

/// A document that such a library has loaded.
class PeerDocument {
public:
    PeerDocument() = default;
    virtual ~PeerDocument() = default;
    PeerDocument(const PeerDocument&) = delete;
    PeerDocument& operator=(const PeerDocument&) = delete;

    /// The text at a place, found by its names from the root; empty where there is none.
    [[nodiscard]] virtual std::string get(const NamedPlace& place) const = 0;
    virtual void set(const NamedPlace& place, const std::string& text) = 0;
    /// Throws std::runtime_error where the library says that it failed.
    virtual void save(const std::string& path) const = 0;
};

struct Peer {
    const char* name;  ///< as benchmarks and tables call it
    /// Throws std::runtime_error for a file that cannot be read.
    std::unique_ptr<PeerDocument> (*load)(const std::string& path);
};

/// Xerces-C, and those of the others that the build found.
const std::vector<Peer>& peers();

std::unique_ptr<PeerDocument> loadWithXerces(const std::string& path);
std::unique_ptr<PeerDocument> loadWithPugixml(const std::string& path);
std::unique_ptr<PeerDocument> loadWithLibxml2(const std::string& path);

/// Loads a file, reads every item, changes the first one and saves. Gives the document, so that its end may be left out of
/// what is measured. Throws std::runtime_error where an item is not there.
std::unique_ptr<PeerDocument> roundTrip(const Peer& peer, const std::string& file, const std::vector<NamedPlace>& places,
                                        const std::string& target);
/// The same with this library.
std::unique_ptr<ConfigInfo> roundTrip(const std::string& file, const std::vector<Address>& addresses,
                                      const std::string& target);
std::vector<NamedPlace> namedPlaces(const std::vector<Address>& addresses);

}  // namespace bench
