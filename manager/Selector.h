#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/Address.h"

class ConfigInfo;

/// Devices as people name them in an address.
namespace XMLConfig {

/// The places that an address means.
struct Selection {
    /// With the devices' whole IDs, in document order; empty where nothing fits. An address of another section than a
    /// device's is taken as it is, whether the document holds it or not.
    std::vector<Address> places;
    /// Where the address fits several devices and so means none of them: their IDs, in document order.
    std::vector<std::wstring> candidates;
};

/// Finds the devices that an address names: in `Projector[X]`, X is, in this order, an exact ID; `*` for all; `#3` for the
/// third that has an ID; a device's exact name; what follows ":" or "***" in an ID, to its end. Without X it is the only
/// device of its kind. Devices that an address cannot lead to are left out, and not counted: those with the ID of an earlier
/// device, and those without an ID after the first device of their kind. Nothing of the document is copied; an exact ID
/// costs one look-up.
XMLCONFIG_API Selection select(const ConfigInfo& document, const Address& address);

}  // namespace XMLConfig
