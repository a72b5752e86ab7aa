#pragma once

#include <string>

#include "platform/Export.h"

/// What the application tells of itself. Supplied by the application and shared with the manager.
/// The order of the virtual members is part of the interface.
class XMLCONFIG_API IQuorvelProductInfo {
public:
    virtual ~IQuorvelProductInfo();
    /// The extension of this product's configuration files as UTF-8, the leading "." included, e.g. ".skorrax".
    virtual std::string getConfigFileExtension() const = 0;
};
