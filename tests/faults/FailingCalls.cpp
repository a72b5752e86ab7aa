#include "tests/faults/FailingCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace faults {

namespace {

Plan plan;
bool isArmed = false;
std::vector<Count> seen;
int total = 0;

Count& countOf(const char* function) {
    for (Count& count : seen)
        if (count.function == function) return count;
    return seen.emplace_back(Count{function, 0});
}

/// Counts a call; the error it is to fail with, or 0.
int errorOf(const char* function) {
    if (!isArmed) return 0;
    isArmed = false;  // what is allocated here calls nothing of the system that counts
    if (++total == plan.killBefore) ::kill(::getpid(), SIGKILL);
    const int call = ++countOf(function).calls;
    isArmed = true;
    if (plan.function != function) return 0;
    return call == plan.call || (plan.isLasting && call > plan.call) ? plan.error : 0;
}

bool isNewFileRefused(int flags) {
    const bool makes = (flags & O_EXCL) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return isArmed && !plan.admitsNewFiles && makes;
}

template <typename Function>
Function real(const char* name) {
    void* const symbol = ::dlsym(RTLD_NEXT, name);
    Function function = nullptr;
    std::memcpy(&function, &symbol, sizeof function);
    return function;
}

}  // namespace

void arm(const Plan& newPlan) {
    plan = newPlan;
    seen.clear();
    total = 0;
    isArmed = true;
}

void disarm() { isArmed = false; }

std::vector<Count> counts() { return seen; }

int allCalls() { return total; }

}  // namespace faults

#define PASS_ON(result, name, parameters, arguments)                        \
    result name parameters {                                                \
        if (const int error = faults::errorOf(#name)) {                     \
            errno = error;                                                  \
            return -1;                                                      \
        }                                                                   \
        static const auto next = faults::real<result(*) parameters>(#name); \
        return next arguments;                                              \
    }

// The parameters have the types of the C library's declarations.
extern "C" {

PASS_ON(ssize_t, read, (int file, void* bytes, size_t size), (file, bytes, size))
PASS_ON(ssize_t, write, (int file, const void* bytes, size_t size), (file, bytes, size))
PASS_ON(off_t, lseek, (int file, off_t place, int from) noexcept, (file, place, from))
PASS_ON(int, stat, (const char* path, struct stat* status) noexcept, (path, status))
PASS_ON(int, lstat, (const char* path, struct stat* status) noexcept, (path, status))
PASS_ON(int, fstat, (int file, struct stat* status) noexcept, (file, status))
PASS_ON(int, fsync, (int file), (file))
PASS_ON(int, fdatasync, (int file), (file))
PASS_ON(int, fchmod, (int file, mode_t mode), (file, mode))
PASS_ON(int, fchown, (int file, uid_t user, gid_t group), (file, user, group))
PASS_ON(int, ftruncate, (int file, off_t size), (file, size))
PASS_ON(int, chmod, (const char* path, mode_t mode) noexcept, (path, mode))
PASS_ON(int, chown, (const char* path, uid_t user, gid_t group) noexcept, (path, user, group))
PASS_ON(int, rename, (const char* from, const char* to) noexcept, (from, to))
PASS_ON(int, renameat2, (int a, const char* from, int b, const char* to, unsigned flags) noexcept, (a, from, b, to, flags))
PASS_ON(int, link, (const char* from, const char* to) noexcept, (from, to))
PASS_ON(int, linkat, (int a, const char* from, int b, const char* to, int flags) noexcept, (a, from, b, to, flags))
PASS_ON(ssize_t, readlink, (const char* path, char* text, size_t size) noexcept, (path, text, size))
PASS_ON(int, unlink, (const char* path) noexcept, (path))
PASS_ON(int, unlinkat, (int folder, const char* path, int flags) noexcept, (folder, path, flags))
PASS_ON(int, mkdir, (const char* path, mode_t mode) noexcept, (path, mode))
PASS_ON(int, flock, (int file, int operation) noexcept, (file, operation))
PASS_ON(ssize_t, getxattr, (const char* path, const char* name, void* value, size_t size) noexcept,
        (path, name, value, size))
PASS_ON(ssize_t, fgetxattr, (int file, const char* name, void* value, size_t size) noexcept, (file, name, value, size))
PASS_ON(ssize_t, flistxattr, (int file, char* names, size_t size) noexcept, (file, names, size))
PASS_ON(int, fsetxattr, (int file, const char* name, const void* value, size_t size, int flags) noexcept,
        (file, name, value, size, flags))
PASS_ON(int, fremovexattr, (int file, const char* name) noexcept, (file, name))

// The file is closed whatever close() says.
int close(int file) {
    const int error = faults::errorOf("close");
    static const auto next = faults::real<int (*)(int)>("close");
    const int result = next(file);
    if (error == 0) return result;
    errno = error;
    return -1;
}

// Gives the error itself.
int posix_fallocate(int file, off_t begin, off_t size) {
    if (const int error = faults::errorOf("posix_fallocate")) return error;
    static const auto next = faults::real<int (*)(int, off_t, off_t)>("posix_fallocate");
    return next(file, begin, size);
}

int fallocate(int file, int mode, off_t begin, off_t size) {
    if (const int error = faults::errorOf("fallocate")) {
        errno = error;
        return -1;
    }
    static const auto next = faults::real<int (*)(int, int, off_t, off_t)>("fallocate");
    return next(file, mode, begin, size);
}

int open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    const int planned = faults::errorOf("open");
    if (const int error = planned != 0 ? planned : faults::isNewFileRefused(flags) ? EACCES : 0) {
        errno = error;
        return -1;
    }
    static const auto next = faults::real<int (*)(const char*, int, ...)>("open");
    return next(path, flags, mode);
}

}  // extern "C"
