#include "platform/posix/FileRights.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <vector>

#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

#include "platform/posix/AccessList.h"

namespace XMLConfig::detail {
namespace {

constexpr mode_t permissionBits = 07777;

/// Whether an error says that this process, or this disk, cannot give or tell a right; others say that something broke.
bool isDenial(int error) {
    constexpr std::array<int, 9> denials{EACCES, EPERM, ENOTSUP, EINVAL, E2BIG, ENOSYS, ENODATA, ENOSPC, EDQUOT};
    return std::find(denials.begin(), denials.end(), error) != denials.end();
}

/// True for a call that succeeded, false for one that was denied.
bool isGranted(const OpenFile& file, int result) {
    if (result == 0) return true;
    if (!isDenial(errno)) file.fail(errno);
    return false;
}

#if defined(__linux__)

/// The lists of NFS version 4 have more kinds of rights than those of POSIX.
constexpr const char* foreignListName = "system.nfs4_acl";

bool isAccessList(std::string_view name) { return name == accessListName || name == foreignListName; }

/// Not the labels that the system's own policies put on files, nor what only the superuser sees.
bool isKept(std::string_view name) { return name.substr(0, 5) == "user." || isAccessList(name); }

/// What a call puts into a buffer that may be too small, however often that grows meanwhile; nothing where it is denied.
template <typename Call>
std::optional<std::string> filled(const OpenFile& file, Call call) {
    constexpr std::size_t mostBytes = 1 << 20;
    std::string bytes(256, '\0');
    ssize_t size = call(bytes.data(), bytes.size());
    while (size < 0 && errno == ERANGE && bytes.size() < mostBytes) {
        bytes.resize(bytes.size() * 4);
        size = call(bytes.data(), bytes.size());
    }
    if (size < 0 && !isGranted(file, -1)) return std::nullopt;
    return bytes.substr(0, static_cast<std::size_t>(size));
}

/// The names of all attributes, a null character after each; none on a disk that knows no attributes.
std::optional<std::string> attributeNames(const OpenFile& file) {
    return filled(file, [&file](char* buffer, std::size_t size) {
        const ssize_t result = ::flistxattr(file.descriptor(), buffer, size);
        return result < 0 && (errno == ENOTSUP || errno == ENOSYS) ? 0 : result;
    });
}

std::vector<std::string> keptNames(const std::string& list) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1) names.emplace_back(list.c_str() + at);
    names.erase(std::remove_if(names.begin(), names.end(), [](const std::string& name) { return !isKept(name); }),
                names.end());
    return names;
}

#endif

}  // namespace

#if defined(__linux__)

std::optional<FileRights::Attributes> FileRights::attributesOf(const OpenFile& file) {
    const std::optional<std::string> names = attributeNames(file);
    if (!names) return std::nullopt;
    Attributes attributes;
    for (const std::string& name : keptNames(*names)) {
        std::optional<std::string> value = filled(file, [&](char* buffer, std::size_t size) {
            return ::fgetxattr(file.descriptor(), name.c_str(), buffer, size);
        });
        if (!value) return std::nullopt;
        attributes.emplace(name, *std::move(value));
    }
    return attributes;
}

bool FileRights::giveAttributes(OpenFile& file) const {
    const std::optional<Attributes> before = attributesOf(file);
    if (!before) return false;
    for (const auto& [name, value] : *before) {  // such as a list that comes from the folder
        if (m_attributes.count(name) != 0) continue;
        if (!isGranted(file, ::fremovexattr(file.descriptor(), name.c_str()))) return false;
    }
    for (const auto& [name, value] : m_attributes) {
        if (!isGranted(file, ::fsetxattr(file.descriptor(), name.c_str(), value.data(), value.size(), 0))) return false;
    }
    return true;
}

void makePrivate(OpenFile& file) {
    if (::fchmod(file.descriptor(), S_IRUSR | S_IWUSR) != 0) file.fail(errno);
    for (const char* list : {accessListName, foreignListName}) ::fremovexattr(file.descriptor(), list);
    if (::fchmod(file.descriptor(), S_IRUSR | S_IWUSR) != 0) file.fail(errno);
}

std::optional<FileRights> FileRights::handedTo(uid_t owner, gid_t group) const {
    if (m_attributes.count(foreignListName) != 0) return std::nullopt;
    const auto known = m_attributes.find(accessListName);
    const std::optional<AccessList> before =
        known == m_attributes.end() ? accessListOf(m_mode) : parsedAccessList(known->second);
    if (!before) return std::nullopt;
    const AccessList list = handedOver(*before, {m_owner, m_group}, {owner, group});
    FileRights rights = *this;
    rights.m_owner = owner;
    rights.m_group = group;
    rights.m_mode = modeOf(list);
    rights.m_attributes[accessListName] = bytesOf(list);
    return rights;
}

#else

std::optional<FileRights> FileRights::handedTo(uid_t, gid_t) const { return std::nullopt; }
std::optional<FileRights::Attributes> FileRights::attributesOf(const OpenFile&) { return Attributes(); }
bool FileRights::giveAttributes(OpenFile&) const { return true; }

#endif

std::optional<FileRights> FileRights::of(const OpenFile& file) {
    std::optional<Attributes> attributes = attributesOf(file);
    if (!attributes) return std::nullopt;
    const struct stat status = file.status();
    FileRights rights;
    rights.m_owner = status.st_uid;
    rights.m_group = status.st_gid;
    rights.m_mode = status.st_mode & permissionBits;
    rights.m_attributes = *std::move(attributes);
    return rights;
}

FileRights FileRights::ownedBy(uid_t owner) const {
    FileRights rights = *this;
    rights.m_owner = owner;
    if (owner != m_owner) rights.m_mode &= ~mode_t{S_ISUID | S_ISGID};  // with them a program would run as the new owner
    return rights;
}

bool FileRights::giveOwnership(OpenFile& file) const {
    const struct stat status = file.status();
    if (status.st_uid == m_owner && status.st_gid == m_group) return true;
    return isGranted(file, ::fchown(file.descriptor(), m_owner, m_group));
}

bool FileRights::giveTo(OpenFile& file) const {
    // The list first: while it is a folder's, a mode would open the file to those on it.
    if (!giveAttributes(file)) return false;
    if (!isGranted(file, ::fchmod(file.descriptor(), m_mode))) return false;
    return of(file) == *this;
}

namespace {

bool give(const FileRights& rights, OpenFile& file) { return rights.giveOwnership(file) && rights.giveTo(file); }

/// Gives the copy as much of the source's rights as this user may give, and the source's group if he may.
bool handOver(const FileRights& rights, uid_t maker, OpenFile& copy) {
    (void)rights.ownedBy(maker).giveOwnership(copy);
    const struct stat status = copy.status();
    const std::optional<FileRights> handed = rights.handedTo(status.st_uid, status.st_gid);
    return handed && handed->giveTo(copy);
}

}  // namespace

void giveRights(const OpenFile& source, OpenFile& copy) {
    const uid_t maker = copy.status().st_uid;
    const std::optional<FileRights> rights = FileRights::of(source);
    const bool isDone =
        rights && (give(*rights, copy) || handOver(*rights, maker, copy) || give(rights->ownedBy(maker), copy));
    if (!isDone) makePrivate(copy);
}

}  // namespace XMLConfig::detail
