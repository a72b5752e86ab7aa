#include "platform/posix/Folder.h"

#include <algorithm>
#include <cerrno>
#include <random>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::string_view prefix = ".saving-";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digitCount = 20;

bool isSecretName(std::string_view name) {
    return name.size() == prefix.size() + digitCount && name.substr(0, prefix.size()) == prefix &&
           name.find_first_not_of(digits, prefix.size()) == std::string_view::npos;
}

/// A lock of the open file, not of the process: threads deny each other too, and it goes with the last descriptor. Not
/// flock, by which loads ask whether somebody else writes the file.
bool lock([[maybe_unused]] int descriptor, [[maybe_unused]] short type) {
#if defined(F_OFD_SETLK)
    struct flock range {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    return ::fcntl(descriptor, F_OFD_SETLK, &range) == 0;
#else
    errno = ENOSYS;
    return false;
#endif
}

}  // namespace

std::string secretName() {
    std::random_device random;
    std::string name(prefix);
    for (std::size_t i = 0; i < digitCount; ++i) name += digits[random() % digits.size()];
    return name;
}

Claim claimNewFile(int descriptor) {
    if (lock(descriptor, F_WRLCK)) return Claim::made;
    return errno == EAGAIN || errno == EACCES ? Claim::denied : Claim::impossible;
}

Folder::Folder(const std::string& path) : m_stream(::opendir(path.c_str())) {}

void Folder::flush() {
    if (!m_stream) return;
    while (::fsync(::dirfd(m_stream.get())) == -1 && errno == EINTR) {
    }
}

void Folder::removeIfAbandoned(const char* name) const {
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int descriptor = ::openat(::dirfd(m_stream.get()), name, flags);
    if (descriptor == -1) return;
    struct stat status {};
    const bool isAbandoned = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && lock(descriptor, F_RDLCK);
    // While the lock is held: a writer that claims the file afterwards sees that it is gone.
    if (isAbandoned) ::unlinkat(::dirfd(m_stream.get()), name, 0);
    ::close(descriptor);
}

void Folder::removeAbandonedFiles() {
    if (!m_stream) return;
    while (const dirent* entry = ::readdir(m_stream.get())) {
        if (isSecretName(entry->d_name)) removeIfAbandoned(entry->d_name);
    }
}

}  // namespace XMLConfig::detail
