#pragma once

#include <string>
#include <vector>

#include "base/Setting.h"
#include "store/Address.h"
#include "store/ElementView.h"

class ConfigInfo;

/// From what people write as an address to places of a document, and from places to the texts that stand there.
namespace tool {

/// The places that an operand means; none where no device fits. Throws a Refusal that lists the devices where several fit.
std::vector<XMLConfig::Address> placesOf(const ConfigInfo& document, const XMLConfig::Address& operand);

/// A text that a document stores, known by its whole address, by which other verbs reach it: that of a setting, of an
/// unknown item, or of a part of a device snippet.
struct AddressedText {
    std::wstring address;      ///< as addressText writes it, followed by "@name" for an attribute in a device snippet
    XMLConfig::Address place;  ///< of the setting; in a device snippet that of the whole snippet
    XMLConfig::ElementView element;
    std::wstring text;
    const XMLConfig::Setting* setting = nullptr;  ///< null for what the catalogue does not know, and in a snippet
    bool inSnippet = false;
};

/// The texts at and below an element, which stands at the place, in document order. Of several with one address the first
/// counts only, as for the library.
std::vector<AddressedText> textsAt(const XMLConfig::ElementView& element, const XMLConfig::Address& place);
/// The texts of all sections.
std::vector<AddressedText> textsOf(const ConfigInfo& document);

}  // namespace tool
