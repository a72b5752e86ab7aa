#include "platform/CreateFile.h"

#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

void complete(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
    file.flush();
    file.becomePermanent();
    file.close();
}

}  // namespace

bool createFile(const std::wstring& path, const ByteSource& source) {
    const std::wstring target = systemPath(path);
    try {
        OpenFile file(target, L"Can not write file", path, {GENERIC_WRITE | DELETE, 0, CREATE_NEW});
        file.becomeTemporary();
        try {
            complete(file, source);
        } catch (...) {
            file.close();  // an open file is not deleted
            ::DeleteFileW(target.c_str());
            throw;
        }
    } catch (const SystemError& error) {
        if (error.code() != ERROR_FILE_EXISTS && error.code() != ERROR_ALREADY_EXISTS) throw;
        return false;
    }
    return true;
}

}  // namespace XMLConfig::detail
