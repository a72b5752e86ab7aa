#include "platform/FileLock.h"

#include <utility>

#include "platform/Numbers.h"
#include "platform/windows/System.h"

// A named object of the system stands for the right: who makes it has it, and it goes with its last handle. It is never
// waited for, so that no thread owns it. Beside it the holder's number lies in memory that all programs of the session may
// look at; memory that all sessions share is not for every user to make.
namespace XMLConfig::detail {
namespace {

constexpr std::wstring_view purpose = L"Can not lock the folder of file";

class Handle {
public:
    explicit Handle(HANDLE value) : m_value(value) {}
    ~Handle() {
        if (isOpen()) ::CloseHandle(m_value);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE value() const { return m_value; }
    [[nodiscard]] bool isOpen() const { return m_value != nullptr && m_value != INVALID_HANDLE_VALUE; }
    void swap(Handle& other) { std::swap(m_value, other.m_value); }

private:
    HANDLE m_value;
};

/// A file or a folder, whatever others do with it meanwhile.
HANDLE lookedAt(const std::wstring& name) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return ::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                         nullptr);
}

std::wstring folderOfSystemPath(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(L"\\:");
    if (separator == std::wstring::npos) return L".";
    return path.substr(0, separator + 1);  // with it, "C:\" is the top folder and "C:" the drive's current one
}

/// The name over all links, of a file that exists; else the name as it stands.
std::wstring targetOfLinks(const std::wstring& path) {
    const Handle file(lookedAt(path));
    if (!file.isOpen()) return path;
    std::wstring name(32768, L'\0');
    const DWORD size = ::GetFinalPathNameByHandleW(file.value(), name.data(), static_cast<DWORD>(name.size()), 0);
    return size == 0 || size >= name.size() ? path : name.substr(0, size);
}

std::wstring markOfFolder(const std::wstring& path) {
    const std::wstring name = systemPath(path);
    if (name.empty()) throwFileError(purpose, path, ERROR_PATH_NOT_FOUND);
    const std::wstring folderName = folderOfSystemPath(targetOfLinks(name));
    const Handle folder(lookedAt(folderName));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!folder.isOpen() || ::GetFileInformationByHandle(folder.value(), &information) == 0)
        throwFileError(purpose, path, ::GetLastError());
    return L"XMLConfig-" + formatInteger(information.dwVolumeSerialNumber) + L"-" +
           formatInteger(information.nFileIndexHigh) + L"-" + formatInteger(information.nFileIndexLow);
}

class NumberInMemory {
public:
    NumberInMemory(HANDLE memory, DWORD access) : m_number(::MapViewOfFile(memory, access, 0, 0, sizeof(DWORD))) {}
    ~NumberInMemory() {
        if (m_number != nullptr) ::UnmapViewOfFile(m_number);
    }
    NumberInMemory(const NumberInMemory&) = delete;
    NumberInMemory& operator=(const NumberInMemory&) = delete;

    /// Null where the system gives none.
    [[nodiscard]] DWORD* get() const { return static_cast<DWORD*>(m_number); }

private:
    void* m_number;
};

/// The number is there as long as the handle is open.
HANDLE tellHolder(const std::wstring& name) {
    const HANDLE memory =
        ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(DWORD), name.c_str());
    const NumberInMemory number(memory, FILE_MAP_WRITE);
    if (number.get() != nullptr) *number.get() = ::GetCurrentProcessId();
    return memory;
}

}  // namespace

struct FileLock::Parts {
    Parts(const std::wstring& file, const std::wstring& mark)
        : path(file), name(L"Global\\" + mark), holderName(L"Local\\" + mark + L"-holder") {}

    std::wstring path;
    std::wstring name;
    std::wstring holderName;
    Handle held{nullptr};
    Handle told{nullptr};
};

FileLock::FileLock(const std::wstring& path) : m_parts(std::make_unique<Parts>(path, markOfFolder(path))) {}

FileLock::~FileLock() = default;

bool FileLock::tryTake() {
    Handle made(::CreateEventW(nullptr, TRUE, FALSE, m_parts->name.c_str()));
    const DWORD error = ::GetLastError();
    // Another user's is there too, but not to be opened.
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return false;
    if (!made.isOpen()) throwFileError(purpose, m_parts->path, error);
    m_parts->held.swap(made);
    Handle told(tellHolder(m_parts->holderName));
    m_parts->told.swap(told);
    return true;
}

long FileLock::holder() const {
    const Handle memory(::OpenFileMappingW(FILE_MAP_READ, FALSE, m_parts->holderName.c_str()));
    const NumberInMemory number(memory.value(), FILE_MAP_READ);
    return number.get() == nullptr ? 0 : static_cast<long>(*number.get());
}

}  // namespace XMLConfig::detail
