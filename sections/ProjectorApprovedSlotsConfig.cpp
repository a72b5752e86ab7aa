#include "sections/ProjectorApprovedSlotsConfig.h"

#include <algorithm>
#include <utility>

#include "platform/Numbers.h"
#include "sections/ApprovedSlotsItems.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::approvedSlotsItems;
using XMLConfig::detail::formatInteger;
using XMLConfig::detail::strictInteger;

namespace {

std::wstring slotTag() { return std::wstring(XMLConfig::detail::slotTag); }
std::wstring nameKey() { return std::wstring(XMLConfig::detail::slotNameKey); }

}  // namespace

ProjectorApprovedSlotsConfig::ProjectorApprovedSlotsConfig(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, items.section, sectionID) {}

ProjectorApprovedSlotsConfig::~ProjectorApprovedSlotsConfig() = default;

void ProjectorApprovedSlotsConfig::initialize() {}

int ProjectorApprovedSlotsConfig::getCurrentSlotID() const { return read(items.currentSlotID).value; }
void ProjectorApprovedSlotsConfig::setCurrentSlotID(const int& slot) { write(items.currentSlotID, slot); }
std::wstring ProjectorApprovedSlotsConfig::getTimeOfLastRun() const { return read(items.timeOfLastRun).value; }
void ProjectorApprovedSlotsConfig::setTimeOfLastRun(const std::wstring& time) { write(items.timeOfLastRun, time); }
std::wstring ProjectorApprovedSlotsConfig::getDiagnosticsFolderOfLastRun() const {
    return read(items.lastRunDiagFolder).value;
}
void ProjectorApprovedSlotsConfig::setDiagnosticsFolderOfLastRun(const std::wstring& folder) {
    write(items.lastRunDiagFolder, folder);
}

std::wstring ProjectorApprovedSlotsConfig::getSlotName(int slot) const {
    return m_configInfo->getStringItem(getSectionName(), nameKey(), items.slotName.fallback, getSectionID(), slotTag(),
                                       formatInteger(slot));
}

void ProjectorApprovedSlotsConfig::setSlotName(int slot, std::wstring& name) { setSlotName(slot, std::as_const(name)); }
void ProjectorApprovedSlotsConfig::setSlotName(int slot, const std::wstring& name) {
    m_configInfo->setStringItem(getSectionName(), nameKey(), name, getSectionID(), slotTag(), formatInteger(slot));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes the name by value
void ProjectorApprovedSlotsConfig::updateSlot(int slot, std::wstring name, SlotStatus status) {
    if (status == Approved) {
        addSlotDetails(slot, name);
        return;
    }
    XMLConfig::detail::together(*m_configInfo, [&] {
        removeSlotDetails(slot);
        if (status == CurrentRun) setCurrentSlotID(slot);
    });
}

void ProjectorApprovedSlotsConfig::getSlotDetails(std::wstring& name, SlotStatus& status, int slot, int currentSlot) const {
    if (currentSlot == -1 && slot == getCurrentSlotID() && !getTimeOfLastRun().empty()) {
        status = Approved;
        return;
    }
    status = currentSlot == slot ? CurrentRun : Approved;
    const std::vector<int> approved = getApprovedSlotIDs();
    if (std::find(approved.begin(), approved.end(), slot) != approved.end()) {
        name = getSlotName(slot);
    } else if (status != CurrentRun) {
        name.clear();
        status = NotApproved;
    }
}

void ProjectorApprovedSlotsConfig::addSlotDetails(int slot, const std::wstring& name) { setSlotName(slot, name); }

void ProjectorApprovedSlotsConfig::removeSlotDetails(int slot) {
    m_configInfo->removeSubSection(getSectionName(), slotTag(), getSectionID(), formatInteger(slot));
}

std::vector<int> ProjectorApprovedSlotsConfig::getApprovedSlotIDs() const {
    std::vector<int> slots;
    for (const std::wstring& id : m_configInfo->getSubSectionIDs(getSectionName(), slotTag()))
        slots.push_back(strictInteger(id));
    return slots;
}
