#include "platform/windows/System.h"

#include <algorithm>
#include <array>
#include <utility>

#include <aclapi.h>

#include "platform/Numbers.h"

namespace XMLConfig::detail {
namespace {

struct Reason {
    DWORD error;
    const wchar_t* text;
};

// The system's own texts follow the user's language.
constexpr std::array<Reason, 23> reasons{{
    {ERROR_FILE_NOT_FOUND, L"No such file or directory"},
    {ERROR_PATH_NOT_FOUND, L"No such file or directory"},
    {ERROR_TOO_MANY_OPEN_FILES, L"Too many open files"},
    {ERROR_ACCESS_DENIED, L"Permission denied"},
    {ERROR_NOT_ENOUGH_MEMORY, L"Cannot allocate memory"},
    {ERROR_INVALID_DRIVE, L"No such drive"},
    {ERROR_WRITE_PROTECT, L"Read-only file system"},
    {ERROR_NOT_READY, L"Device not ready"},
    {ERROR_CRC, L"Input/output error"},
    {ERROR_SHARING_VIOLATION, L"The file is in use"},
    {ERROR_LOCK_VIOLATION, L"The file is locked"},
    {ERROR_HANDLE_DISK_FULL, L"No space left on device"},
    {ERROR_BAD_NETPATH, L"The network path was not found"},
    {ERROR_FILE_EXISTS, L"File exists"},
    {ERROR_BROKEN_PIPE, L"Broken pipe"},
    {ERROR_DISK_FULL, L"No space left on device"},
    {ERROR_INVALID_NAME, L"Invalid file name"},
    {ERROR_ALREADY_EXISTS, L"File exists"},
    {ERROR_FILENAME_EXCED_RANGE, L"File name too long"},
    {ERROR_DIRECTORY, L"Is a directory"},
    {ERROR_IO_DEVICE, L"Input/output error"},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, L"The file is in use"},
    {ERROR_INVALID_OWNER, L"Operation not permitted"},
}};

std::wstring reasonText(DWORD error) {
    for (const Reason& reason : reasons)
        if (reason.error == error) return reason.text;
    return L"System error " + formatInteger(error);
}

/// A system call that fills a buffer and tells the size it would need.
template <typename Call>
std::wstring filled(Call call) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = call(text.data(), static_cast<DWORD>(text.size()));
        if (size < text.size()) return text.substr(0, size);
        text.resize(size + 1);
    }
}

constexpr DWORD mostAtOnce = 1 << 20;

HANDLE opened(const std::wstring& name, const OpenFile::Mode& mode) {
    SECURITY_ATTRIBUTES security{sizeof security, mode.security, FALSE};
    return ::CreateFileW(name.c_str(), mode.access, mode.sharing, mode.security == nullptr ? nullptr : &security,
                         mode.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

// Without a value of its own: that would be given in the program's start, when objects may be saved already.
decltype(&::ReplaceFileW) replaceFileCall;

std::wstring fullPath(std::wstring_view path) {
    const std::wstring name(path);
    return filled([&](wchar_t* buffer, DWORD size) { return ::GetFullPathNameW(name.c_str(), size, buffer, nullptr); });
}

std::wstring systemPath(std::wstring_view path) {
    constexpr std::size_t longest = 259;
    constexpr std::size_t longestShortPath = longest - saveDigits - savePrefix.size();  // a save makes a file beside it
    if (path.empty() || path.find(L'\0') != std::wstring_view::npos) return {};
    std::wstring name(path);
    std::replace(name.begin(), name.end(), L'/', L'\\');
    if (name.compare(0, 4, L"\\\\?\\") == 0 || name.compare(0, 4, L"\\\\.\\") == 0) return name;
    // A short name may stand for a long path: the current folder counts.
    const std::wstring full = fullPath(name);
    if (full.size() < longestShortPath) return name;
    const bool isShare = full.compare(0, 2, L"\\\\") == 0;
    return isShare ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

bool isFile(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void throwFileError(std::wstring_view what, std::wstring_view path, DWORD error) {
    const std::wstring name(path.substr(0, path.find(L'\0')));
    throw SystemError(std::wstring(what) + L' ' + name + L": " + reasonText(error), error);
}

bool isHeldByOthers(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_UNABLE_TO_REMOVE_REPLACED;
}

bool isBetweenOldAndNew(const std::wstring& name, DWORD error) {
    if (error != ERROR_FILE_NOT_FOUND) return false;
    WIN32_FIND_DATAW found{};
    const std::wstring saves = name.substr(0, name.find_last_of(L"\\:") + 1) + std::wstring(savePrefix) + L'*';
    const HANDLE search = ::FindFirstFileW(saves.c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) return ::FindClose(search) != 0;
    return ::GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;  // in its place meanwhile
}

OpenFile::OpenFile(const std::wstring& name, std::wstring_view purpose, std::wstring_view shownAs, const Mode& mode)
    : m_shownAs(shownAs), m_purpose(purpose), m_handle(opened(name, mode)) {
    if (m_handle == INVALID_HANDLE_VALUE) fail(::GetLastError());
}

OpenFile::~OpenFile() {
    if (m_handle != INVALID_HANDLE_VALUE) ::CloseHandle(m_handle);
}

void OpenFile::fail(DWORD error) const { throwFileError(m_purpose, m_shownAs, error); }

bool OpenFile::isOnDisk() const { return ::GetFileType(m_handle) == FILE_TYPE_DISK; }

std::wstring OpenFile::finalName() const {
    return filled([this](wchar_t* buffer, DWORD size) { return ::GetFinalPathNameByHandleW(m_handle, buffer, size, 0); });
}

std::int64_t OpenFile::size() const {
    LARGE_INTEGER size{};
    if (::GetFileSizeEx(m_handle, &size) == 0) fail(::GetLastError());
    return size.QuadPart;
}

std::size_t OpenFile::read(void* buffer, std::size_t size) {
    DWORD count = 0;
    const auto most = static_cast<DWORD>(std::min<std::size_t>(size, mostAtOnce));
    if (::ReadFile(m_handle, buffer, most, &count, nullptr) == 0 && ::GetLastError() != ERROR_BROKEN_PIPE)
        fail(::GetLastError());
    return count;
}

void OpenFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto most = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), mostAtOnce));
        if (::WriteFile(m_handle, bytes.data(), most, &count, nullptr) == 0) fail(::GetLastError());
        if (count == 0) fail(ERROR_DISK_FULL);
        bytes.remove_prefix(count);
    }
}

