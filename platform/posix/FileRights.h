#pragma once

#include <map>
#include <optional>
#include <string>

#include <sys/types.h>

#include "platform/posix/System.h"

namespace XMLConfig::detail {

/// Who may do what with a file: owner, group, mode, access list, and the attributes that users gave it.
class FileRights {
public:
    /// Nothing where the system does not show this process all of them. Throws SystemError where the disk fails.
    static std::optional<FileRights> of(const OpenFile& file);

    /// False where this process may not give the file to that owner and group.
    [[nodiscard]] bool giveOwnership(OpenFile& file) const;
    /// Gives the rest, after the last write, which would cut it, and after giveOwnership. False where the file does not
    /// have exactly these rights afterwards.
    [[nodiscard]] bool giveTo(OpenFile& file) const;

    /// These rights for another owner, without the bits that would let a program run with his rights.
    FileRights ownedBy(uid_t owner) const;
    /// What a file of another owner or group has to have so that the owner of this one may do with it what he may with his
    /// own, and nobody more than with this one. Nothing where no access list of a kind known here can say that.
    std::optional<FileRights> handedTo(uid_t owner, gid_t group) const;
    friend bool operator==(const FileRights& left, const FileRights& right) {
        return left.m_owner == right.m_owner && left.m_group == right.m_group && left.m_mode == right.m_mode &&
               left.m_attributes == right.m_attributes;
    }

private:
    using Attributes = std::map<std::string, std::string>;

    static std::optional<Attributes> attributesOf(const OpenFile& file);
    bool giveAttributes(OpenFile& file) const;

    uid_t m_owner = 0;
    gid_t m_group = 0;
    mode_t m_mode = 0;
    Attributes m_attributes;  ///< the access list is one of them
};

/// The rights of the source; where this process may not give the owner, an access list that gives them to him; where there
/// are no such lists, the source's rights but for the owner. Where none can be given, nobody else has any: a part of
/// them could mean more to somebody than the whole.
void giveRights(const OpenFile& source, OpenFile& copy);

/// Leaves a file to its owner alone.
void makePrivate(OpenFile& file);

}  // namespace XMLConfig::detail
