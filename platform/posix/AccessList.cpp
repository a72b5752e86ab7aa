#include "platform/posix/AccessList.h"

#include <algorithm>
#include <cstddef>
#include <map>

namespace XMLConfig::detail {
namespace {

using Rights = std::uint16_t;
using RightsById = std::map<std::uint32_t, Rights>;

constexpr std::uint32_t version = 2;
constexpr std::size_t headSize = 4;
constexpr std::size_t entrySize = 8;
constexpr Rights all = 7;

std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

void append(std::string& bytes, std::uint32_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> 8 * i & 0xFF));
}

Rights rightsOf(const AccessList& list, AccessEntry::Kind kind, Rights fallback) {
    for (const AccessEntry& entry : list) {
        if (entry.kind == kind) return entry.rights;
    }
    return fallback;
}

Rights both(Rights left, Rights right) { return static_cast<Rights>(left & right); }
Rights either(Rights left, Rights right) { return static_cast<Rights>(left | right); }

/// What the named users or groups of a list may do, less what its mask takes from them.
RightsById namedIn(const AccessList& list, AccessEntry::Kind kind) {
    const Rights mask = rightsOf(list, AccessEntry::mask, all);
    RightsById rights;
    for (const AccessEntry& entry : list) {
        if (entry.kind == kind) rights[entry.id] = either(rights[entry.id], both(entry.rights, mask));
    }
    return rights;
}

/// What members of a group may do that the list did not name. They may be in one of those that it names too, whose rights
/// add up with these.
Rights rightsOfAnotherGroup(const AccessList& list, const RightsById& groups) {
    Rights rights = rightsOf(list, AccessEntry::others, 0);
    for (const auto& [id, granted] : groups) rights = both(rights, granted);
    return rights;
}

}  // namespace

AccessList accessListOf(mode_t mode) {
    const auto rights = [mode](int shift) { return static_cast<Rights>(mode >> shift & all); };
    return {{AccessEntry::owner, rights(6)}, {AccessEntry::ownGroup, rights(3)}, {AccessEntry::others, rights(0)}};
}

std::optional<AccessList> parsedAccessList(std::string_view bytes) {
    if (bytes.size() < headSize || (bytes.size() - headSize) % entrySize != 0) return std::nullopt;
    if (numberAt(bytes, 0, headSize) != version) return std::nullopt;
    AccessList list;
    for (std::size_t at = headSize; at < bytes.size(); at += entrySize) {
        list.push_back({static_cast<AccessEntry::Kind>(numberAt(bytes, at, 2)),
                        static_cast<Rights>(numberAt(bytes, at + 2, 2)), numberAt(bytes, at + 4, 4)});
    }
    return list;
}

std::string bytesOf(const AccessList& list) {
    std::string bytes;
    append(bytes, version, headSize);
    for (const AccessEntry& entry : list) {
        append(bytes, entry.kind, 2);
        append(bytes, entry.rights, 2);
        append(bytes, entry.id, 4);
    }
    return bytes;
}

mode_t modeOf(const AccessList& list) {
    const mode_t group = rightsOf(list, AccessEntry::mask, rightsOf(list, AccessEntry::ownGroup, 0));
    return mode_t{rightsOf(list, AccessEntry::owner, 0)} << 6 | group << 3 | rightsOf(list, AccessEntry::others, 0);
}

AccessList handedOver(const AccessList& list, const FileHolder& before, const FileHolder& after) {
    const Rights owner = rightsOf(list, AccessEntry::owner, 0);
    RightsById users = namedIn(list, AccessEntry::user);
    RightsById groups = namedIn(list, AccessEntry::group);
    Rights ownGroup = both(rightsOf(list, AccessEntry::ownGroup, 0), rightsOf(list, AccessEntry::mask, all));
    if (before.user != after.user) users[before.user] = owner;
    if (before.group != after.group) {
        groups[before.group] = either(groups[before.group], ownGroup);
        ownGroup = rightsOfAnotherGroup(list, groups);
    }
    Rights mask = ownGroup;
    AccessList result{{AccessEntry::owner, owner}};
    for (const auto& [id, rights] : users) result.push_back({AccessEntry::user, rights, id});
    result.push_back({AccessEntry::ownGroup, ownGroup});
    for (const auto& [id, rights] : groups) result.push_back({AccessEntry::group, rights, id});
    for (const AccessEntry& entry : result) {
        if (entry.kind != AccessEntry::owner) mask = either(mask, entry.rights);
    }
    result.push_back({AccessEntry::mask, mask});
    result.push_back({AccessEntry::others, rightsOf(list, AccessEntry::others, 0)});
    return result;
}

}  // namespace XMLConfig::detail
