#include "manager/FileWriting.h"

#include "platform/Files.h"
#include "store/CorvaneException.h"

namespace XMLConfig {

void writeFile(const std::wstring& path, const std::string& bytes) {
    try {
        detail::replaceFile(path, bytes);
    } catch (const detail::FileError& error) {
        throw CorvaneException(L"Error writeFile: " + error.message());
    }
}

}  // namespace XMLConfig
