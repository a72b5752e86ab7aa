#pragma once

#include <functional>
#include <memory>
#include <string>

#include <dirent.h>

namespace XMLConfig::detail {

/// An open folder. One that this user may not read counts as empty, and is not flushed.
class Folder {
public:
    explicit Folder(const std::string& path);

    /// Flushes its entries to the disk, as far as the system allows: what was written is complete either way.
    void flush();
    /// Removes the new files of saves that were killed. One whose writer lives, here or in another process, stays.
    void removeAbandonedFiles();

private:
    void removeIfAbandoned(const char* name) const;

    struct Closer {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    std::unique_ptr<DIR, Closer> m_stream;
};

/// A name for a new file that nobody can foresee: others may write in the folder too.
std::string secretName();

enum class Claim { made, impossible, denied };
/// Marks a new file as one whose writer lives, until its last descriptor is closed. Denied when another save is about to
/// remove it; impossible where the disk knows no such marks, and then no save removes abandoned files there either.
Claim claimNewFile(int descriptor);

}  // namespace XMLConfig::detail
