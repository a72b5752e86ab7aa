#include "manager/ConfigLock.h"

#include <algorithm>

#include "platform/Environment.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

namespace XMLConfig {
namespace {

const wchar_t* const prefix = L"Error ConfigLock: ";

std::wstring timeText(std::chrono::milliseconds time) {
    constexpr int second = 1000;
    if (time.count() % second == 0) return detail::formatInteger(time.count() / second) + L" s";
    return detail::formatInteger(time.count()) + L" ms";
}

std::wstring reasonOf(const std::wstring& path, long process, std::chrono::milliseconds waited) {
    const bool isOwn = process == detail::processId();
    const std::wstring number = process == 0 ? L"" : L" (process " + detail::formatInteger(process) + L")";
    return path + L" is being written by " + (isOwn ? L"another part of this program" : L"another program") + number +
           L", waited " + timeText(waited);
}

std::unique_ptr<detail::FileLock> taken(const std::wstring& path, std::chrono::milliseconds patience) {
    try {
        auto lock = std::make_unique<detail::FileLock>(path);
        if (lock->take(patience)) return lock;
        const long process = lock->holder();
        throw ConfigBusyException(reasonOf(path, process, patience), process);
    } catch (const detail::FileError& error) {
        throw CorvaneException(prefix + error.message());
    }
}

}  // namespace

ConfigLock::ConfigLock(const std::wstring& path, std::chrono::milliseconds patience)
    : m_lock(taken(path, std::max(patience, std::chrono::milliseconds::zero()))) {}

ConfigLock::~ConfigLock() = default;

ConfigBusyException::ConfigBusyException(const std::wstring& reason, long process)
    : CorvaneException(prefix + reason), m_reason(reason), m_process(process) {}

ConfigBusyException::~ConfigBusyException() = default;

}  // namespace XMLConfig
