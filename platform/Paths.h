#pragma once

#include <string>
#include <string_view>

/// Paths as text. Both "\" and "/" separate components on every platform; nothing here looks at a disk.
namespace XMLConfig::detail {

bool isSeparator(wchar_t character);
/// "C:" at the start of the path; empty when it names no drive.
std::wstring_view driveOf(std::wstring_view path);
/// Begins with a drive or with a separator.
bool isAbsolute(std::wstring_view path);

struct PathParts {
    std::wstring drive;      ///< "C:", or empty
    std::wstring directory;  ///< with its trailing separator, or empty
    std::wstring name;       ///< without the extension
    std::wstring extension;  ///< from the last "." of the last component on, or empty
    [[nodiscard]] std::wstring joined() const { return drive + directory + name + extension; }
};
PathParts splitPath(std::wstring_view path);

/// The last component; the whole text when there is no separator. A drive alone ("C:x") is cut too.
std::wstring lastComponent(std::wstring_view path);
/// The path without its last component and without a trailing separator; of a file in the top folder "/", "C:\"
/// or "C:/" as it stands in the text; empty when there is no folder. A share ("\\server\share\f") gives "\\server\share".
std::wstring folderOf(std::wstring_view path);
/// `name` below `folder`, with exactly one separator between: "\" when the folder has a drive or holds a "\",
/// otherwise "/". An empty folder gives the name; an absolute name is returned as it is.
std::wstring joinPath(std::wstring_view folder, std::wstring_view name);
/// "." and ".." folded in the text; leading ".." of a relative path stay, those above the top are dropped.
/// Separators keep their spelling. A relative path stays relative: "." stays in front of what looks like a drive.
std::wstring foldPath(std::wstring_view path);
/// Whether the drives are the same, without regard to case (two paths without a drive: yes).
bool sameDrive(std::wstring_view left, std::wstring_view right);
/// `path` as seen from the absolute folder `root`: "" for the root itself, ".." where it lies beside or above,
/// unchanged when it is relative, when the root is empty or when it lies on another drive. A name that looks like a drive
/// gets a "." before it.
/// Drive paths compare without case, others with it.
std::wstring relativeTo(std::wstring_view path, std::wstring_view root);

}  // namespace XMLConfig::detail
