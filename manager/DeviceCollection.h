#pragma once

#include <map>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "manager/ManagerLog.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"
#include "store/Together.h"

namespace XMLConfig::detail {

/// What is different between one kind of device and another.
struct DeviceKind {
    const wchar_t* section;  ///< the tag of its sections
    const wchar_t* noun;     ///< its name in the log
    bool renamesDisplace;    ///< whether a device may take an ID under which another accessor is known
};

/// The devices of one kind. The document says which there are; the collection owns the accessors that were asked for and
/// finds them by ID. Identifiers are taken by value, because a caller may pass an accessor's own, which renaming changes.
template <typename Device>
class DeviceCollection {
public:
    /// Borrows the document.
    DeviceCollection(const DeviceKind& kind, ConfigInfo& document) : m_kind(kind), m_document(document) {}

    [[nodiscard]] std::vector<std::wstring> ids() const { return m_document.getSectionIDs(m_kind.section); }
    [[nodiscard]] int count() const { return m_document.getSectionCount(m_kind.section); }

    Device* get(const std::wstring& id) {
        const auto found = m_accessors.find(id);
        if (found != m_accessors.end()) return found->second.get();
        auto device = std::make_unique<Device>(&m_document, id);
        Device* kept = nullptr;
        together(m_document, [&] {
            if (!m_document.doesSectionExist(m_kind.section, id)) device->initialize();
            kept = keep(id, std::move(device));
        });
        return kept;
    }
    /// Takes over an accessor, under an ID that no other one is known under.
    Device* keep(const std::wstring& id, std::unique_ptr<Device> device) {
        return m_accessors.emplace(id, std::move(device)).first->second.get();
    }

    bool rename(const std::wstring oldId, const std::wstring newId) {
        if (oldId == newId) return true;
        const auto found = m_accessors.find(oldId);
        if (found == m_accessors.end()) return false;
        if (!m_kind.renamesDisplace && m_accessors.count(newId) != 0) return false;
        std::wstring key = newId;
        m_displaced.reserve(m_displaced.size() + 1);
        found->second->renameSection(newId);
        rekey(found, std::move(key));
        log([&] {
            return std::wstring(L"Remapped ") + m_kind.noun + L" id from " + oldId + L" to " + newId +
                   L" (expected if loading a .cal file where a " + m_kind.noun + L" was swapped)";
        });
        return true;
    }

    bool remove(const std::wstring id) {
        const auto found = m_accessors.find(id);
        const bool removed = found != m_accessors.end();
        if (removed) {
            found->second->removeSection();
            m_accessors.erase(found);
        }
        log([&] { return resultText(L"remove", L"'" + id + L"'", removed); });
        return removed;
    }

    bool move(const std::wstring& id, int index) {
        const auto found = m_accessors.find(id);
        const bool moved = found != m_accessors.end() && found->second->moveSection(index);
        log([&] { return resultText(L"move", L"'" + id + L"':" + formatInteger(index), moved); });
        return moved;
    }

    /// Frees the accessors. The document is not touched.
    void clear() {
        m_accessors.clear();
        m_displaced.clear();
    }

private:
    using Accessors = std::map<std::wstring, std::unique_ptr<Device>>;

    /// Cannot fail where there is room for one more that is displaced.
    void rekey(typename Accessors::iterator entry, std::wstring newId) noexcept {
        const auto known = m_accessors.find(newId);
        if (known != m_accessors.end()) {
            m_displaced.push_back(std::move(known->second));
            m_accessors.erase(known);
        }
        auto node = m_accessors.extract(entry);
        node.key() = std::move(newId);
        m_accessors.insert(std::move(node));
    }

    std::wstring resultText(const wchar_t* operation, const std::wstring& arguments, bool result) const {
        return std::wstring(operation) + m_kind.section + L"Config(" + arguments + L") returned: " + textOf(result);
    }
    /// Logs the text. If memory runs out, the line is left out: the change itself has been made.
    template <typename Text>
    static void log(const Text& text) {
        try {
            logInfo(managerLog, text());
        } catch (const std::bad_alloc&) {
            return;
        }
    }

    const DeviceKind& m_kind;
    ConfigInfo& m_document;
    Accessors m_accessors;
    std::vector<std::unique_ptr<Device>> m_displaced;  // kept, because callers may still use them
};

}  // namespace XMLConfig::detail
