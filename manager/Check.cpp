#include "manager/Check.h"

#include <algorithm>
#include <set>

#include "manager/SettingSearch.h"
#include "store/Address.h"
#include "store/Outline.h"

namespace XMLConfig {
namespace {

using Kind = Finding::Kind;

class Checker {
public:
    std::vector<Finding> run(const std::vector<OutlineNode>& nodes) {
        Met met;
        for (const OutlineNode& node : nodes)
            if (!isHeaderElement(node.name)) checkSection(node, met);
        return std::move(m_findings);
    }

private:
    using Met = std::set<std::pair<std::wstring, std::wstring>>;  // names and IDs of one level

    void add(Kind kind, const Address& address, const std::wstring& message) {
        m_findings.push_back({kind, addressText(address), message});
    }

    void checkSection(const OutlineNode& section, Met& met) {
        Address address;
        address.section = section.name;
        address.sectionID = section.id();
        if (std::find(m_sections.begin(), m_sections.end(), section.name) == m_sections.end()) {
            add(Kind::UnknownSection, address, L"there is no such section");
            return;
        }
        if (isDeviceSection(section.name) && section.id().empty()) add(Kind::MissingID, address, L"a device has no ID");
        else checkRepeated(section, met, address);
        Met metInside;
        for (const OutlineNode& child : section.children) checkChild(child, metInside, address);
    }

    /// Of several with the same name and ID the library reaches the first only.
    void checkRepeated(const OutlineNode& node, Met& met, const Address& address) {
        if (!met.emplace(node.name, node.id()).second) add(Kind::RepeatedID, address, L"is hidden by an earlier one");
    }

    void checkChild(const OutlineNode& child, Met& met, Address address) {
        if (child.id().empty()) {
            address.key = child.name;
        } else {
            address.subSection = child.name;
            address.subSectionID = child.id();
        }
        checkRepeated(child, met, address);
        checkItem(child, address);
    }

    void checkItem(const OutlineNode& item, const Address& address) {
        const std::optional<Setting> setting = findSetting(address);
        if (isGroupOfSettings(address)) checkParts(item, address);
        else if (setting) checkValue(item, address, *setting);
        else if (!isOpenSection(address.section) && address.key != L"OldSectionID")
            add(Kind::UnknownSetting, address, L"there is no such setting");
    }

    void checkParts(const OutlineNode& group, const Address& address) {
        for (const OutlineNode& part : group.children) {
            Address below = address;
            below.key += (below.key.empty() ? L"" : L"|") + part.name;
            checkItem(part, below);
        }
    }

    void checkValue(const OutlineNode& item, const Address& address, const Setting& setting) {
        if (setting.type == SettingType::Element) return;
        if (!item.children.empty()) add(Kind::WrongType, address, L"holds elements instead of a value");
        else if (!isOfType(item.text, setting.type))
            add(Kind::WrongType, address, L"\"" + item.text + L"\" is not of type " + nameOf(setting.type));
    }

    const std::vector<std::wstring> m_sections = sectionNames();
    std::vector<Finding> m_findings;
};

}  // namespace

std::vector<Finding> check(const ConfigInfo& document) { return Checker().run(outline(document)); }

}  // namespace XMLConfig
