#pragma once

class ConfigInfo;

/// Stand-ins for projectors and cameras, asked for by environment variables, so that a calibration runs without hardware.
namespace XMLConfig::detail {

/// Reads "UL_VIRTUAL_PROJECTOR" ("config" or "fake") and "UL_VIRTUAL_CAMERA" ("config"), without regard to case, and does
/// what they ask for. Other values, and longer ones than 256 characters, ask for nothing.
void applyVirtualDevices(ConfigInfo& document);

/// Every projector's connection becomes a virtual one, to a device file of the projector's type and resolution. A projector
/// whose snippet is missing, empty, no element or without a connection is left alone. Throws CorvaneException "Deive id
/// incorrect", spelt so on purpose, for a snippet whose "UID" has no "***".
void makeProjectorsVirtual(ConfigInfo& document);
/// Every camera's device type becomes "VC". A camera whose snippet lacks "UID" or "type" is left alone.
void makeCamerasVirtual(ConfigInfo& document);

}  // namespace XMLConfig::detail
