#pragma once

#include <string>
#include <vector>

#include "manager/diff/DocumentSections.h"

namespace XMLConfig::detail {

/// A device of one document or the same device in both; null where a document has none.
struct DeviceMatch {
    const Device* old = nullptr;
    const Device* now = nullptr;
    const wchar_t* by = L"ID";  ///< what told that both are one device

    [[nodiscard]] bool isInBoth() const { return old != nullptr && now != nullptr; }
    [[nodiscard]] bool isRenamed() const { return isInBoth() && old->id != now->id; }
};

/// The devices of that tag of both documents: those of the new one in its order, then those that are gone.
std::vector<DeviceMatch> matchDevices(const std::vector<Device>& olds, const std::vector<Device>& news,
                                      const std::wstring& tag);

}  // namespace XMLConfig::detail
