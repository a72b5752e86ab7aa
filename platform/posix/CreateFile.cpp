#include "platform/CreateFile.h"

#include <cerrno>

#include "platform/posix/NewFile.h"

namespace XMLConfig::detail {

bool createFile(const std::wstring& path, const ByteSource& source) {
    const QuietWrites quiet;
    const std::string target = systemPath(path);
    struct stat status {};
    if (::lstat(target.c_str(), &status) == 0) return false;
    try {
        makeBeside(target, 0666, [&source](NewFile& created) {
            source([&created](std::string_view bytes) { created.file().write(bytes); });
            created.becomeTarget();
        });
    } catch (const SystemError& error) {
        if (error.code() != EEXIST) throw;
        return false;
    }
    return true;
}

}  // namespace XMLConfig::detail
