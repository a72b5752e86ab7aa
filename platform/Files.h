#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

/// Files by wide path. On platforms whose separator is "/", a "\" in the path counts as one.
namespace XMLConfig::detail {

/// What went wrong, with the path, as UTF-8 (what()) and wide.
class FileError : public std::runtime_error {
public:
    explicit FileError(const std::wstring& message);
    [[nodiscard]] const std::wstring& message() const { return m_message; }

private:
    std::wstring m_message;
};

/// Whether the path names a regular file that may be read and written now, as a mode "r+" open that denies other
/// writers tells. A file without any write permission bit is refused, for the superuser too; so are folders.
bool canOpenForUpdate(const std::wstring& path);
/// Whether canOpenForUpdate() says no because another program has the file open; false on systems where none can be told.
bool isHeldByAnother(const std::wstring& path);

/// Reads a file from start to end. Closes it when destroyed.
class FileReader {
public:
    /// Throws FileError when the file cannot be opened for reading.
    explicit FileReader(const std::wstring& path);
    ~FileReader();
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;
    /// Reads up to `size` bytes into `buffer`; 0 at the end. Throws FileError when reading fails.
    std::size_t read(void* buffer, std::size_t size);

private:
    struct Handle;
    std::unique_ptr<Handle> m_handle;
};

/// The whole file. Throws FileError.
std::string readWholeFile(const std::wstring& path);

/// Takes a piece of a file's bytes. The view is good during the call.
using ByteSink = std::function<void(std::string_view)>;
/// Gives all the bytes of a file, piece by piece and in order. May be asked more than once and gives the same again.
using ByteSource = std::function<void(const ByteSink&)>;

/// All that a source gives.
std::string gather(const ByteSource& source);

/// Replaces the file's content, all or nothing: the bytes are written completely to a new file in the same folder,
/// flushed to the disk, and that file takes the target's place. It has the target's owner, group, mode, access list and
/// attributes (a new file gets 0666 less the umask). A symbolic link is followed (a dangling one gets its target made); of
/// several hard links only this one leads to the new file. A target that may not be written (no write permission bit, for
/// the superuser too) is refused. Where the folder admits no second file, this process cannot give it the target's rights,
/// or the target is no regular file (a device, a pipe), the bytes are written straight to it.
/// On failure throws FileError, or what the source throws; an old file stands as it was and no other file is left.
/// Removes what saves that were killed have left in the folder.
void replaceFile(const std::wstring& path, const ByteSource& source);
void replaceFile(const std::wstring& path, std::string_view bytes);

bool fileExists(const std::wstring& path);  ///< anything of that name, folders included
/// Makes one folder; true when it exists afterwards.
bool makeFolder(const std::wstring& path);
/// Makes a folder and those above it; true when it exists afterwards.
bool makeFolders(const std::wstring& path);
/// Copies a file's bytes and rights to a new file that must not exist yet, flushed to the disk. Nobody but this user may
/// do more with the copy than with the source. Where the copy cannot get the source's owner, an access list lets him in
/// if the disk keeps such lists. Throws FileError, and leaves no part of the copy.
void copyToNewFile(const std::wstring& from, const std::wstring& to);
bool removeFile(const std::wstring& path);  ///< true when it was there and is gone

}  // namespace XMLConfig::detail
