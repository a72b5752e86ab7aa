#include "platform/Files.h"

#include <mutex>

#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr OpenFile::Mode toRead{GENERIC_READ, shareAll, OPEN_EXISTING};

/// A folder does not open as a file, but the reason the system then gives is a missing permission.
void refuseFolder(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(systemPath(path).c_str());
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && !isFile(attributes);
    if (isFolder) throwFileError(L"Can not read file", path, ERROR_DIRECTORY);
}

/// Threads of this process that load the same file must not deny each other.
std::mutex oneAtATime;

/// Throws SystemError where it cannot be opened at all.
bool opensForUpdate(const std::wstring& path) {
    const std::wstring name = systemPath(path);
    const OpenFile file(name, L"Can not open file", path, {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING});
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    return file.isOnDisk() && isFile(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

void copyBytes(OpenFile& source, const std::wstring& to) {
    const std::wstring target = systemPath(to);
    const SecurityDescriptor list = source.accessList();
    OpenFile copy(target, L"Can not write file", to, {GENERIC_WRITE | DELETE, 0, CREATE_NEW, list.get()});
    copy.becomeTemporary();
    try {
        char buffer[64 * 1024];
        while (const std::size_t count = source.read(buffer, sizeof buffer)) copy.write({buffer, count});
        copy.flush();
        copy.becomePermanent();
        copy.close();
    } catch (const SystemError&) {
        copy.close();  // an open file is not deleted
        ::DeleteFileW(target.c_str());
        throw;
    }
}

}  // namespace

bool canOpenForUpdate(const std::wstring& path) {
    const std::lock_guard<std::mutex> lock(oneAtATime);
    try {
        return triedWhileHeld(systemPath(path), [&] { return opensForUpdate(path); });
    } catch (const SystemError&) {
        return false;
    }
}

bool isHeldByAnother(const std::wstring& path) {
    const std::lock_guard<std::mutex> lock(oneAtATime);
    try {
        (void)opensForUpdate(path);
        return false;
    } catch (const SystemError& error) {
        return isHeldByOthers(error.code());
    }
}

struct FileReader::Handle {
    OpenFile file;
};

FileReader::FileReader(const std::wstring& path) {
    refuseFolder(path);
    const std::wstring name = systemPath(path);
    triedWhileHeld(name, [&] { m_handle.reset(new Handle{{name, L"Can not read file", path, toRead}}); });
}

FileReader::~FileReader() = default;

std::size_t FileReader::read(void* buffer, std::size_t size) { return m_handle->file.read(buffer, size); }

bool fileExists(const std::wstring& path) {
    return ::GetFileAttributesW(systemPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool makeFolder(const std::wstring& path) {
    const std::wstring name = systemPath(path);
    if (::CreateDirectoryW(name.c_str(), nullptr) != 0) return true;
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void copyToNewFile(const std::wstring& from, const std::wstring& to) {
    refuseFolder(from);
    OpenFile source(systemPath(from), L"Can not read file", from, toRead);
    copyBytes(source, to);
}

bool removeFile(const std::wstring& path) { return ::DeleteFileW(systemPath(path).c_str()) != 0; }

}  // namespace XMLConfig::detail