void OpenFile::flush() {
    if (::FlushFileBuffers(m_handle) == 0 && isOnDisk()) fail(::GetLastError());
}

void OpenFile::seek(std::int64_t position) {
    LARGE_INTEGER to{};
    to.QuadPart = position;
    if (::SetFilePointerEx(m_handle, to, nullptr, FILE_BEGIN) == 0) fail(::GetLastError());
}

void OpenFile::resize(std::int64_t size) {
    seek(size);
    if (::SetEndOfFile(m_handle) == 0) fail(::GetLastError());
}

bool OpenFile::setRemoval(bool isRemoved) {
    FILE_DISPOSITION_INFO information{};
    information.DeleteFile = isRemoved ? TRUE : FALSE;
    return ::SetFileInformationByHandle(m_handle, FileDispositionInfo, &information, sizeof information) != 0;
}

void OpenFile::becomeTemporary() { m_isTemporary = setRemoval(true); }

void OpenFile::becomePermanent() {
    if (m_isTemporary && !setRemoval(false)) fail(::GetLastError());
    m_isTemporary = false;
}

SecurityDescriptor OpenFile::accessList() const { return rights(DACL_SECURITY_INFORMATION); }

SecurityDescriptor OpenFile::ownerAndAccessList() const {
    return rights(OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION);
}

bool OpenFile::isOwnedAsIn(const SecurityDescriptor& descriptor) const {
    const SecurityDescriptor own = ownerAndAccessList();
    if (!descriptor || !own) return true;
    BOOL isDefault = FALSE;
    PSID theirs = nullptr;
    PSID ours = nullptr;
    return ::GetSecurityDescriptorOwner(descriptor.get(), &theirs, &isDefault) != 0 &&
           ::GetSecurityDescriptorOwner(own.get(), &ours, &isDefault) != 0 && theirs != nullptr && ours != nullptr &&
           ::EqualSid(theirs, ours) != 0;
}

SecurityDescriptor OpenFile::rights(DWORD parts) const {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = ::GetSecurityInfo(m_handle, SE_FILE_OBJECT, parts, nullptr, nullptr, nullptr, nullptr, &descriptor);
    if (error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION) return nullptr;
    if (error != ERROR_SUCCESS) fail(error);
    // The folder shall add nothing to it.
    ::SetSecurityDescriptorControl(descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
    return SecurityDescriptor(descriptor);
}

void OpenFile::rewind() { seek(0); }

void OpenFile::close() {
    if (m_handle == INVALID_HANDLE_VALUE) return;
    if (::CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE)) == 0) fail(::GetLastError());
}

}  // namespace XMLConfig::detail
