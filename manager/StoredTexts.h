#pragma once

#include <string>
#include <vector>

#include "base/Setting.h"
#include "platform/Export.h"
#include "store/Address.h"
#include "store/ElementView.h"

namespace XMLConfig {

/// A text somewhere in a document: that of a setting, of an unknown item, or of a part of a device snippet.
struct StoredText {
    /// Names joined by "/", with the IDs of sections and subsections: "Slot[3]/Gamma". In a device snippet "#2" marks the
    /// second child of one name, and "@name" stands for an attribute: "DeviceSnippet/device/lens#2@type".
    std::wstring path;
    Address place;  ///< of the setting; in a device snippet that of the whole snippet
    ElementView element;
    const Setting* setting = nullptr;  ///< null for what the catalogue does not know, and in a snippet
    std::wstring text;
    bool inSnippet = false;
};

/// The texts of an element that stands at the place, or of what is inside it, in document order. Each path begins with
/// `start`: addressText(place) makes it a whole address, "" makes it the path inside the element. Several texts may have one
/// path; of these the library reads the first.
XMLCONFIG_API std::vector<StoredText> storedTexts(const ElementView& element, const Address& place,
                                                  const std::wstring& start);

}  // namespace XMLConfig
