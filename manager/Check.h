#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

class ConfigInfo;

namespace XMLConfig {

/// Something in a document that deserves a look. None stops the library: it reads the document all the same.
struct Finding {
    enum class Kind {
        WrongType,       ///< a stored text that is not of its setting's type
        UnknownSetting,  ///< an item or group of items that the catalogue does not know
        UnknownSection,
        RepeatedID,  ///< a section or subsection hidden by an earlier one of the same name and ID
        MissingID    ///< a device without an ID
    };
    Kind kind;
    std::wstring address;  ///< as parseAddress takes it; of a device without ID the section's name
    std::wstring message;  ///< one line without the address
};

/// What is found, in document order. Sections whose keys the callers choose hold no unknown settings.
XMLCONFIG_API std::vector<Finding> check(const ConfigInfo& document);

}  // namespace XMLConfig
