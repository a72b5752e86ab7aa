#include "platform/posix/NewFile.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace XMLConfig::detail {
namespace {

constexpr std::string_view purpose = "Can not write file";

/// Thrown where a file without a name cannot be had, or cannot get one.
struct NoNamelessFile {};

OpenFile openNew(const std::string& target, const std::string& name, mode_t mode) {
    if (!name.empty()) return {name, purpose, O_WRONLY | O_CREAT | O_EXCL, mode, target};
#if defined(O_TMPFILE)
    try {
        return {systemFolder(target), purpose, O_WRONLY | O_TMPFILE, mode, target};
    } catch (const SystemError&) {  // the attempt with a name throws what is wrong
    }
#endif
    throw NoNamelessFile();
}

/// Systems before Linux 6.0 forget the umask of a nameless file where the disk knows no access lists.
bool isMaskForgotten(const struct stat& status, mode_t mode) {
    return (mode & (S_IRWXG | S_IRWXO)) != 0 && (status.st_mode & 0777) == mode;
}

/// Gives an open file without a name its first one.
int link(int descriptor, const std::string& name) {
    const std::string open = "/proc/self/fd/" + std::to_string(descriptor);
    return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW);
}

/// Renames unless something has the new name; by two steps where the disk cannot do it in one.
int renameToFree(const std::string& from, const std::string& to) {
#if defined(RENAME_NOREPLACE)
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return -1;
#endif
    if (::link(from.c_str(), to.c_str()) != 0) return -1;
    ::unlink(from.c_str());
    return 0;
}

}  // namespace

NewFile::NewFile(const std::string& target, Folder& folder, mode_t mode, Naming naming)
    : m_target(target),
      m_folder(folder),
      m_name(naming == Naming::none ? std::string() : systemFolder(target) + '/' + secretName()),
      m_file(openNew(target, m_name, mode)),
      m_isClaimed(claimNewFile(m_file.descriptor()) != Claim::denied) {}

NewFile::~NewFile() {
    if (!m_name.empty()) ::unlink(m_name.c_str());
    if (m_claim != -1) ::close(m_claim);
}

bool NewFile::isOurs() { return m_isClaimed && (m_name.empty() || m_file.status().st_nlink > 0); }

void NewFile::giveName(std::string name) {
    if (link(m_file.descriptor(), name) == 0) {
        m_name = std::move(name);  // a copy could fail and leave the file
    } else if (errno == EEXIST) {
        throwFileError(purpose, m_target, EEXIST);
    } else {
        throw NoNamelessFile();
    }
}

void NewFile::closeClaimed() {
    m_claim = ::fcntl(m_file.descriptor(), F_DUPFD_CLOEXEC, 0);
    if (m_claim != -1) m_file.close();
}

void NewFile::replaceTarget() {
    if (m_name.empty()) giveName(systemFolder(m_target) + '/' + secretName());
    closeClaimed();
    if (::rename(m_name.c_str(), m_target.c_str()) != 0) throwFileError(purpose, m_target, errno);
    m_name.clear();
    m_folder.flush();
}

void NewFile::becomeTarget() {
    m_file.flush();
    if (m_name.empty()) {
        giveName(m_target);
        m_file.close();
    } else {
        closeClaimed();
        if (renameToFree(m_name, m_target) != 0) throwFileError(purpose, m_target, errno);
    }
    m_name.clear();
    m_folder.flush();
}

namespace {

using Use = std::function<void(NewFile&)>;

bool makeWithoutName(const std::string& target, Folder& folder, mode_t mode, const Use& use) {
    try {
        NewFile created(target, folder, mode, NewFile::Naming::none);
        if (isMaskForgotten(created.file().status(), mode)) return false;
        use(created);
        return true;
    } catch (const NoNamelessFile&) {
        return false;
    }
}

/// False where somebody took the file for an abandoned one before it was claimed.
bool makeWithName(const std::string& target, Folder& folder, mode_t mode, const Use& use) {
    NewFile created(target, folder, mode, NewFile::Naming::secret);
    if (!created.isOurs()) return false;
    use(created);
    return true;
}

}  // namespace

void makeBeside(const std::string& target, mode_t mode, const Use& use) {
    constexpr int mostTries = 10;
    Folder folder(systemFolder(target));
    folder.removeAbandonedFiles();
    if (makeWithoutName(target, folder, mode, use)) return;
    for (int i = 0; i < mostTries; ++i) {
        if (makeWithName(target, folder, mode, use)) return;
    }
    throwFileError(purpose, target, EAGAIN);
}

}  // namespace XMLConfig::detail
