#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "manager/ManagerLog.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

/// How the log names a kind of device.
struct DeviceKind {
    const wchar_t* section;  ///< the tag of its sections
    const wchar_t* noun;
};

/// The operations on one kind of device. It works on the manager's own members, so that managers copy plainly.
///
/// The document says which devices there are; `accessors` only caches the owned accessors that were asked for, by ID.
/// Identifiers are taken by value, because a caller may pass an accessor's own, which renaming changes.
template <typename Device>
class DeviceCollection {
public:
    using Accessors = std::map<std::wstring, Device*>;

    /// A kind whose renames may displace an accessor names the list that keeps those; null refuses such renames.
    DeviceCollection(const DeviceKind& kind, ConfigInfo& document, Accessors& accessors, std::vector<Device*>* displaced)
        : m_kind(kind), m_document(document), m_accessors(accessors), m_displaced(displaced) {}

    Device* get(const std::wstring& id) {
        const auto found = m_accessors.find(id);
        if (found != m_accessors.end()) return found->second;
        auto device = std::make_unique<Device>(&m_document, id);
        if (!m_document.doesSectionExist(m_kind.section, id)) device->initialize();
        m_accessors.emplace(id, device.get());
        return device.release();
    }

    bool rename(const std::wstring oldId, const std::wstring newId) {
        if (oldId == newId) return true;
        const auto found = m_accessors.find(oldId);
        if (found == m_accessors.end()) return false;
        if (m_displaced == nullptr && m_accessors.count(newId) != 0) return false;
        found->second->renameSection(newId);
        rekey(found, newId);
        logInfo(managerLog, std::wstring(L"Remapped ") + m_kind.noun + L" id from " + oldId + L" to " + newId +
                                L" (expected if loading a .cal file where a " + m_kind.noun + L" was swapped)");
        return true;
    }

    bool remove(const std::wstring id) {
        const auto found = m_accessors.find(id);
        const bool removed = found != m_accessors.end();
        if (removed) {
            found->second->removeSection();
            const std::unique_ptr<Device> device(found->second);
            m_accessors.erase(found);
        }
        logResult(L"remove", L"'" + id + L"'", removed);
        return removed;
    }

    bool move(const std::wstring& id, int index) {
        const auto found = m_accessors.find(id);
        const bool moved = found != m_accessors.end() && found->second->moveSection(index);
        logResult(L"move", L"'" + id + L"':" + formatInteger(index), moved);
        return moved;
    }

private:
    void rekey(typename Accessors::iterator entry, const std::wstring& newId) {
        const auto known = m_accessors.find(newId);
        if (known != m_accessors.end()) {
            m_displaced->push_back(known->second);
            m_accessors.erase(known);
        }
        auto node = m_accessors.extract(entry);
        node.key() = newId;
        m_accessors.insert(std::move(node));
    }

    void logResult(const wchar_t* operation, const std::wstring& arguments, bool result) const {
        logInfo(managerLog, std::wstring(operation) + m_kind.section + L"Config(" + arguments + L") returned: " +
                                (result ? L"true" : L"false"));
    }

    const DeviceKind& m_kind;
    ConfigInfo& m_document;
    Accessors& m_accessors;
    std::vector<Device*>* m_displaced;
};

}  // namespace XMLConfig::detail
