#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

/// POSIX access lists in the form that Linux keeps them in.
namespace XMLConfig::detail {

/// The attribute that holds the access list of a file.
inline constexpr const char* accessListName = "system.posix_acl_access";

struct AccessEntry {
    enum Kind : std::uint16_t { owner = 0x01, user = 0x02, ownGroup = 0x04, group = 0x08, mask = 0x10, others = 0x20 };
    static constexpr std::uint32_t nobody = 0xFFFFFFFF;

    Kind kind;
    std::uint16_t rights;       ///< read 4, write 2, execute 1
    std::uint32_t id = nobody;  ///< of a named user or group
};

using AccessList = std::vector<AccessEntry>;

/// The list that says the same as a mode.
AccessList accessListOf(mode_t mode);
/// Nothing where the bytes have another form.
std::optional<AccessList> parsedAccessList(std::string_view bytes);
std::string bytesOf(const AccessList& list);
/// The permission bits that the system shows for a file with this list.
mode_t modeOf(const AccessList& list);

struct FileHolder {
    uid_t user;
    gid_t group;
};

/// The list with which a file of `after` lets everybody do at most what a file of `before` with `list` lets him, and the
/// user of `before` exactly that. The user of `after` gets the owner's rights.
AccessList handedOver(const AccessList& list, const FileHolder& before, const FileHolder& after);

}  // namespace XMLConfig::detail
