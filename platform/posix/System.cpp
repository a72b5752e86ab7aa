#include "platform/posix/System.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace XMLConfig::detail {
namespace {

struct Reason {
    int error;
    const wchar_t* text;
};

// The C library's own texts follow the locale.
constexpr std::array<Reason, 27> reasons{{
    {EACCES, L"Permission denied"},
    {EBUSY, L"Device or resource busy"},
    {EDQUOT, L"Disk quota exceeded"},
    {EEXIST, L"File exists"},
    {EFBIG, L"File too large"},
    {EINVAL, L"Invalid argument"},
    {EIO, L"Input/output error"},
    {EISDIR, L"Is a directory"},
    {ELOOP, L"Too many levels of symbolic links"},
    {EMFILE, L"Too many open files"},
    {ENAMETOOLONG, L"File name too long"},
    {ENFILE, L"Too many open files in system"},
    {ENODEV, L"No such device"},
    {ENOENT, L"No such file or directory"},
    {ENOMEM, L"Cannot allocate memory"},
    {ENOSPC, L"No space left on device"},
    {ENOSYS, L"Function not implemented"},
    {ENOTDIR, L"Not a directory"},
    {ENOTSUP, L"Operation not supported"},
    {ENXIO, L"No such device or address"},
    {EOVERFLOW, L"Value too large"},
    {EPERM, L"Operation not permitted"},
    {EPIPE, L"Broken pipe"},
    {EROFS, L"Read-only file system"},
    {ESTALE, L"Stale file handle"},
    {ETIMEDOUT, L"Connection timed out"},
    {ETXTBSY, L"Text file busy"},
}};

std::wstring reasonText(int error) {
    const auto* const found =
        std::find_if(reasons.begin(), reasons.end(), [error](const Reason& reason) { return reason.error == error; });
    return found != reasons.end() ? found->text : L"System error " + formatInteger(error);
}

/// The result of a call that is made again while a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

}  // namespace

std::string systemPath(std::wstring_view path) {
    if (path.find(L'\0') != std::wstring_view::npos) return {};
    std::string name = toUtf8(path);
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

std::string systemFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool isSameFile(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

void throwFileError(std::string_view what, const std::string& path, int error) {
    throw SystemError(fromUtf8(what) + L' ' + fromUtf8(path) + L": " + reasonText(error), error);
}

OpenFile::OpenFile(const std::string& path, std::string_view purpose, int flags, mode_t mode, const std::string& shownAs)
    : m_path(shownAs.empty() ? path : shownAs),
      m_purpose(purpose),
      m_descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); })) {
    if (m_descriptor == -1) fail(errno);
}

OpenFile::~OpenFile() {
    if (m_descriptor != -1) ::close(m_descriptor);
}

void OpenFile::fail(int error) const { throwFileError(m_purpose, m_path, error); }

struct stat OpenFile::status() const {
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0) fail(errno);
    return status;
}

std::size_t OpenFile::read(void* buffer, std::size_t size) {
    const ssize_t count = uninterrupted([&] { return ::read(m_descriptor, buffer, size); });
    if (count == -1) fail(errno);
    return static_cast<std::size_t>(count);
}

void OpenFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(m_descriptor, bytes.data(), bytes.size()); });
        if (count == -1) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void OpenFile::flush() {
    if (uninterrupted([&] { return ::fsync(m_descriptor); }) == 0) return;
    if (errno != EINVAL && errno != ENOTSUP && errno != EROFS) fail(errno);
}

void OpenFile::resize(off_t size) {
    if (uninterrupted([&] { return ::ftruncate(m_descriptor, size); }) == -1) fail(errno);
}

void OpenFile::rewind() {
    if (::lseek(m_descriptor, 0, SEEK_SET) == -1) fail(errno);
}

void OpenFile::close() {
    // A call that a signal interrupts has closed the file all the same.
    if (::close(std::exchange(m_descriptor, -1)) == -1 && errno != EINTR) fail(errno);
}

QuietWrites::QuietWrites() {
    ::sigemptyset(&m_signals);
    ::sigaddset(&m_signals, SIGPIPE);
    ::sigaddset(&m_signals, SIGXFSZ);
    ::sigemptyset(&m_pendingBefore);
    ::pthread_sigmask(SIG_BLOCK, &m_signals, &m_maskBefore);
    ::sigpending(&m_pendingBefore);
}

QuietWrites::~QuietWrites() {
    sigset_t raisedHere;
    ::sigemptyset(&raisedHere);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        if (::sigismember(&m_pendingBefore, signal) == 0) ::sigaddset(&raisedHere, signal);
    }
    const timespec atOnce{};
    while (uninterrupted([&] { return ::sigtimedwait(&raisedHere, nullptr, &atOnce); }) > 0) {
    }
    ::pthread_sigmask(SIG_SETMASK, &m_maskBefore, nullptr);
}

}  // namespace XMLConfig::detail
