#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "ProjectorApprovedSlots": which numbered slots of the installation have been approved, under which
/// names, and what the last run left behind. A slot is approved exactly while the section holds its subsection.
/// The order of the virtual members is part of the interface.
///
/// Its settings: sections/ApprovedSlotsItems.h and, as a page, docs/settings.md#projectorapprovedslots.
class XMLCONFIG_API ProjectorApprovedSlotsConfig : public BaseConfig {
public:
    /// What is known of a slot. Stored nowhere: it follows from the slots that the section holds.
    enum SlotStatus : int { NotApproved = 0, Approved = 1, CurrentRun = 2 };

    /// Borrows the document (null: a private one). Writes nothing.
    ProjectorApprovedSlotsConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjectorApprovedSlotsConfig() override;
    /// Writes nothing.
    void initialize() override;

    int getCurrentSlotID() const;  ///< number of the slot of the current run; -1 for none; -1 when missing
    void setCurrentSlotID(const int& slot);
    std::wstring getTimeOfLastRun() const;  ///< when the last run was made, as the application wrote it; empty when missing
    void setTimeOfLastRun(const std::wstring& time);
    /// The diagnostics folder of the last run; empty when missing.
    std::wstring getDiagnosticsFolderOfLastRun() const;
    void setDiagnosticsFolderOfLastRun(const std::wstring& folder);
    /// The name of an approved slot; empty when missing, and for a slot that is not approved.
    std::wstring getSlotName(int slot) const;
    /// Names the slot, which makes it an approved one. `name` is only read.
    void setSlotName(int slot, std::wstring& name);
    void setSlotName(int slot, const std::wstring& name);

    /// Records a decision about a slot. With Approved the slot is approved under `name`. With any other status it is no
    /// longer approved, and with CurrentRun it also becomes the slot of the current run; `name` does not count then. All of
    /// it is stored, or nothing where memory runs out.
    void updateSlot(int slot, std::wstring name, SlotStatus status);
    /// Puts name and status of `slot`, while a run works on `currentSlot` (-1: no run), into `name` and `status`. An
    /// approved slot gives its name, any other an empty one, but for two cases in which `name` stays as it was: the slot of
    /// the run when it is not approved, and the slot of the last run, which counts as approved while no run is made. Throws
    /// std::invalid_argument or std::out_of_range when the section holds a slot whose ID is no 32-bit number.
    void getSlotDetails(std::wstring& name, SlotStatus& status, int slot, int currentSlot) const;

private:
    void addSlotDetails(int slot, const std::wstring& name);
    void removeSlotDetails(int slot);
    std::vector<int> getApprovedSlotIDs() const;
};
