#pragma once

#include <string>
#include <vector>

#include "manager/Upgrade.h"
#include "platform/Export.h"

namespace XMLConfig {

/// What upgradeFile is asked to do.
struct UpgradeFileRequest {
    std::wstring path;         ///< the file to convert
    std::wstring target = {};  ///< where the result goes, a file that does not exist yet; "" for `path` itself
    bool writesFiles = true;   ///< false to convert in memory only, and be told what would be done
};

/// A device that the upgrade drops, with everything in it.
struct LostDevice {
    std::wstring section;
    std::wstring id;
    std::wstring name;         ///< "" where it has none
    std::size_t settings = 0;  ///< how many items the file held for it
    std::wstring type;         ///< the camera type that is not known any more; "" where it stated none
};

/// A device that the upgrade gave another ID.
struct DeviceWithNewID {
    std::wstring section;
    std::wstring name;  ///< "" where it has none
    std::wstring oldID;
    std::wstring newID;
};

/// A setting that names a camera by the ID that the camera had before the upgrade, and so names none.
struct DanglingReference {
    std::wstring address;   ///< of the setting, as addressText writes it
    std::wstring value;     ///< as stored
    std::wstring newValue;  ///< the value with the cameras' new IDs
};

/// A setting of a projector that reads another value than before, because projectors of the latest version inherit what most
/// of them have.
struct ValueReadOtherwise {
    std::wstring address;   ///< of the setting, as addressText writes it
    std::wstring oldValue;  ///< what the application read before, in stored form
    std::wstring newValue;  ///< what it reads now, in stored form
};

/// What upgradeFile did, or would do.
struct UpgradeFileReport {
    VersionUpgradeEnum status = NoUpgradeRequired;  ///< never UpgradeFailed
    std::wstring statedVersion;                     ///< as the file spells it; what is no number counts as 0
    std::wstring target;                            ///< the file that holds the result
    std::wstring backup;                            ///< the file that holds the old one; "" where none is kept
    UpgradeReceipt receipt;                         ///< what each step did
    std::vector<LostDevice> lost;
    std::vector<DeviceWithNewID> renamed;
    std::vector<DanglingReference> dangling;
    std::vector<ValueReadOtherwise> readOtherwise;
};

/// Brings a file to the latest version.
///
/// In place, the old file is kept beside it, byte for byte, as "<name>.v1.500.bak" with the version it had, or
/// "<name>.v1.500.bak.2" and so on where that name is taken. A file at the latest version is left alone in place, and
/// copied byte for byte to another target. Backup and target have the rights of the old file, as far as they may be given:
/// nobody but this user may do more with them.
///
/// Throws CorvaneException for a file that cannot be read or converted, that is no configuration or newer than the library,
/// or whose result cannot be written, and for a target that exists. Every file is then as it was, and no other is left
/// behind.
XMLCONFIG_API UpgradeFileReport upgradeFile(const UpgradeFileRequest& request);

}  // namespace XMLConfig
