#include "platform/CreateFile.h"

#include <cerrno>
#include <optional>

#include <fcntl.h>

#include "platform/posix/FileRights.h"
#include "platform/posix/NewFile.h"

namespace XMLConfig::detail {

bool createFile(const std::wstring& path, const ByteSource& source, const std::wstring& rightsOf) {
    const QuietWrites quiet;
    const std::string target = systemPath(path);
    struct stat status {};
    if (::lstat(target.c_str(), &status) == 0) return false;
    std::optional<OpenFile> model;
    if (!rightsOf.empty()) model.emplace(systemPath(rightsOf), "Can not read file", O_RDONLY);
    try {
        makeBeside(target, model ? S_IRUSR | S_IWUSR : 0666, [&](NewFile& created) {
            source([&created](std::string_view bytes) { created.file().write(bytes); });
            if (model) giveRights(*model, created.file());
            created.becomeTarget();
        });
    } catch (const SystemError& error) {
        if (error.code() != EEXIST) throw;
        return false;
    }
    return true;
}

}  // namespace XMLConfig::detail
