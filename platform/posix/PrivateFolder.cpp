#include "platform/PrivateFolder.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "platform/Numbers.h"
#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

/// A file of this user's in the folder's place is his mistake, not somebody's trap: he is to hear of it.
FolderClaim claimOfNoFolder(const std::string& name) {
    struct stat status {};
    if (::lstat(name.c_str(), &status) != 0) return FolderClaim::impossible;
    const bool isMistake = S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
    return isMistake ? FolderClaim::impossible : FolderClaim::anothers;
}

/// Where others could write, they may have left links inside.
FolderClaim claimOfFolder(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return FolderClaim::impossible;
    const bool isOwn = status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    if (!isOwn) return FolderClaim::anothers;
    const bool isClosed = (status.st_mode & 07777) == S_IRWXU || ::fchmod(descriptor, S_IRWXU) == 0;
    return isClosed ? FolderClaim::own : FolderClaim::impossible;
}

}  // namespace

FolderClaim claimFolder(const std::wstring& path) {
    const std::string name = systemPath(path);
    ::mkdir(name.c_str(), S_IRWXU);  // the look at the folder below says whether it is there now, and whose it is
    const int descriptor = ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor == -1) return claimOfNoFolder(name);
    const FolderClaim claim = claimOfFolder(descriptor);
    ::close(descriptor);
    return claim;
}

std::wstring userMark() { return formatInteger(static_cast<long>(::geteuid())); }

}  // namespace XMLConfig::detail
