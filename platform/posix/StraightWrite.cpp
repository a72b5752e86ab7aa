#include "platform/posix/StraightWrite.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

namespace XMLConfig::detail {
namespace {

constexpr std::string_view purpose = "Can not write file";

/// The content of the open file as far as this user may read it.
std::optional<std::string> contentIfReadable(const std::string& path, const OpenFile& same) {
    try {
        OpenFile file(path, purpose, O_RDONLY | O_NONBLOCK);
        if (!isSameFile(file.status(), same.status())) return std::nullopt;
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
bool cannotReserve(int error) {
    constexpr std::array<int, 5> reasons{EINVAL, ENOTSUP, ENOSYS, ENODEV, EBADF};
    return std::find(reasons.begin(), reasons.end(), error) != reasons.end();
}

/// Takes room after the end of the file; the end stays where it is.
int takeRoom(int descriptor, off_t size) {
#if defined(FALLOC_FL_KEEP_SIZE)
    return ::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, size) == 0 ? 0 : errno;
#else
    return ::posix_fallocate(descriptor, 0, size);
#endif
}

/// Takes the room for the new content while the old one still stands, so that a full disk is noticed in time.
void reserve(OpenFile& file, std::size_t size) {
    if (size == 0) return;
    int error = EINTR;
    while (error == EINTR) error = takeRoom(file.descriptor(), static_cast<off_t>(size));
    if (error != 0 && !cannotReserve(error)) file.fail(error);
}

void put(OpenFile& file, std::string_view bytes) {
    file.rewind();
    file.write(bytes);
    file.resize(static_cast<off_t>(bytes.size()));
    file.flush();
}

bool isCut(OpenFile& file, off_t size) {
    try {
        file.resize(size);
        return true;
    } catch (const SystemError&) {
        return file.status().st_size <= size;
    }
}

/// Puts back as much as the disk still takes; the length first, since that needs no room. The old text would not be whole
/// in a file that cannot be made as short as it was, but the new one may be.
void putBack(OpenFile& file, const std::optional<std::string>& before, off_t sizeBefore) {
    try {
        if (isCut(file, sizeBefore) && before) put(file, *before);
    } catch (const SystemError&) {  // the caller is to learn of the first failure
    }
}

/// A write cuts the bits by which a program takes its owner's or group's rights.
void restoreMode(OpenFile& file, mode_t mode) {
    if (file.status().st_mode != mode) ::fchmod(file.descriptor(), mode & 07777);
}

}  // namespace

void overwrite(const std::string& path, OpenFile& file, std::string_view bytes) {
    const struct stat status = file.status();
    const std::optional<std::string> before = contentIfReadable(path, file);
    bool isTouched = false;
    try {
        reserve(file, bytes.size());
        isTouched = true;
        put(file, bytes);
    } catch (const SystemError&) {
        putBack(file, isTouched ? before : std::nullopt, status.st_size);
        restoreMode(file, status.st_mode);
        throw;
    }
    restoreMode(file, status.st_mode);
}

}  // namespace XMLConfig::detail
