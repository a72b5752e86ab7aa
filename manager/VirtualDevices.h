#pragma once

class ConfigInfo;

namespace XMLConfig::detail {

/// Lets virtual devices stand in for the document's projectors and cameras where "UL_VIRTUAL_PROJECTOR" ("config",
/// "fake") and "UL_VIRTUAL_CAMERA" ("config") ask for it; the case of these words does not count. The document is
/// at the latest version.
void applyVirtualDevices(ConfigInfo& document);

}  // namespace XMLConfig::detail
