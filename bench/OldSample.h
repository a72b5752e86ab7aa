#pragma once

#include <string>

/// An installation as release 1.5 saved it, with half as many cameras as projectors; and the same brought up to date.
namespace bench {

/// Devices of an installation of that many projectors.
int devicesOf(int projectors);
/// The file of version 1.5; written when it is first asked for.
std::string oldFile(int projectors);
/// The same installation, upgraded and saved. Throws std::runtime_error where the upgrade lost a device.
std::string upgradedFile(int projectors);

}  // namespace bench
