#pragma once

#include <memory>
#include <string>
#include <vector>

#include <xercesc/dom/DOM.hpp>

#include "Sample.h"

/// The same work done with Xerces-C alone, as simply as its interface allows.
namespace bench::raw {

/// Keeps the XML library started.
class Platform {
public:
    Platform();
    ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;
};

struct Release {
    void operator()(xercesc::DOMDocument* document) const { document->release(); }
};
using Document = std::unique_ptr<xercesc::DOMDocument, Release>;

Document load(const std::string& path);
void save(const xercesc::DOMDocument& document, const std::string& path);

using Text = std::basic_string<XMLCh>;
Text textOf(const std::wstring& ascii);

/// An address converted once.
struct Place {
    explicit Place(const Address& address);
    Place(const std::string& section, const std::string& id, const std::vector<std::string>& key);
    Text section;
    Text id;
    std::vector<Text> key;
};
/// The element at that place, by a walk from the root; null when there is none.
xercesc::DOMElement* find(const xercesc::DOMDocument& document, const Place& place);

}  // namespace bench::raw
