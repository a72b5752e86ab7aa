#include "platform/CreateFile.h"

#include "platform/windows/System.h"

namespace XMLConfig::detail {
namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

void complete(OpenFile& file, const ByteSource& source) {
    source([&file](std::string_view bytes) { file.write(bytes); });
    file.flush();
    file.becomePermanent();
    file.close();
}

SecurityDescriptor accessListOf(const std::wstring& path) {
    if (path.empty()) return {};
    return OpenFile(systemPath(path), L"Can not read file", path, {GENERIC_READ, shareAll, OPEN_EXISTING}).accessList();
}

}  // namespace

bool createFile(const std::wstring& path, const ByteSource& source, const std::wstring& rightsOf) {
    const std::wstring target = systemPath(path);
    const SecurityDescriptor list = accessListOf(rightsOf);
    try {
        OpenFile file(target, L"Can not write file", path, {GENERIC_WRITE | DELETE, 0, CREATE_NEW, list.get()});
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
