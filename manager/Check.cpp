#include "manager/Check.h"

#include <algorithm>

#include "manager/SettingSearch.h"
#include "store/Address.h"
#include "store/Outline.h"

namespace XMLConfig {
namespace {

using Kind = Finding::Kind;

const std::wstring headerElements[] = {L"Version", L"BuildDate", L"BuildNumber", L"DevelopedBy"};

class Checker {
public:
    std::vector<Finding> run(const std::vector<OutlineNode>& nodes) {
        m_sections = sectionNames();
        for (std::size_t i = 0; i < nodes.size(); ++i)
            if (!isOneOf(nodes[i].name, headerElements)) checkSection(nodes, i);
        return std::move(m_findings);
    }

private:
    template <typename Names>
    static bool isOneOf(const std::wstring& name, const Names& names) {
        return std::find(std::begin(names), std::end(names), name) != std::end(names);
    }

    void add(Kind kind, const Address& address, const std::wstring& message) {
        m_findings.push_back({kind, addressText(address), message});
    }

    void checkSection(const std::vector<OutlineNode>& nodes, std::size_t place) {
        const OutlineNode& section = nodes[place];
        Address address;
        address.section = section.name;
        address.sectionID = section.id();
        if (!isOneOf(section.name, m_sections)) {
            add(Kind::UnknownSection, address, L"there is no such section");
            return;
        }
        if (isDeviceSection(section.name) && section.id().empty()) add(Kind::MissingID, address, L"a device has no ID");
        else checkRepeated(nodes, place, address);
        for (std::size_t i = 0; i < section.children.size(); ++i) checkChild(section.children, i, address);
    }

    /// Of several with the same name and ID the library reaches the first only.
    void checkRepeated(const std::vector<OutlineNode>& nodes, std::size_t place, const Address& address) {
        const OutlineNode& node = nodes[place];
        const auto isSame = [&](const OutlineNode& other) { return other.name == node.name && other.id() == node.id(); };
        const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(place);
        if (std::any_of(nodes.begin(), end, isSame)) add(Kind::RepeatedID, address, L"is hidden by an earlier one");
    }

    void checkChild(const std::vector<OutlineNode>& children, std::size_t place, Address address) {
        const OutlineNode& child = children[place];
        if (child.id().empty()) {
            address.key = child.name;
        } else {
            address.subSection = child.name;
            address.subSectionID = child.id();
        }
        checkRepeated(children, place, address);
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
        if (setting.type == L"XML element") return;
        if (!item.children.empty()) add(Kind::WrongType, address, L"holds elements instead of a value");
        else if (!isOfType(item.text, setting.type))
            add(Kind::WrongType, address, L"\"" + item.text + L"\" is not of type " + setting.type);
    }

    std::vector<std::wstring> m_sections;
    std::vector<Finding> m_findings;
};

}  // namespace

std::vector<Finding> check(const ConfigInfo& document) { return Checker().run(outline(document)); }

}  // namespace XMLConfig
