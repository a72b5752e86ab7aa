#include "manager/upgrade/StepRecorder.h"

#include <algorithm>

namespace XMLConfig::detail {

namespace {

UpgradeChange::Kind kindOf(Change::Kind kind) {
    switch (kind) {
        case Change::Kind::ItemAdded:
        case Change::Kind::SectionAdded:
            return UpgradeChange::Kind::Added;
        case Change::Kind::ItemRemoved:
        case Change::Kind::SectionRemoved:
            return UpgradeChange::Kind::Removed;
        case Change::Kind::SectionRenamed:
            return UpgradeChange::Kind::Renamed;
        case Change::Kind::SectionMoved:
            return UpgradeChange::Kind::Moved;
        case Change::Kind::ItemChanged:
        case Change::Kind::VersionChanged:
            break;
    }
    return UpgradeChange::Kind::Changed;
}

// Makes one change of a removal and what was written elsewhere for it, where the step did both.
void joinMove(std::vector<UpgradeChange>& changes, const ItemMove& move) {
    const auto removed = std::find_if(changes.begin(), changes.end(), [&](const UpgradeChange& change) {
        return change.kind == UpgradeChange::Kind::Removed && change.section == move.fromSection &&
               change.key == move.fromKey;
    });
    const auto written = std::find_if(changes.begin(), changes.end(), [&](const UpgradeChange& change) {
        const bool isWritten = change.kind == UpgradeChange::Kind::Added || change.kind == UpgradeChange::Kind::Changed;
        return isWritten && change.section == move.toSection && change.key == move.toKey;
    });
    if (removed == changes.end() || written == changes.end()) return;
    removed->kind = UpgradeChange::Kind::Moved;
    removed->newSection = move.toSection;
    removed->newKey = move.toKey;
    removed->newValue = written->newValue;
    changes.erase(written);
}

}  // namespace

StepRecorder::StepRecorder(ConfigInfo& document, const UpgradeStep& step)
    : m_document(document), m_step(step), m_before(setChangeObserver(document, this)) {}

StepRecorder::~StepRecorder() { setChangeObserver(m_document, m_before); }

UpgradeStepReport StepRecorder::report() const {
    UpgradeStepReport report{m_step.below, m_step.summary, m_changes};
    for (const ItemMove& move : m_step.moves) joinMove(report.changes, move);
    return report;
}

void StepRecorder::changed(const Change& change) {
    m_changes.push_back(
        {kindOf(change.kind), change.section, change.sectionID, change.key, change.oldValue, change.newValue, {}, {}});
}

}  // namespace XMLConfig::detail
