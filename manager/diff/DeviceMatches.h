#pragma once

#include <string>
#include <vector>

#include "store/ElementView.h"

namespace XMLConfig::detail {

/// A device of one document or the same device in both; a view of no element where a document has none.
struct DeviceMatch {
    ElementView old;
    ElementView now;
    const wchar_t* by = L"ID";  ///< what told that both are one device
};

/// The devices of that tag of both documents: those of the new one in its order, then those that are gone. Of several with
/// one ID only the first is a device; those without ID are none.
std::vector<DeviceMatch> matchDevices(const ConfigInfo& oldDocument, const ConfigInfo& newDocument, const std::wstring& tag);

}  // namespace XMLConfig::detail
