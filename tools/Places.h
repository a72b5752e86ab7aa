#pragma once

#include <vector>

#include "manager/StoredTexts.h"
#include "store/Address.h"
#include "store/ElementView.h"

class ConfigInfo;

/// From what people write as an address to places of a document, and from places to the texts that stand there.
namespace tool {

/// The places that an operand means; none where no device fits. Throws a Refusal that lists the devices where several fit.
std::vector<XMLConfig::Address> placesOf(const ConfigInfo& document, const XMLConfig::Address& operand);

/// The sections of that name that an address can lead to: not those whose ID an earlier one has.
std::vector<XMLConfig::ElementView> reachedSections(const ConfigInfo& document, const std::wstring& section);

/// "Projector[Dome 1], Projector[Dome 2]": what a document holds of a section's name; "no Projector" where there is none.
std::wstring heldSections(const ConfigInfo& document, const std::wstring& section);

/// The texts at and below an element, which stands at the place, in document order. Their paths are addresses by which other
/// verbs reach them. Of several with one address the first counts only, as for the library.
std::vector<XMLConfig::StoredText> textsAt(const XMLConfig::ElementView& element, const XMLConfig::Address& place);
/// The texts of all sections.
std::vector<XMLConfig::StoredText> textsOf(const ConfigInfo& document);

}  // namespace tool
