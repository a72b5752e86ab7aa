#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "store/CorvaneException.h"

namespace XMLConfig {

namespace detail {
class FileLock;
}  // namespace detail

/// The right to change a configuration file, held as long as this object lives. Programs that load, change and save under
/// it wait for each other, so that no change is lost; `xmlconfig` does so. A program that does not ask for it is not kept
/// from anything, and reading needs no lock, because a save puts the new file into place in one step.
///
/// - It holds against every other ConfigLock on a file of the same folder, in this thread, another one or another process,
///   whichever name or link leads there. Files of one folder wait for each other: it is meant to be held for one change.
/// - It leaves no file behind, and goes with the process when that dies. A process that was forked without starting another
///   program keeps it until it ends.
/// - It is one of this machine: see docs/sharing.md for network file systems and containers.
///
/// ConfigInfo::save and XMLConfigManager::saveConfiguration take no lock and may be called while one is held.
class XMLCONFIG_API ConfigLock {
public:
    /// Waits until the lock is free, 30 seconds where nothing else is said; zero or less asks once. The file itself need not
    /// exist. Throws ConfigBusyException when the lock is not free within that time, and CorvaneException where it cannot be
    /// had at all, as where the folder does not exist.
    /// Asking once may also find the lock taken just after its holder gave it back: a program that lists what other programs
    /// have open, as some monitors do, keeps the lock alive while it looks.
    explicit ConfigLock(const std::wstring& path, std::chrono::milliseconds patience = std::chrono::seconds(30));
    ~ConfigLock();
    ConfigLock(const ConfigLock&) = delete;
    ConfigLock& operator=(const ConfigLock&) = delete;

private:
    std::unique_ptr<detail::FileLock> m_lock;
};

/// Thrown where a ConfigLock waited in vain: "Error ConfigLock: " and the reason.
class XMLCONFIG_API ConfigBusyException : public CorvaneException {
public:
    /// `process` as getProcess() gives it.
    ConfigBusyException(const std::wstring& reason, long process);
    ConfigBusyException(const ConfigBusyException&) = default;
    ConfigBusyException& operator=(const ConfigBusyException&) = default;
    ~ConfigBusyException() override;

    /// "hall.skorrax is being written by another program (process 1234), waited 30 s"
    const std::wstring& getReason() const { return m_reason; }
    /// The number of the process that holds the lock; 0 where the system does not tell.
    long getProcess() const { return m_process; }

private:
    std::wstring m_reason;
    long m_process;
};

}  // namespace XMLConfig
