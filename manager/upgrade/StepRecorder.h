#pragma once

#include <utility>
#include <vector>

#include "manager/Upgrade.h"
#include "manager/upgrade/UpgradeChain.h"
#include "store/ChangeObserver.h"

namespace XMLConfig::detail {

/// Watches the document while one step runs, from construction to destruction.
class StepRecorder : private ChangeObserver {
public:
    StepRecorder(ConfigInfo& document, const UpgradeStep& step);
    ~StepRecorder() override;
    StepRecorder(const StepRecorder&) = delete;
    StepRecorder& operator=(const StepRecorder&) = delete;

    /// What the step did, in its order; an item that it carried to another place stands where it was removed.
    [[nodiscard]] UpgradeStepReport report() const { return reportOf(m_changes); }
    /// The same, which leaves nothing here.
    [[nodiscard]] UpgradeStepReport takeReport() { return reportOf(std::move(m_changes)); }

private:
    [[nodiscard]] UpgradeStepReport reportOf(std::vector<UpgradeChange> changes) const;
    void changed(Change&& change) override;

    ConfigInfo& m_document;
    const UpgradeStep& m_step;
    ChangeObserver* m_before;
    std::vector<UpgradeChange> m_changes;
};

}  // namespace XMLConfig::detail
