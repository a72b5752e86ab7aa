#include <array>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <random>

#include <fcntl.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

#include "platform/Files.h"
#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::string_view purpose = "Can not write file";
constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t permissionBits = 07777;

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) return status;
    if (errno != ENOENT) throwFileError(purpose, path, errno);
    return std::nullopt;
}

/// The text of a symbolic link; nothing when there is no link of this name.
std::optional<std::string> linkText(const std::string& path) {
    std::string text(256, '\0');
    for (;;) {
        const ssize_t size = ::readlink(path.c_str(), text.data(), text.size());
        if (size < 0) return std::nullopt;
        if (static_cast<std::size_t>(size) < text.size()) return text.substr(0, static_cast<std::size_t>(size));
        text.resize(text.size() * 2);
    }
}

/// The file that a name leads to over all its links. It need not exist.
std::string resolved(const std::string& path) {
    constexpr int mostLinks = 40;
    std::string name = path;
    for (int i = 0; i < mostLinks; ++i) {
        const std::optional<std::string> text = linkText(name);
        if (!text) return name;
        name = !text->empty() && text->front() == '/' ? *text : systemFolder(name) + '/' + *text;
    }
    throwFileError(purpose, path, ELOOP);
}

bool isSameFile(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

/// A name that nobody can foresee: others may write in the folder too.
std::string secretName(const std::string& folder) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr int length = 20;
    std::random_device random;
    std::string name = folder + "/.saving-";
    for (int i = 0; i < length; ++i) name += digits[random() % digits.size()];
    return name;
}

/// A file beside the target, until it takes the target's place. Removed otherwise.
class NewFile {
public:
    NewFile(const std::string& target, mode_t mode)
        : m_target(target),
          m_folder(systemFolder(target)),
          m_name(secretName(m_folder)),
          m_file(m_name, purpose, O_WRONLY | O_CREAT | O_EXCL, mode, target) {}
    ~NewFile() {
        if (!m_placed) ::unlink(m_name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    OpenFile& file() { return m_file; }
    void place() {
        m_placed = ::rename(m_name.c_str(), m_target.c_str()) == 0;
        if (!m_placed) throwFileError(purpose, m_target, errno);
        flushFolder(m_folder);
    }

private:
    std::string m_target;
    std::string m_folder;
    std::string m_name;
    OpenFile m_file;
    bool m_placed = false;
};

void copyAccessList([[maybe_unused]] int from, [[maybe_unused]] int to) {
#if defined(__linux__)
    constexpr const char* name = "system.posix_acl_access";
    std::array<char, 4096> list{};
    const ssize_t size = ::fgetxattr(from, name, list.data(), list.size());
    if (size > 0) ::fsetxattr(to, name, list.data(), static_cast<std::size_t>(size), 0);
#endif
}

/// Owner and group as far as this process may give them; then the mode, which a change of owner would have cut.
void copyPermissions(const OpenFile& from, OpenFile& to) {
    const struct stat status = from.status();
    if (::fchown(to.descriptor(), status.st_uid, status.st_gid) != 0) {
        [[maybe_unused]] const int ignored = ::fchown(to.descriptor(), static_cast<uid_t>(-1), status.st_gid);
    }
    if (::fchmod(to.descriptor(), status.st_mode & permissionBits) != 0) to.fail(errno);
    copyAccessList(from.descriptor(), to.descriptor());
}

void finish(OpenFile& file) {
    file.flush();
    file.close();
}

void write(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
}

void createFile(const std::string& target, const ByteSource& source) {
    NewFile created(target, 0666);
    write(created.file(), source);
    finish(created.file());
    created.place();
}

/// Whether an error says that a second file may not stand here, though the first may be written.
bool isRefusal(int error) { return error == EACCES || error == EPERM || error == EBUSY; }

/// False, and nothing changed, when the folder admits no second file in the target's place.
bool exchange(const std::string& target, const OpenFile& old, const ByteSource& source) {
    try {
        NewFile created(target, S_IRUSR | S_IWUSR);
        write(created.file(), source);
        copyPermissions(old, created.file());  // last, since writing may cut them
        finish(created.file());
        created.place();
    } catch (const SystemError& error) {
        if (!isRefusal(error.code())) throw;
        return false;
    }
    return true;
}

std::optional<std::string> contentIfReadable(const std::string& path) {
    try {
        OpenFile file(path, purpose, O_RDONLY);
        std::string content;
        char buffer[64 * 1024];
        while (const std::size_t count = file.read(buffer, sizeof buffer)) content.append(buffer, count);
        return content;
    } catch (const SystemError&) {
        return std::nullopt;
    }
}

/// Whether an error says that the file system cannot take room in advance; EBADF where the system library tries to do
/// that itself and may not read the file.
bool cannotReserve(int error) { return error == EINVAL || error == ENOTSUP || error == ENODEV || error == EBADF; }

/// Takes the room for the new content while the old one still stands, so that a full disk is noticed in time.
void reserve(OpenFile& file, std::size_t size) {
    if (size == 0) return;
    const off_t sizeBefore = file.status().st_size;
    int error = EINTR;
    while (error == EINTR) error = ::posix_fallocate(file.descriptor(), 0, static_cast<off_t>(size));
    if (error == 0 || cannotReserve(error)) return;
    file.resize(sizeBefore);
    file.fail(error);
}

void put(OpenFile& file, std::string_view bytes) {
    file.rewind();
    file.write(bytes);
    file.resize(static_cast<off_t>(bytes.size()));
    file.flush();
}

void overwrite(const std::string& target, OpenFile& old, std::string_view bytes) {
    const std::optional<std::string> before = contentIfReadable(target);
    reserve(old, bytes.size());
    try {
        put(old, bytes);
    } catch (const SystemError&) {
        try {
            if (before) put(old, *before);
        } catch (const SystemError&) {  // the first failure is the one to tell
        }
        throw;
    }
}

void replaceRegular(const std::string& path, const ByteSource& source) {
    OpenFile old(path, purpose, O_WRONLY);
    const std::string target = resolved(path);
    const std::optional<struct stat> status = statusOf(target);
    // A name below /proc can lead to a file that no folder names any more.
    const bool isNamed = status && isSameFile(*status, old.status());
    if (!isNamed || !exchange(target, old, source)) overwrite(path, old, gather(source));
}

}  // namespace

void replaceFile(const std::wstring& path, const ByteSource& source) {
    const QuietWrites quiet;
    const std::string name = systemPath(path);
    const std::optional<struct stat> status = statusOf(name);
    if (!status) {
        createFile(resolved(name), source);
    } else if (S_ISDIR(status->st_mode)) {
        throwFileError(purpose, name, EISDIR);
    } else if ((status->st_mode & writeBits) == 0) {
        throwFileError(purpose, name, EACCES);
    } else if (S_ISREG(status->st_mode)) {
        replaceRegular(name, source);
    } else {
        OpenFile device(name, purpose, O_WRONLY);
        device.write(gather(source));
        finish(device);
    }
}

}  // namespace XMLConfig::detail
