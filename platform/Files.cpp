#include "platform/Files.h"

#include "platform/Paths.h"
#include "platform/Text.h"

namespace XMLConfig::detail {

FileError::FileError(const std::wstring& message) : std::runtime_error(toUtf8(message)), m_message(message) {}

std::string readWholeFile(const std::wstring& path) {
    constexpr std::size_t step = 65536;
    FileReader reader(path);
    std::string bytes;
    for (std::size_t size = 0;;) {
        bytes.resize(size + step);
        const std::size_t count = reader.read(&bytes[size], step);
        size += count;
        if (count == 0) {
            bytes.resize(size);
            return bytes;
        }
    }
}

std::string gather(const ByteSource& source) {
    std::string bytes;
    source([&bytes](std::string_view piece) { bytes += piece; });
    return bytes;
}

void replaceFile(const std::wstring& path, std::string_view bytes) {
    replaceFile(path, [bytes](const ByteSink& sink) { sink(bytes); });
}

bool makeFolders(const std::wstring& path) {
    if (makeFolder(path)) return true;
    const std::wstring above = folderOf(path);
    return !above.empty() && above != path && makeFolders(above) && makeFolder(path);
}

}  // namespace XMLConfig::detail
