#pragma once

#include <functional>
#include <string>

#include "platform/posix/Folder.h"
#include "platform/posix/System.h"

namespace XMLConfig::detail {

/// A file that is written completely before it gets the target's name. The destructor removes it where it has not got it.
class NewFile {
public:
    enum class Naming { none, secret };

    /// Makes the file in the target's folder, without a name or under one that nobody can foresee.
    NewFile(const std::string& target, Folder& folder, mode_t mode, Naming naming);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    OpenFile& file() { return m_file; }
    /// False where another save took it for an abandoned one and has removed it, or is about to.
    bool isOurs();
    /// Puts it, which was flushed, in the place of the file that has the target's name.
    void replaceTarget();
    /// Flushes it to the disk and gives it the target's name. Throws SystemError EEXIST where something has that name.
    void becomeTarget();

private:
    void giveName(std::string name);
    void closeClaimed();

    std::string m_target;
    Folder& m_folder;
    std::string m_name;  ///< what the destructor removes; empty for nothing
    OpenFile m_file;
    bool m_isClaimed;
    int m_claim = -1;  ///< keeps the file from being taken for an abandoned one once it is closed
};

/// Calls `use` with a new file beside the target, which has no name where the system can do that. Called again with
/// one that has a name where the system cannot give one later. Removes what killed saves left in that folder.
void makeBeside(const std::string& target, mode_t mode, const std::function<void(NewFile&)>& use);

}  // namespace XMLConfig::detail
