#include "tests/support/posix/SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

namespace {

thread_local SystemCallWatch* current = nullptr;

/// The C library's own function, which the one of that name here hides.
template <typename Function>
Function* original(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

SystemCallWatch::SystemCallWatch(Answer answer) : m_answer(std::move(answer)), m_before(current) { current = this; }
SystemCallWatch::~SystemCallWatch() { current = m_before; }

int SystemCallWatch::count(const std::string& name) const {
    return static_cast<int>(
        std::count_if(m_calls.begin(), m_calls.end(), [&name](const SystemCall& call) { return call.name == name; }));
}

/// What the answer itself calls is not watched.
int answerTo(const SystemCall& call) {
    SystemCallWatch* const watch = current;
    current = nullptr;
    watch->m_calls.push_back(call);
    const int error = watch->m_answer(call);
    current = watch;
    return error;
}

namespace {

/// True for a call that shall fail; errno says how.
bool fails(const char* name, const char* path, int descriptor, int flags = 0) {
    if (current == nullptr) return false;
    const int errorBefore = errno;
    const int error = answerTo({name, path == nullptr ? "" : path, descriptor, flags});
    errno = error == 0 ? errorBefore : error;
    return error != 0;
}

}  // namespace

// The linker finds these before the C library's.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    static auto* const call = original<int(const char*, int, ...)>("open");
    return fails("open", path, -1, flags) ? -1 : call(path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static auto* const call = original<ssize_t(int, const void*, size_t)>("write");
    return fails("write", nullptr, descriptor) ? -1 : call(descriptor, bytes, size);
}

int close(int descriptor) {
    static auto* const call = original<int(int)>("close");
    const bool isFailing = fails("close", nullptr, descriptor);
    const int error = errno;
    const int result = call(descriptor);  // a descriptor is gone after a failing close too
    if (isFailing) errno = error;
    return isFailing ? -1 : result;
}

int fcntl(int descriptor, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);  // a number fits too, and where there is none it is not looked at
    va_end(arguments);
    static auto* const call = original<int(int, int, ...)>("fcntl");
    return fails("fcntl", nullptr, descriptor) ? -1 : call(descriptor, command, argument);
}

int fsync(int descriptor) {
    static auto* const call = original<int(int)>("fsync");
    return fails("fsync", nullptr, descriptor) ? -1 : call(descriptor);
}

int ftruncate(int descriptor, off_t size) noexcept {
    static auto* const call = original<int(int, off_t)>("ftruncate");
    return fails("ftruncate", nullptr, descriptor) ? -1 : call(descriptor, size);
}

int fallocate(int descriptor, int mode, off_t from, off_t size) {
    static auto* const call = original<int(int, int, off_t, off_t)>("fallocate");
    return fails("fallocate", nullptr, descriptor) ? -1 : call(descriptor, mode, from, size);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    static auto* const call = original<int(int, mode_t)>("fchmod");
    return fails("fchmod", nullptr, descriptor) ? -1 : call(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
    static auto* const call = original<int(int, uid_t, gid_t)>("fchown");
    return fails("fchown", nullptr, descriptor) ? -1 : call(descriptor, owner, group);
}

int rename(const char* from, const char* to) noexcept {
    static auto* const call = original<int(const char*, const char*)>("rename");
    return fails("rename", from, -1) ? -1 : call(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) noexcept {
    static auto* const call = original<int(int, const char*, int, const char*, unsigned int)>("renameat2");
    return fails("renameat2", from, -1) ? -1 : call(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    static auto* const call = original<int(const char*, const char*)>("link");
    return fails("link", from, -1) ? -1 : call(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    static auto* const call = original<int(int, const char*, int, const char*, int)>("linkat");
    return fails("linkat", from, -1) ? -1 : call(fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept {
    static auto* const call = original<int(const char*)>("unlink");
    return fails("unlink", path, -1) ? -1 : call(path);
}

ssize_t readlink(const char* path, char* text, size_t size) noexcept {
    static auto* const call = original<ssize_t(const char*, char*, size_t)>("readlink");
    return fails("readlink", path, -1) ? -1 : call(path, text, size);
}

#if defined(__linux__)

ssize_t flistxattr(int descriptor, char* names, size_t size) noexcept {
    static auto* const call = original<ssize_t(int, char*, size_t)>("flistxattr");
    return fails("flistxattr", nullptr, descriptor) ? -1 : call(descriptor, names, size);
}

ssize_t fgetxattr(int descriptor, const char* name, void* value, size_t size) noexcept {
    static auto* const call = original<ssize_t(int, const char*, void*, size_t)>("fgetxattr");
    return fails("fgetxattr", name, descriptor) ? -1 : call(descriptor, name, value, size);
}

int fsetxattr(int descriptor, const char* name, const void* value, size_t size, int flags) noexcept {
    static auto* const call = original<int(int, const char*, const void*, size_t, int)>("fsetxattr");
    return fails("fsetxattr", name, descriptor) ? -1 : call(descriptor, name, value, size, flags);
}

int fremovexattr(int descriptor, const char* name) noexcept {
    static auto* const call = original<int(int, const char*)>("fremovexattr");
    return fails("fremovexattr", name, descriptor) ? -1 : call(descriptor, name);
}

#endif

}  // extern "C"
