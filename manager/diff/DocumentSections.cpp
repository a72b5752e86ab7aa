#include "manager/diff/DocumentSections.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "manager/SettingSearch.h"

namespace XMLConfig::detail {
namespace {

void removeRepeatedIDs(std::vector<Device>& devices) {
    std::unordered_set<std::wstring> met;
    met.reserve(devices.size());
    const auto isRepeated = [&met](const Device& device) { return !met.insert(device.id).second; };
    devices.erase(std::remove_if(devices.begin(), devices.end(), isRepeated), devices.end());
}

}  // namespace

DocumentSections::DocumentSections(const ConfigInfo& document) {
    ElementView previous;
    std::vector<Device>* alike = nullptr;  // the devices of the previous one's tag; null where that stands for none
    for (const ElementView& section : rootElement(document).children()) {
        if (!section.isNamedLike(previous)) {
            const std::wstring tag = section.name();
            alike = isDeviceSection(tag) ? &m_devices[tag] : nullptr;
        }
        previous = section;
        std::wstring id = alike != nullptr ? section.id() : std::wstring();
        if (id.empty()) m_others.push_back(section);
        else alike->push_back({section, std::move(id)});
    }
    for (auto& [tag, devices] : m_devices) removeRepeatedIDs(devices);
    addComments(document);
}

void DocumentSections::addComments(const ConfigInfo& document) {
    const ElementView root = rootElement(document);
    for (CommentView& comment : commentsOf(document)) {
        ElementView section = comment.around;
        while (section != root && section.parent() != root) section = section.parent();
        m_comments[section].push_back(std::move(comment.text));
    }
}

const std::vector<Device>& DocumentSections::devices(const std::wstring& tag) const {
    static const std::vector<Device> none;
    const auto found = m_devices.find(tag);
    return found == m_devices.end() ? none : found->second;
}

const std::vector<std::wstring>& DocumentSections::comments(const ElementView& around) const {
    static const std::vector<std::wstring> none;
    const auto found = m_comments.find(around);
    return found == m_comments.end() ? none : found->second;
}

}  // namespace XMLConfig::detail
