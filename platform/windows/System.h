#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include "platform/Files.h"

/// The system's file calls, told of failures by exceptions. Included by the sources of this folder only.
namespace XMLConfig::detail {

/// The system's name of a path: every "/" a "\", and long paths in the form that has no limit of 260 characters.
/// Empty, which names no file, when the path holds a null character.
std::wstring systemPath(std::wstring_view path);
/// The complete path, from its drive, share or device on, as the system reads the name in the current folder.
std::wstring fullPath(std::wstring_view path);
/// Whether the attributes, as the system gives them, are those of something that exists and is no folder.
bool isFile(DWORD attributes);

class SystemError : public FileError {
public:
    SystemError(const std::wstring& message, DWORD code) : FileError(message), m_code(code) {}
    DWORD code() const { return m_code; }

private:
    DWORD m_code;
};

/// Throws SystemError "<what> <path>: <reason>", the reason in English whatever the user's language.
[[noreturn]] void throwFileError(std::wstring_view what, std::wstring_view path, DWORD error);

/// The new files of saves, until they take their place, have this before so many digits for their names.
constexpr std::wstring_view savePrefix = L".saving-";
constexpr std::size_t saveDigits = 20;

/// Null, or what tests set to be called instead of the system's ReplaceFileW.
extern decltype(&::ReplaceFileW) replaceFileCall;

/// Whether the error says that another program has the file open, as most have it for moments only.
bool isHeldByOthers(DWORD error);
/// Whether the error says that a file was not found which a save may be replacing at this moment: the system takes the old
/// file away before it puts the new one in its place.
bool isBetweenOldAndNew(const std::wstring& name, DWORD error);

/// Calls again, for a quarter of a second, while others hold the file `name`; then what the call threw is thrown.
template <typename Call>
auto triedWhileHeld(const std::wstring& name, Call call) {
    constexpr int mostTries = 25;
    constexpr DWORD milliseconds = 10;
    for (int i = 1;; ++i) {
        try {
            return call();
        } catch (const SystemError& error) {
            if (i == mostTries || !(isHeldByOthers(error.code()) || isBetweenOldAndNew(name, error.code()))) throw;
        }
        ::Sleep(milliseconds);
    }
}

struct LocalMemory {
    void operator()(void* memory) const { ::LocalFree(memory); }
};
/// A security descriptor of the kind that SECURITY_ATTRIBUTES point to.
using SecurityDescriptor = std::unique_ptr<void, LocalMemory>;

/// An open file; closed when destroyed. Whatever fails throws SystemError.
class OpenFile {
public:
    struct Mode {
        DWORD access;
        DWORD sharing;
        DWORD disposition;
        void* security = nullptr;  ///< the descriptor of a file that is made
    };

    /// `name` as systemPath gives it. Messages begin with `purpose` and name `shownAs`.
    OpenFile(const std::wstring& name, std::wstring_view purpose, std::wstring_view shownAs, const Mode& mode);
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// A file on a disk, not a device or a pipe.
    bool isOnDisk() const;
    /// The name the system reaches it by, over all links; empty where it does not tell.
    std::wstring finalName() const;
    std::int64_t size() const;
    std::size_t read(void* buffer, std::size_t size);
    void write(std::string_view bytes);
    /// Flushes it to the disk; what cannot be flushed (a pipe, a device) counts as flushed.
    void flush();
    void resize(std::int64_t size);
    /// Lets the system remove the file when it is closed, however this process ends, where the disk can do that. The file
    /// must have been opened with the right to delete it.
    void becomeTemporary();
    void becomePermanent();
    /// For a new file with the same access list; empty on a disk that keeps none.
    SecurityDescriptor accessList() const;
    /// The same with the owner, whom a new file can be given only by those whom the system lets.
    SecurityDescriptor ownerAndAccessList() const;
    /// Whether the descriptor's owner has the file; true where the disk keeps no owners.
    bool isOwnedAsIn(const SecurityDescriptor& descriptor) const;
    void rewind();
    void close();
    [[noreturn]] void fail(DWORD error) const;

private:
    SecurityDescriptor rights(DWORD parts) const;
    void seek(std::int64_t position);
    bool setRemoval(bool isRemoved);

    std::wstring m_shownAs;
    std::wstring m_purpose;
    HANDLE m_handle;
    bool m_isTemporary = false;
};

}  // namespace XMLConfig::detail
