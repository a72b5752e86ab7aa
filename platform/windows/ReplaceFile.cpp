#include <optional>
#include <random>

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

constexpr std::wstring_view purpose = L"Can not write file";
constexpr DWORD shareReading = FILE_SHARE_READ | FILE_SHARE_DELETE;

/// A name that nobody can foresee: others may write in the folder too.
std::wstring secretNameBeside(const std::wstring& target) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    constexpr int length = 20;
    std::random_device random;
    const std::size_t separator = target.find_last_of(L"\\:");
    std::wstring name = target.substr(0, separator + 1) + L".saving-";
    for (int i = 0; i < length; ++i) name += digits[random() % digits.size()];
    return name;
}

void write(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
}

/// A file beside the target, until it takes the target's place. Removed otherwise.
class NewFile {
public:
    NewFile(const std::wstring& target, const std::wstring& shownAs)
        : m_target(target),
          m_shownAs(shownAs),
          m_name(secretNameBeside(target)),
          m_file(std::in_place, m_name, purpose, shownAs, OpenFile::Mode{GENERIC_WRITE, 0, CREATE_NEW}) {}
    ~NewFile() {
        m_file.reset();  // an open file is not deleted
        if (!m_placed) ::DeleteFileW(m_name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void complete(const ByteSource& source) {
        write(*m_file, source);
        m_file->flush();
        m_file->close();
    }
    void placeAsNew() {
        constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        m_placed = ::MoveFileExW(m_name.c_str(), m_target.c_str(), flags) != 0;
        if (!m_placed) throwFileError(purpose, m_shownAs, ::GetLastError());
    }
    /// The old file's attributes and access list go over to the new one where the file system can do that.
    void placeInstead() {
        constexpr DWORD flags = REPLACEFILE_IGNORE_MERGE_ERRORS;
        m_placed = ::ReplaceFileW(m_target.c_str(), m_name.c_str(), nullptr, flags, nullptr, nullptr) != 0;
        if (!m_placed) placeAsNew();
    }

private:
    std::wstring m_target;
    std::wstring m_shownAs;
    std::wstring m_name;
    std::optional<OpenFile> m_file;
    bool m_placed = false;
};

void createFile(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    NewFile created(name, shownAs);
    created.complete(source);
    created.placeAsNew();
}

/// False, and nothing changed, when the folder admits no second file.
bool exchange(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    std::optional<NewFile> created;
    try {
        created.emplace(name, shownAs);
    } catch (const SystemError& error) {
        if (error.code() != ERROR_ACCESS_DENIED) throw;
        return false;
    }
    created->complete(source);
    created->placeInstead();
    return true;
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
            put(file, before);
        } catch (const SystemError&) {  // the first failure is the one to tell
        }
        throw;
    }
}

bool isLink(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// A link to nothing gets an empty target first, whose name the system then tells.
void createBehindLink(const std::wstring& link, const std::wstring& shownAs, const ByteSource& source) {
    std::wstring name;
    {
        const OpenFile made(link, purpose, shownAs, {GENERIC_WRITE, shareReading, OPEN_ALWAYS});
        name = made.finalName();
    }
    try {
        createFile(name, shownAs, source);
    } catch (...) {
        ::DeleteFileW(name.c_str());
        throw;
    }
}

void replaceExisting(const std::wstring& name, const std::wstring& shownAs, const ByteSource& source) {
    std::wstring target;
    {
        OpenFile old(name, purpose, shownAs, {GENERIC_WRITE, shareReading, OPEN_EXISTING});
        if (!old.isOnDisk()) {
            old.write(gather(source));
            old.flush();
            return;
        }
        target = old.finalName();
    }
    if (!exchange(target, shownAs, source)) overwrite(target, shownAs, gather(source));
}

bool isMissing(const SystemError& error) {
    return error.code() == ERROR_FILE_NOT_FOUND || error.code() == ERROR_PATH_NOT_FOUND;
}

}  // namespace

void replaceFile(const std::wstring& path, const ByteSource& source) {
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
            createBehindLink(name, path, source);
        } else {
            createFile(name, path, source);
        }
    }
}

}  // namespace XMLConfig::detail
