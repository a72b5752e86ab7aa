#pragma once

#include <string>
#include <string_view>

#include <signal.h>
#include <sys/stat.h>
#include <sys/types.h>

#include "platform/Files.h"

/// The system's file calls, with exceptions for failures. Only sources of this folder include it.
namespace XMLConfig::detail {

/// The system's name of a path: UTF-8, every "\" a "/". Empty, which names no file, when the path holds a null character.
std::string systemPath(std::wstring_view path);
/// The folder a file of this name stands in; "." for a bare name.
std::string systemFolder(const std::string& path);

bool isSameFile(const struct stat& left, const struct stat& right);

class SystemError : public FileError {
public:
    SystemError(const std::wstring& message, int code) : FileError(message), m_code(code) {}
    int code() const { return m_code; }

private:
    int m_code;
};

/// Throws SystemError "<what> <path>: <reason>", the reason in English whatever the locale.
[[noreturn]] void throwFileError(std::string_view what, const std::string& path, int error);

/// An open file; closed when destroyed. Whatever fails throws SystemError.
class OpenFile {
public:
    /// Opens it so that no child inherits it and no terminal becomes the process's. Messages begin with `purpose` and name
    /// `shownAs`, or the path when that is empty.
    OpenFile(const std::string& path, std::string_view purpose, int flags, mode_t mode = 0, const std::string& shownAs = {});
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int descriptor() const { return m_descriptor; }
    struct stat status() const;
    std::size_t read(void* buffer, std::size_t size);
    void write(std::string_view bytes);
    /// Flushes it to the disk; what cannot be flushed (a pipe, a device) counts as flushed.
    void flush();
    void resize(off_t size);
    void rewind();
    /// Closes it now, so that an error the system kept until then is seen.
    void close();
    [[noreturn]] void fail(int error) const;

private:
    std::string m_path;
    std::string m_purpose;
    int m_descriptor;
};

/// While it lives, a write this thread makes to a pipe without a reader or beyond a size limit fails with an error, as
/// a write to a full disk does, instead of ending the process with a signal.
class QuietWrites {
public:
    QuietWrites();
    ~QuietWrites();
    QuietWrites(const QuietWrites&) = delete;
    QuietWrites& operator=(const QuietWrites&) = delete;

private:
    sigset_t m_signals;
    sigset_t m_maskBefore;
    sigset_t m_pendingBefore;
};

}  // namespace XMLConfig::detail
