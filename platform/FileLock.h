#pragma once

#include <chrono>
#include <memory>
#include <string>

namespace XMLConfig::detail {

/// The right to write the files of one folder, which one holder has at a time, in this process or another. It binds only
/// those who ask for it, leaves no file behind, goes with the process when that dies, and does not mind that files are
/// replaced by others. Programs that this one starts do not get it.
///
/// It is the right to a folder and not to a file, because nothing else stays the same while a file is replaced, and because
/// the files made beside it (new ones, backups) are covered too.
class FileLock {
public:
    /// Takes nothing yet. Of a link, the folder of its target is meant; the target need not exist. Throws FileError when
    /// the folder cannot be looked at.
    explicit FileLock(const std::wstring& path);
    /// Gives the right back.
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// False when another holds it. Throws FileError where the system gives none.
    bool tryTake();
    /// Tries until it is taken or that time has passed.
    bool take(std::chrono::milliseconds patience);
    /// The number of the process that holds it; 0 when nobody does or the system does not tell.
    [[nodiscard]] long holder() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace XMLConfig::detail
