#include "platform/Files.h"

#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/posix/FileRights.h"
#include "platform/posix/NewFile.h"
#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;

bool isWritableRegular(const struct stat& status) { return S_ISREG(status.st_mode) && (status.st_mode & writeBits) != 0; }

/// A shared lock, so that threads of this process that load the same file do not deny each other.
bool anotherHoldsIt(int descriptor) { return ::flock(descriptor, LOCK_SH | LOCK_NB) == -1 && errno == EWOULDBLOCK; }

void copyBytes(OpenFile& source, OpenFile& copy) {
    char buffer[64 * 1024];
    while (const std::size_t count = source.read(buffer, sizeof buffer)) copy.write({buffer, count});
}

}  // namespace

bool canOpenForUpdate(const std::wstring& path) {
    const std::string name = systemPath(path);
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0 || !isWritableRegular(status)) return false;
    try {
        const OpenFile file(name, "Can not open file", O_RDWR | O_NONBLOCK);
        return isWritableRegular(file.status()) && !anotherHoldsIt(file.descriptor());
    } catch (const FileError&) {
        return false;
    }
}

bool isHeldByAnother(const std::wstring& /*path*/) { return false; }

struct FileReader::Handle {
    OpenFile file;
};

FileReader::FileReader(const std::wstring& path) : m_handle(new Handle{{systemPath(path), "Can not read file", O_RDONLY}}) {
    if (S_ISDIR(m_handle->file.status().st_mode)) m_handle->file.fail(EISDIR);
}

FileReader::~FileReader() = default;

std::size_t FileReader::read(void* buffer, std::size_t size) { return m_handle->file.read(buffer, size); }

bool fileExists(const std::wstring& path) {
    struct stat status {};
    return ::stat(systemPath(path).c_str(), &status) == 0;
}

bool makeFolder(const std::wstring& path) {
    const std::string name = systemPath(path);
    if (::mkdir(name.c_str(), 0777) == 0) return true;
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void copyToNewFile(const std::wstring& from, const std::wstring& to) {
    const QuietWrites quiet;
    const std::string target = systemPath(to);
    OpenFile source(systemPath(from), "Can not read file", O_RDONLY);
    if (S_ISDIR(source.status().st_mode)) source.fail(EISDIR);
    makeBeside(target, S_IRUSR | S_IWUSR, [&source](NewFile& copy) {
        source.rewind();
        copyBytes(source, copy.file());
        giveRights(source, copy.file());
        copy.becomeTarget();
    });
}

bool removeFile(const std::wstring& path) { return ::unlink(systemPath(path).c_str()) == 0; }

}  // namespace XMLConfig::detail
