#include <utility>

#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/Document.h"
#include "store/Legality.h"
#include "store/TreeLinks.h"

namespace detail = XMLConfig::detail;
using Kind = detail::Change::Kind;

namespace {

constexpr const wchar_t* sectionPrefix = L"Error getSection: ";

std::vector<xercesc::DOMElement*> subSections(const detail::Document& document, const std::wstring& name,
                                              const std::wstring& subName) {
    std::vector<xercesc::DOMElement*> found;
    const std::u16string tag = detail::toUtf16(subName);
    for (const detail::Section* section = document.getSection(name, {}); section != nullptr; section = section->next) {
        for (auto* child = detail::firstElementIn(*section->element); child != nullptr; child = detail::elementAfter(*child))
            if (detail::view(child->getNodeName()) == tag) found.push_back(child);
    }
    return found;
}

// Makes a change and then tells the observer of it. What the observer is told is put together before the change, because
// that may fail.
template <typename Operation>
void perform(detail::Document& document, bool& isDirty, detail::Change&& change, Operation operation) {
    operation();
    isDirty = true;
    document.report(std::move(change));
}

}  // namespace

int ConfigInfo::getSectionCount(const std::wstring& sectionName) const {
    return detail::reporting(sectionPrefix, [&] { return static_cast<int>(m_document->countSections(sectionName)); });
}

std::vector<std::wstring> ConfigInfo::getSectionIDs(const std::wstring& sectionName) const {
    return detail::reporting(sectionPrefix, [&] {
        std::vector<std::wstring> ids;
        for (const detail::Section* section = m_document->getSection(sectionName, {}); section != nullptr;
             section = section->next)
            if (detail::idAttributeOf(*section->element) != nullptr) ids.push_back(section->id);
        return ids;
    });
}

int ConfigInfo::getSubSectionCount(const std::wstring& sectionName, const std::wstring& subSectionName) const {
    return detail::reporting(sectionPrefix,
                             [&] { return static_cast<int>(subSections(*m_document, sectionName, subSectionName).size()); });
}

std::vector<std::wstring> ConfigInfo::getSubSectionIDs(const std::wstring& sectionName,
                                                       const std::wstring& subSectionName) const {
    return detail::reporting(sectionPrefix, [&] {
        std::vector<std::wstring> ids;
        for (const auto* const subSection : subSections(*m_document, sectionName, subSectionName))
            if (const xercesc::DOMAttr* const id = detail::idAttributeOf(*subSection))
                ids.push_back(detail::fromUtf16(detail::valueOf(*id)));
        return ids;
    });
}

bool ConfigInfo::removeSection(const std::wstring& sectionName, const std::wstring& sectionID) {
    return detail::reporting(sectionPrefix, [&] {
        auto* const section = m_document->getSection(sectionName, sectionID);
        if (section == nullptr) return false;
        perform(*m_document, m_dirty, {Kind::SectionRemoved, sectionName, sectionID, {}, {}, {}}, [&] {
            m_document->remove({section->element, section});
        });
        return true;
    });
}

bool ConfigInfo::removeSubSection(const std::wstring& sectionName, const std::wstring& subSectionName,
                                  const std::wstring& sectionID, const std::wstring& subSectionID) {
    return detail::reporting(sectionPrefix, [&] {
        if (subSectionName.empty()) return false;
        const auto subSection = m_document->container({sectionName, sectionID, {}, subSectionName, subSectionID});
        if (subSection.element == nullptr) return false;
        const std::wstring told = detail::Change::subSection(subSectionName, subSectionID);
        perform(*m_document, m_dirty, {Kind::SectionRemoved, sectionName, sectionID, told, {}, {}},
                [&] { m_document->remove(subSection); });
        return true;
    });
}

bool ConfigInfo::renameSection(const std::wstring& sectionName, const std::wstring& oldID, const std::wstring& newID) {
    constexpr const wchar_t* prefix = L"Error renameSection: ";
    if (oldID.empty()) return false;
    return detail::reporting(prefix, [&] {
        auto* const section = m_document->getSection(sectionName, oldID);
        if (section == nullptr) return false;
        detail::refuseIdentifier(prefix, sectionName, newID);
        perform(*m_document, m_dirty, {Kind::SectionRenamed, sectionName, oldID, {}, oldID, newID},
                [&] { m_document->renameSection(*section, newID); });
        return true;
    });
}

bool ConfigInfo::moveSection(int direction, const std::wstring& sectionName, const std::wstring& sectionID) {
    if (direction != -1 && direction != 1) return false;
    return detail::reporting(sectionPrefix, [&] {
        auto* const section = m_document->getSection(sectionName, sectionID);
        if (section == nullptr) return false;
        auto* const other = direction < 0 ? section->previous : section->next;
        if (other == nullptr) return false;
        perform(*m_document, m_dirty, {Kind::SectionMoved, sectionName, sectionID, {}, {}, {}},
                [&] { m_document->swapSections(direction < 0 ? *other : *section, direction < 0 ? *section : *other); });
        return true;
    });
}
