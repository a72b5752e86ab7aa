#include <cerrno>
#include <optional>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/posix/FileRights.h"
#include "platform/posix/NewFile.h"
#include "platform/posix/StraightWrite.h"
#include "platform/posix/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::string_view purpose = "Can not write file";
constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) return status;
    if (errno != ENOENT) throwFileError(purpose, path, errno);
    return std::nullopt;
}

/// The text of a symbolic link; nothing when this name is no link's.
std::optional<std::string> linkText(const std::string& path) {
    std::string text(256, '\0');
    for (;;) {
        const ssize_t size = ::readlink(path.c_str(), text.data(), text.size());
        if (size < 0 && (errno == EINVAL || errno == ENOENT)) return std::nullopt;
        if (size < 0) throwFileError(purpose, path, errno);
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

/// Whether the name itself, without a link, is the open file's. One below /proc can lead to a file that no folder names.
bool isNameOf(const std::string& name, const OpenFile& file) {
    struct stat status {};
    return ::lstat(name.c_str(), &status) == 0 && isSameFile(status, file.status());
}

void write(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
}

void createFile(const std::string& target, const ByteSource& source) {
    makeBeside(target, 0666, [&source](NewFile& created) {
        write(created.file(), source);
        created.becomeTarget();
    });
}

/// Whether an error says that a second file may not stand here, though the first may be written.
bool isRefusal(int error) { return error == EACCES || error == EPERM || error == EBUSY; }

/// Flushes the new file with the rights of the old one, also with those that somebody gives that meanwhile. False where this
/// process cannot give them, or they go on changing.
bool completeLike(const OpenFile& old, FileRights rights, OpenFile& created) {
    constexpr int mostTries = 10;
    for (int i = 0; i < mostTries; ++i) {
        if (!rights.giveOwnership(created) || !rights.giveTo(created)) return false;
        created.flush();
        const std::optional<FileRights> now = FileRights::of(old);
        if (!now) return false;
        if (*now == rights) return true;
        rights = *now;
    }
    return false;
}

/// False, and nothing changed, when the folder admits no second file in the target's place, or this process cannot give
/// it the rights of the first.
bool exchange(const std::string& target, const OpenFile& old, const ByteSource& source) {
    const std::optional<FileRights> rights = FileRights::of(old);
    bool isDone = false;
    const auto writeAndPlace = [&](NewFile& created) {
        if (!rights->giveOwnership(created.file())) return;
        write(created.file(), source);
        isDone = completeLike(old, *rights, created.file());  // last, since writing may cut them
        if (isDone) created.replaceTarget();
    };
    try {
        if (rights) makeBeside(target, S_IRUSR | S_IWUSR, writeAndPlace);
    } catch (const SystemError& error) {
        if (!isRefusal(error.code())) throw;
        return false;
    }
    return isDone;
}

void replaceRegular(const std::string& path, const ByteSource& source) {
    OpenFile old(path, purpose, O_WRONLY);
    const std::string target = resolved(path);
    if (!isNameOf(target, old) || !exchange(target, old, source)) overwrite(path, old, gather(source));
}

void writeToDevice(const std::string& path, const ByteSource& source) {
    OpenFile device(path, purpose, O_WRONLY);
    device.write(gather(source));
    device.flush();
    device.close();
}

void replaceOnce(const std::string& name, const ByteSource& source) {
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
        writeToDevice(name, source);
    }
}

}  // namespace

void replaceFile(const std::wstring& path, const ByteSource& source) {
    constexpr int mostTries = 10;
    const QuietWrites quiet;
    const std::string name = systemPath(path);
    for (int i = 1;; ++i) {
        try {
            return replaceOnce(name, source);
        } catch (const SystemError& error) {
            // Somebody else has made the file meanwhile: it is to be replaced now.
            if (error.code() != EEXIST || i == mostTries) throw;
        }
    }
}

}  // namespace XMLConfig::detail
