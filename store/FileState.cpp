#include "store/FileState.h"

#include <vector>

#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "store/ContentHash.h"

namespace XMLConfig::detail {
namespace {

std::wstring completePath(const std::wstring& path) { return isAbsolute(path) ? path : joinPath(currentFolder(), path); }

/// A form that is the same for all spellings of a path.
std::wstring commonSpelling(const std::wstring& path) {
    std::wstring text = foldPath(completePath(path));
    for (wchar_t& character : text)
        if (isSeparator(character)) character = L'/';
    return text;
}

/// Whether two names lead to one file just now, as a link's and its target's do.
bool isOneFile(const std::wstring& left, const std::wstring& right) {
    const std::optional<FileStamp> first = fileStamp(left);
    const std::optional<FileStamp> second = first ? fileStamp(right) : std::nullopt;
    if (!second) return false;
    if (first->number == 0) return commonSpelling(left) == commonSpelling(right);  // a disk that numbers no files
    return first->device == second->device && first->number == second->number;
}

/// Nothing when the file cannot be read.
std::optional<std::uint64_t> hashOfContent(const std::wstring& path) {
    try {
        FileReader file(path);
        ContentHash hash;
        std::vector<char> buffer(64 * 1024);
        while (const std::size_t count = file.read(buffer.data(), buffer.size())) hash.add({buffer.data(), count});
        return hash.value();
    } catch (const FileError&) {
        return std::nullopt;
    }
}

}  // namespace

FileState FileState::before(const std::wstring& path) {
    FileState state;
    state.m_path = completePath(path);
    state.m_stamp = fileStamp(path);
    return state;
}

void FileState::wasWritten(std::uint64_t contentHash) noexcept {
    m_contentHash = contentHash;
    try {
        m_stamp = fileStamp(m_path);
        if (m_stamp) m_stamp->isSettled = false;  // the file that was looked at may be another's already
    } catch (...) {                               // the save is done all the same; later the bytes are compared instead
        m_stamp = FileStamp();
    }
}

bool FileState::isOf(const std::wstring& path) const {
    if (!m_stamp) return false;
    return m_path == path || isOneFile(m_path, path);
}

bool FileState::hasChanged() const {
    if (!m_stamp) return false;
    const std::optional<FileStamp> now = fileStamp(m_path);
    return !now || differs(*now);
}

bool FileState::hasOtherContent() const {
    if (!m_stamp) return false;
    const std::optional<FileStamp> now = fileStamp(m_path);
    return now && differs(*now);
}

bool FileState::differs(const FileStamp& now) const {
    if (isSurelyUnchanged(*m_stamp, now)) return false;
    if (hashOfContent(m_path) != m_contentHash) return true;
    m_stamp = now;
    return false;
}

}  // namespace XMLConfig::detail
