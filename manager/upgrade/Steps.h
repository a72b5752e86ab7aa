#pragma once

class ConfigInfo;

/// The conversions between historical layouts, each named by the version it leads to. They write and remove in a fixed
/// order, and their keys are literals of their own: history does not change when a setting is renamed today.
namespace XMLConfig::detail {

void toVersion2(ConfigInfo& document);
void toVersion2005(ConfigInfo& document);
void toVersion3(ConfigInfo& document);
void toVersion4(ConfigInfo& document);
void toVersion5(ConfigInfo& document);
void toVersion6(ConfigInfo& document);
void toVersion8(ConfigInfo& document);
void toVersion9(ConfigInfo& document);

}  // namespace XMLConfig::detail
