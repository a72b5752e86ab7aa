#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/FileStamp.h"

namespace XMLConfig::detail {

/// What a document knows of the file that it was loaded from or saved to last. Nothing at first.
class FileState {
public:
    FileState() = default;
    /// Looks at a file before it is read or written. The calls below say afterwards what came of that.
    static FileState before(const std::wstring& path);
    void wasRead(std::uint64_t contentHash) { m_contentHash = contentHash; }
    /// The file has been made or replaced, and holds the content of that hash unless somebody else was quick.
    void wasWritten(std::uint64_t contentHash) noexcept;

    /// Whether that is a name of the file, in another spelling or by a link perhaps.
    [[nodiscard]] bool isOf(const std::wstring& path) const;
    /// Whether the document was loaded from the content of that hash, or saved as it.
    [[nodiscard]] bool isContent(std::uint64_t contentHash) const { return m_stamp && m_contentHash == contentHash; }
    /// Whether the file is gone or holds other bytes than it did. It is read only where its stamp leaves that open.
    [[nodiscard]] bool hasChanged() const;
    /// Whether the file holds other bytes than it did, so that a save would overwrite them; false for a file that is gone.
    [[nodiscard]] bool hasOtherContent() const;

private:
    [[nodiscard]] bool differs(const FileStamp& now) const;

    std::wstring m_path;  // complete, so that it holds in another current folder too
    std::uint64_t m_contentHash = 0;
    mutable std::optional<FileStamp> m_stamp;  // the latest at which the content was as it is known
};

}  // namespace XMLConfig::detail
