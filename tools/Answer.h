#pragma once

#include <optional>
#include <string>
#include <vector>

#include "manager/Origin.h"
#include "store/Address.h"
#include "store/ElementView.h"

class ConfigInfo;

/// What a document holds at the places that `get` is asked for.
namespace tool {

/// What a place holds, and what the application reads there.
struct Answer {
    std::wstring address;
    XMLConfig::Address place;  ///< of a part of a device snippet, that of the snippet
    const XMLConfig::Setting* setting = nullptr;
    XMLConfig::ElementView element;  ///< what the place itself holds
    std::wstring stored;             ///< its text
    std::optional<XMLConfig::EffectiveValue>
        counted;          ///< what the application reads; nothing for unknown settings that are missing
    bool isPart = false;  ///< whether it is a text in a device snippet

    /// Whether there is anything to print.
    [[nodiscard]] bool isThere(bool asCounted) const { return asCounted ? counted || element : bool(element); }
    /// Whether the place holds other settings and no value.
    [[nodiscard]] bool isGroup() const;
    /// Whether the place holds an element that is one value.
    [[nodiscard]] bool holdsElement() const;
};

/// What somebody asks for: an address, or a text in the device snippet at one.
struct AskedPlace {
    XMLConfig::Address address;
    std::wstring part;  ///< in the snippet, "device@UID"; mostly empty
};

/// Throws CorvaneParseException for a text that is no address.
AskedPlace askedPlaceOf(const std::wstring& text);

/// One answer for each place that is meant, also where nothing is stored.
std::vector<Answer> answersAt(const ConfigInfo& document, const AskedPlace& asked);
/// The same, but for a group one for each text in it.
std::vector<Answer> textAnswersAt(const ConfigInfo& document, const AskedPlace& asked);

}  // namespace tool
