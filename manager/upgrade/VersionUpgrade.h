#pragma once

class ConfigInfo;

namespace XMLConfig {
enum VersionUpgradeEnum : int;
}

namespace XMLConfig::detail {

/// Brings a document to the latest file version, in memory. A null document and one that is newer than the library
/// give UpgradeFailed and are left untouched. Throws what a conversion throws.
VersionUpgradeEnum doFileVersionConversion(ConfigInfo* document);

}  // namespace XMLConfig::detail
