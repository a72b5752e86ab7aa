#include <cstdint>
#include <optional>
#include <random>

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::wstring_view purpose = L"Can not write file";
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD shareReading = FILE_SHARE_READ | FILE_SHARE_DELETE;
constexpr std::wstring_view digits = L"0123456789abcdef";

/// The folder with its last separator.
std::wstring folderPart(const std::wstring& target) { return target.substr(0, target.find_last_of(L"\\:") + 1); }

/// A name that nobody can foresee: others may write in the folder too.
std::wstring secretNameBeside(const std::wstring& target) {
    std::random_device random;
    std::wstring name = folderPart(target).append(savePrefix);
    for (std::size_t i = 0; i < saveDigits; ++i) name += digits[random() % digits.size()];
    return name;
}

bool isSecretName(std::wstring_view name) {
    return name.size() == savePrefix.size() + saveDigits && name.substr(0, savePrefix.size()) == savePrefix &&
           name.find_first_not_of(digits, savePrefix.size()) == std::wstring_view::npos;
}

bool isOlderThanAnySave(const FILETIME& written) {
    constexpr std::uint64_t tenMinutes = 10ULL * 60 * 10'000'000;
    const auto ticks = [](const FILETIME& time) { return (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime; };
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    return ticks(now) > ticks(written) + tenMinutes;
}

/// Removes the new files of saves that were killed between the last byte and the place. A living writer has its file open
/// until then, and the system, when it puts the file in the place, wants nobody to have it open: only age tells.
void removeAbandonedBeside(const std::wstring& target) {
    const std::wstring folder = folderPart(target);
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((folder + std::wstring(savePrefix) + L'*').c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const bool isAbandoned =
            isFile(found.dwFileAttributes) && isSecretName(found.cFileName) && isOlderThanAnySave(found.ftLastWriteTime);
        if (isAbandoned) ::DeleteFileW((folder + found.cFileName).c_str());
    } while (::FindNextFileW(search, &found) != 0);
    ::FindClose(search);
}

void write(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
}

/// A file beside the target, until it takes the target's place. Removed otherwise, by the system too while it is written.
class NewFile {
public:
    /// A new file beside `target` with the owner and access list of `rights`.
    NewFile(const std::wstring& target, const std::wstring& shownAs, const SecurityDescriptor& rights)
        : m_target(target),
          m_shownAs(shownAs),
          m_name(secretNameBeside(target)),
          m_rights(rights),
          m_file(std::in_place, m_name, purpose, shownAs,
                 OpenFile::Mode{GENERIC_WRITE | READ_CONTROL | DELETE, 0, CREATE_NEW, rights.get()}) {
        m_file->becomeTemporary();
    }
    ~NewFile() {
        m_file.reset();  // an open file is not deleted
        if (!m_placed && !m_isOldGone) ::DeleteFileW(m_name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Throws SystemError also where the file cannot have its owner.
    void complete(const ByteSource& source) {
        if (!m_file->isOwnedAsIn(m_rights)) m_file->fail(ERROR_INVALID_OWNER);
        write(*m_file, source);
        m_file->flush();
        m_file->becomePermanent();
        m_file->close();
    }
    void placeAsNew(DWORD flags) {
        m_placed = ::MoveFileExW(m_name.c_str(), m_target.c_str(), flags | MOVEFILE_WRITE_THROUGH) != 0;
        if (!m_placed) throwFileError(purpose, m_shownAs, ::GetLastError());
    }
    /// The old file's attributes, streams and access list go over to the new one. Throws SystemError where they cannot, or
    /// where somebody lets the old file not be taken away; nothing is changed then. May be called again.
    void placeInstead() {
        if (!m_isOldGone) replaceOld();
        if (!m_placed) placeAsNew(0);
    }

private:
    /// The system may take the old file away, and then fail to put the new one in its place: what is left of the text is
    /// the new file, to be kept until it is placed.
    void replaceOld() {
        // Asked first, for a call that fails later may leave files of its own.
        { const OpenFile removable(m_target, purpose, m_shownAs, {DELETE, shareAll, OPEN_EXISTING}); }
        const auto replace = replaceFileCall != nullptr ? replaceFileCall : &::ReplaceFileW;
        m_placed = replace(m_target.c_str(), m_name.c_str(), nullptr, 0, nullptr, nullptr) != 0;
        if (m_placed) return;
        const DWORD error = ::GetLastError();
        m_isOldGone =
            ::GetFileAttributesW(m_target.c_str()) == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_FILE_NOT_FOUND;
        if (!m_isOldGone) throwFileError(purpose, m_shownAs, error);
    }

    std::wstring m_target;
    std::wstring m_shownAs;
    std::wstring m_name;
    const SecurityDescriptor& m_rights;
    std::optional<OpenFile> m_file;
    bool m_placed = false;
    bool m_isOldGone = false;
};

void createFile(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source, DWORD flags = 0) {
    removeAbandonedBeside(name);
    const SecurityDescriptor rightsOfTheFolder;
    NewFile created(name, shownAs, rightsOfTheFolder);
    created.complete(source);
    created.placeAsNew(flags);
}

/// Throws SystemError, and nothing is changed, where the folder admits no second file, or none in the place of the first.
void exchange(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    removeAbandonedBeside(name);
    const SecurityDescriptor rights = triedWhileHeld(name, [&] {
        return OpenFile(name, purpose, shownAs, {DELETE | READ_CONTROL, shareAll, OPEN_EXISTING}).ownerAndAccessList();
    });
    NewFile created(name, shownAs, rights);
    created.complete(source);
    triedWhileHeld(name, [&created] { created.placeInstead(); });
}

void put(OpenFile& file, std::string_view bytes) {
    file.rewind();
    file.write(bytes);
    file.resize(static_cast<std::int64_t>(bytes.size()));
    file.flush();
}

/// Takes the room for the new content while the old one still stands, so that a full disk is noticed in time.
void reserve(OpenFile& file, std::size_t size) {
    const std::int64_t sizeBefore = file.size();
    if (static_cast<std::int64_t>(size) <= sizeBefore) return;
    try {
        file.resize(static_cast<std::int64_t>(size));
    } catch (const SystemError&) {
        file.resize(sizeBefore);
        throw;
    }
}

void overwrite(const std::wstring& name, const std::wstring& shownAs, std::string_view bytes) {
    const std::string before = readWholeFile(name);
    OpenFile file(name, purpose, shownAs, {GENERIC_WRITE, shareReading, OPEN_EXISTING});
    reserve(file, bytes.size());
    try {
        put(file, bytes);
    } catch (const SystemError&) {
        try {
            file.resize(static_cast<std::int64_t>(before.size()));  // first, since that needs no room
            put(file, before);
        } catch (const SystemError&) {  // the caller is to learn of the first failure
        }
        throw;
    }
}

bool isLink(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// A link to nothing gets an empty target first, whose name the system then tells.
void createTargetOfLink(const std::wstring& link, const std::wstring& shownAs, const ByteSource& source) {
    std::wstring name;
    {
        const OpenFile made(link, purpose, shownAs, {GENERIC_WRITE, shareReading, OPEN_ALWAYS});
        if (::GetLastError() == ERROR_ALREADY_EXISTS) made.fail(ERROR_ALREADY_EXISTS);  // another's, and to be replaced
        name = made.finalName();
    }
    try {
        createFile(name, shownAs, source, MOVEFILE_REPLACE_EXISTING);
    } catch (...) {
        ::DeleteFileW(name.c_str());
        throw;
    }
}

/// The name over all links of a file on a disk; empty of a device or a pipe, which has been written then.
std::wstring nameOrWritten(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    OpenFile old(name, purpose, shownAs, {GENERIC_WRITE, shareReading, OPEN_EXISTING});
    if (old.isOnDisk()) return old.finalName().empty() ? name : old.finalName();
    old.write(gather(source));
    old.flush();
    return {};
}

/// Errors of a folder or of readers that forbid an exchange but may let the file be written.
bool mayBeWrittenStraight(DWORD error) {
    return error != ERROR_DISK_FULL && error != ERROR_HANDLE_DISK_FULL && error != ERROR_ALREADY_EXISTS &&
           error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND;
}

void replaceExisting(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    const std::wstring target = triedWhileHeld(name, [&] { return nameOrWritten(name, shownAs, source); });
    if (target.empty()) return;
    try {
        exchange(target, shownAs, source);
    } catch (const SystemError& refusal) {
        if (!mayBeWrittenStraight(refusal.code())) throw;
        try {
            overwrite(name, shownAs, gather(source));
        } catch (const SystemError& error) {
            // Where it cannot even be opened, why it could not be exchanged tells more.
            if (error.code() == ERROR_ACCESS_DENIED) throw refusal;
            throw;
        }
    }
}

bool isMissing(const SystemError& error) {
    return error.code() == ERROR_FILE_NOT_FOUND || error.code() == ERROR_PATH_NOT_FOUND;
}

void replaceOnce(const std::wstring& path, const ByteSource& source) {
    const std::wstring name = systemPath(path);
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && !isFile(attributes)) throwFileError(purpose, path, ERROR_DIRECTORY);
    if (isFile(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throwFileError(purpose, path, ERROR_ACCESS_DENIED);
    try {
        replaceExisting(name, path, source);
    } catch (const SystemError& error) {
        if (!isMissing(error)) throw;
        if (isLink(attributes)) {
            createTargetOfLink(name, path, source);
        } else {
            createFile(name, path, source);
        }
    }
}

}  // namespace

void replaceFile(const std::wstring& path, const ByteSource& source) {
    constexpr int mostTries = 10;
    for (int i = 1;; ++i) {
        try {
            return replaceOnce(path, source);
        } catch (const SystemError& error) {
            // Somebody else has made the file meanwhile: it is to be replaced now.
            const bool isThere = error.code() == ERROR_ALREADY_EXISTS || error.code() == ERROR_FILE_EXISTS;
            if (!isThere || i == mostTries) throw;
        }
    }
}

}  // namespace XMLConfig::detail
