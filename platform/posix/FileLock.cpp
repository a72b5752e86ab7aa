#include "platform/FileLock.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/Cancellation.h"
#include "platform/posix/System.h"

// Two things are taken, always in this order. The folder itself is locked, which every process of this machine sees that
// may open the folder, whatever container it runs in. And a name that the system keeps in memory is taken, which serves
// those who may go through a folder without opening it: each must meet what all the others have taken.
namespace XMLConfig::detail {
namespace {

constexpr std::string_view purpose = "Can not lock the folder of file";

class OwnedDescriptor {
public:
    explicit OwnedDescriptor(int value = -1) : m_value(value) {}
    ~OwnedDescriptor() {
        if (m_value != -1) ::close(m_value);
    }
    OwnedDescriptor(OwnedDescriptor&& other) noexcept : m_value(std::exchange(other.m_value, -1)) {}
    OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
        std::swap(m_value, other.m_value);
        return *this;
    }

    [[nodiscard]] int value() const { return m_value; }
    [[nodiscard]] bool isOpen() const { return m_value != -1; }

private:
    int m_value;
};

/// What came of an attempt. Where the system denies the folder's lock or the name, the other of the two is enough.
enum class Attempt { Taken, Busy, NotToBeHad };

bool isShortage(int error) { return error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS; }

Attempt notToBeHad(const std::string& path, int error) {
    if (isShortage(error)) throwFileError(purpose, path, error);
    return Attempt::NotToBeHad;
}

int lockFolder(int folder) {
    int result = ::flock(folder, LOCK_EX | LOCK_NB);
    while (result == -1 && errno == EINTR) result = ::flock(folder, LOCK_EX | LOCK_NB);
    return result;
}

/// The name of a symbolic link's target; empty when there is no such link.
std::string linkTarget(const std::string& path) {
    constexpr std::size_t longest = 4096;
    std::string text(longest, '\0');
    const ssize_t size = ::readlink(path.c_str(), text.data(), text.size());
    if (size <= 0) return {};
    text.resize(static_cast<std::size_t>(size));
    return text.front() == '/' ? text : systemFolder(path) + "/" + text;
}

/// The folder of the file that a name leads to, which need not exist.
std::string folderOfTarget(std::string path) {
    constexpr int mostLinks = 40;
    std::string target = linkTarget(path);
    for (int i = 0; i < mostLinks && !target.empty(); ++i) {
        path = std::move(target);
        target = linkTarget(path);
    }
    return systemFolder(path);
}

#if defined(__linux__)

/// The name in memory that stands for a folder. It belongs to no file system and goes with its last holder.
class FolderName {
public:
    explicit FolderName(const struct stat& folder) {
        const std::string text =
            "XMLConfig/" + std::to_string(folder.st_dev) + "/" + std::to_string(folder.st_ino) + "/writer";
        m_address.sun_family = AF_UNIX;
        text.copy(m_address.sun_path + 1, sizeof m_address.sun_path - 1);
        m_size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    }

    [[nodiscard]] OwnedDescriptor socket() const {
        return OwnedDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    }
    [[nodiscard]] int bind(const OwnedDescriptor& socket) const { return ::bind(socket.value(), generic(), m_size); }
    [[nodiscard]] int connect(const OwnedDescriptor& socket) const { return ::connect(socket.value(), generic(), m_size); }

private:
    [[nodiscard]] const sockaddr* generic() const { return reinterpret_cast<const sockaddr*>(&m_address); }

    sockaddr_un m_address{};
    socklen_t m_size = 0;
};

/// Takes the name and listens at it, so that the system can tell others which process has it.
Attempt takeName(const std::string& path, const struct stat& folder, OwnedDescriptor& taken) {
    const FolderName name(folder);
    OwnedDescriptor socket = name.socket();
    if (!socket.isOpen()) return notToBeHad(path, errno);
    if (name.bind(socket) == -1) return errno == EADDRINUSE ? Attempt::Busy : notToBeHad(path, errno);
    if (::listen(socket.value(), SOMAXCONN) == -1) return notToBeHad(path, errno);
    taken = std::move(socket);
    return Attempt::Taken;
}

long holderOf(const struct stat& folder) {
    const FolderName name(folder);
    const OwnedDescriptor socket = name.socket();
    ucred peer{};
    socklen_t size = sizeof peer;
    if (!socket.isOpen() || name.connect(socket) == -1) return 0;
    return ::getsockopt(socket.value(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? peer.pid : 0;
}

#else

Attempt takeName(const std::string&, const struct stat&, OwnedDescriptor&) { return Attempt::NotToBeHad; }
long holderOf(const struct stat&) { return 0; }

#endif

}  // namespace

struct FileLock::Parts {
    std::string path;
    std::string folder;
    struct stat status {};
    OwnedDescriptor locked;
    OwnedDescriptor named;

    [[nodiscard]] Attempt takeFolder(OwnedDescriptor& taken) const {
        OwnedDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!opened.isOpen()) return notToBeHad(path, errno);
        if (lockFolder(opened.value()) == -1) return errno == EWOULDBLOCK ? Attempt::Busy : notToBeHad(path, errno);
        taken = std::move(opened);
        return Attempt::Taken;
    }
};

FileLock::FileLock(const std::wstring& path) : m_parts(std::make_unique<Parts>()) {
    const HeldCancellation held;
    m_parts->path = systemPath(path);
    m_parts->folder = folderOfTarget(m_parts->path);
    if (m_parts->path.empty()) throwFileError(purpose, m_parts->path, ENOENT);
    if (::stat(m_parts->folder.c_str(), &m_parts->status) != 0) throwFileError(purpose, m_parts->path, errno);
}

// A thread that is cancelled while a destructor closes something ends the program.
FileLock::~FileLock() {
    const HeldCancellation held;
    m_parts.reset();
}

// An attempt that does not succeed, or that ends with an exception, gives back what it has taken.
bool FileLock::tryTake() {
    const HeldCancellation held;
    OwnedDescriptor locked;
    OwnedDescriptor named;
    const Attempt folder = m_parts->takeFolder(locked);
    if (folder == Attempt::Busy) return false;
    const Attempt name = takeName(m_parts->path, m_parts->status, named);
    if (name == Attempt::Busy) return false;
    if (folder == Attempt::NotToBeHad && name == Attempt::NotToBeHad) throwFileError(purpose, m_parts->path, ENOTSUP);
    m_parts->locked = std::move(locked);
    m_parts->named = std::move(named);
    return true;
}

long FileLock::holder() const {
    const HeldCancellation held;
    return holderOf(m_parts->status);
}

}  // namespace XMLConfig::detail
