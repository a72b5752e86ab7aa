#pragma once

#include <string>

namespace XMLConfig::detail {

struct PrivateFolder {
    std::wstring path;
    bool isThere;  ///< false where it could not be made; writing below the path then fails
};

/// A folder that nobody else may enter, made where it does not exist. It is the one of that name unless that is another
/// user's, a link, or open to what others write; then this user gets "<path>-<user>", or a name that nobody can foresee
/// where that is taken too. The folder above must exist.
PrivateFolder makePrivateFolder(const std::wstring& path);

enum class FolderClaim { own, anothers, impossible };
/// Makes one folder for this user alone. Where there is one of that name, tells whose it is and, when it is this user's,
/// takes everybody else's rights to it away.
FolderClaim claimFolder(const std::wstring& path);
/// What tells this user from others in a file name: a number, or a name.
std::wstring userMark();

}  // namespace XMLConfig::detail
