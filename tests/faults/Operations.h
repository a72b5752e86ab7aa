#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "store/ConfigInfo.h"
#include "tests/support/TemporaryFolder.h"

/// What is done while a call of the system fails, and what must stand afterwards.
namespace faults {

/// A folder in which one operation is done once.
class Scene {
public:
    explicit Scene(std::string oldText) : m_oldText(std::move(oldText)) {
        folder.write(L"hall.skorrax", m_oldText);
        ::chmod((folder.path() / "hall.skorrax").c_str(), 0640);
    }

    std::wstring file() const { return folder.file(L"hall.skorrax"); }
    const std::string& oldText() const { return m_oldText; }
    bool has(const std::wstring& name, const std::string& text) const {
        return folder.has(name) && folder.read(name) == text;
    }
    /// The names of the entries, sorted.
    std::vector<std::string> names() const;
    struct stat status() const {
        struct stat status {};
        ::stat((folder.path() / "hall.skorrax").c_str(), &status);
        return status;
    }
    int mode() const { return static_cast<int>(status().st_mode & 07777); }

    TemporaryFolder folder;

private:
    std::string m_oldText;
};

/// One way to write files.
struct Operation {
    std::string name;
    std::string oldText;  ///< what hall.skorrax holds before
    bool admitsNewFiles = true;
    bool isAtomic = true;      ///< whether a kill at any time leaves the old or the new file
    bool isOfAnother = false;  ///< the file belongs to another user, which only the superuser can arrange
    /// Makes ready what the calls are not counted of. Where there is none, the operation needs nothing but the folder.
    std::function<void(Scene&)> prepare;
    /// The operation itself.
    std::function<void(Scene&)> run;
    /// Empty, or what is wrong; told whether the operation threw.
    std::function<std::string(const Scene&, bool threw)> check;
};

/// What the check of an upgrade says of a backup that stands beside a file that is not upgraded.
inline constexpr const char* leftBackup = "not upgraded, but a backup was left";

std::vector<Operation> operations();

}  // namespace faults
