#include "manager/upgrade/StepRecorder.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace XMLConfig::detail {

namespace {

using Kind = UpgradeChange::Kind;

// What a receipt calls the changes, in the order of Change::Kind.
constexpr Kind kinds[] = {Kind::Added,   Kind::Changed, Kind::Removed, Kind::Added,
                          Kind::Removed, Kind::Renamed, Kind::Moved,   Kind::Changed};
static_assert(std::size(kinds) == static_cast<std::size_t>(Change::Kind::VersionChanged) + 1);

Kind kindOf(Change::Kind kind) { return kinds[static_cast<std::size_t>(kind)]; }

// Makes one change of a removal and what was written elsewhere for it, where the step did both.
void joinMove(std::vector<UpgradeChange>& changes, const ItemMove& move) {
    const auto removed = std::find_if(changes.begin(), changes.end(), [&](const UpgradeChange& change) {
        return change.kind == Kind::Removed && change.section == move.fromSection && change.key == move.fromKey;
    });
    const auto written = std::find_if(changes.begin(), changes.end(), [&](const UpgradeChange& change) {
        const bool isWritten = change.kind == Kind::Added || change.kind == Kind::Changed;
        return isWritten && change.section == move.toSection && change.key == move.toKey;
    });
    if (removed == changes.end() || written == changes.end()) return;
    removed->kind = Kind::Moved;
    removed->newSection = move.toSection;
    removed->newKey = move.toKey;
    removed->newValue = written->newValue;
    changes.erase(written);
}

}  // namespace

StepRecorder::StepRecorder(ConfigInfo& document, const UpgradeStep& step)
    : m_document(document), m_step(step), m_before(setChangeObserver(document, this)) {}

StepRecorder::~StepRecorder() { setChangeObserver(m_document, m_before); }

UpgradeStepReport StepRecorder::reportOf(std::vector<UpgradeChange> changes) const {
    UpgradeStepReport report{m_step.below, m_step.summary, std::move(changes)};
    for (const ItemMove& move : m_step.moves) joinMove(report.changes, move);
    return report;
}

void StepRecorder::changed(Change&& change) {
    m_changes.push_back({kindOf(change.kind),
                         std::move(change.section),
                         std::move(change.sectionID),
                         std::move(change.key),
                         std::move(change.oldValue),
                         std::move(change.newValue),
                         {},
                         {}});
}

}  // namespace XMLConfig::detail
