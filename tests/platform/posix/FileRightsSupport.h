#pragma once

#include <cerrno>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "tests/platform/posix/ReplaceFileSupport.h"
#include "tests/support/posix/OtherUser.h"

namespace replacetests {

/// An entry of an access list in the form the system takes.
struct AccessEntry {
    std::uint16_t tag;
    std::uint16_t rights;
    std::uint32_t id = 0xFFFFFFFF;
};

inline AccessEntry owner(std::uint16_t rights) { return {0x01, rights}; }
inline AccessEntry user(std::uint32_t id, std::uint16_t rights) { return {0x02, rights, id}; }
inline AccessEntry group(std::uint16_t rights) { return {0x04, rights}; }
inline AccessEntry group(std::uint32_t id, std::uint16_t rights) { return {0x08, rights, id}; }
inline AccessEntry mask(std::uint16_t rights) { return {0x10, rights}; }
inline AccessEntry others(std::uint16_t rights) { return {0x20, rights}; }

using AccessList = std::vector<AccessEntry>;

constexpr const char* ofTheFile = "system.posix_acl_access";
constexpr const char* ofNewFiles = "system.posix_acl_default";

/// False where the disk knows no access lists.
inline bool setList(const fs::path& path, const char* kind, const AccessList& entries) {
    static_assert(sizeof(AccessEntry) == 8);
    const std::uint32_t version = 2;
    std::string bytes(reinterpret_cast<const char*>(&version), sizeof version);
    bytes.append(reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(AccessEntry));
    return ::setxattr(path.c_str(), kind, bytes.data(), bytes.size(), 0) == 0;
}

/// Whether the disk of a file knows access lists.
inline bool knowsLists(const fs::path& path) {
    return ::getxattr(path.c_str(), ofTheFile, nullptr, 0) >= 0 || errno == ENODATA;
}

/// Owner, group, mode and all attributes, access list included, in a form that can be compared and shown.
inline std::map<std::string, std::string> rightsOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    std::map<std::string, std::string> rights{{"owner", std::to_string(status.st_uid)},
                                              {"group", std::to_string(status.st_gid)},
                                              {"mode", std::to_string(status.st_mode)}};
    std::string names(100000, '\0');
    const ssize_t size = ::listxattr(path.c_str(), names.data(), names.size());
    EXPECT_GE(size, 0);
    for (const char* name = names.data(); name < names.data() + size; name += std::string(name).size() + 1) {
        std::string value(100000, '\0');
        const ssize_t length = ::getxattr(path.c_str(), name, value.data(), value.size());
        EXPECT_GE(length, 0);
        rights[name] = value.substr(0, static_cast<std::size_t>(length));
    }
    return rights;
}

inline bool mayOpen(const OtherUser& who, const fs::path& path, int flags) {
    return holdsFor(who, [&] {
        const int file = ::open(path.c_str(), flags);
        return file != -1 && ::close(file) == 0;
    });
}

}  // namespace replacetests
