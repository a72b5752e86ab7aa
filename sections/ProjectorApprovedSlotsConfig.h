#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "ProjectorApprovedSlots": which numbered slots of the installation have been approved, under which
/// names, and what the last run left behind. A slot is approved exactly while the section holds its subsection.
/// The order of the virtual members is part of the interface.
/// Its settings: sections/ApprovedSlotsItems.h and, as a page, docs/settings.md#projectorapprovedslots.
class XMLCONFIG_API ProjectorApprovedSlotsConfig : public BaseConfig {
public:
    enum SlotStatus : int { NotApproved = 0, Approved = 1, CurrentRun = 2 };

    ProjectorApprovedSlotsConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjectorApprovedSlotsConfig() override;
    /// Writes nothing.
    void initialize() override;

    int getCurrentSlotID() const;  ///< the slot of the current run; -1 for none; -1 when it is missing
    void setCurrentSlotID(const int& slot);
    std::wstring getTimeOfLastRun() const;  ///< when the last run was made; empty when it is missing
    void setTimeOfLastRun(const std::wstring& time);
    /// The diagnostics folder of the last run; empty when it is missing.
    std::wstring getDiagnosticsFolderOfLastRun() const;
    void setDiagnosticsFolderOfLastRun(const std::wstring& folder);
    /// Empty for a slot that is not approved or has no name.
    std::wstring getSlotName(int slot) const;
    // A slot that is named is approved. The name is only read.
    void setSlotName(int slot, std::wstring& name);
    void setSlotName(int slot, const std::wstring& name);

    /// Approved: the slot is approved under `name`. Otherwise the slot is no longer approved, and with CurrentRun it
    /// also becomes the slot of the current run; `name` does not count then.
    void updateSlot(int slot, std::wstring name, SlotStatus status);
    /// What is known of `slot` while a run works on `currentSlot` (-1: no run). `name` stays as it was for the slot of the
    /// run when it is not approved, and for the slot of the last run, which counts as approved while no run is made.
    /// Throws std::invalid_argument or std::out_of_range when the section holds a slot whose ID is no 32-bit number.
    void getSlotDetails(std::wstring& name, SlotStatus& status, int slot, int currentSlot) const;

private:
    void addSlotDetails(int slot, const std::wstring& name);
    void removeSlotDetails(int slot);
    std::vector<int> getApprovedSlotIDs() const;
};
