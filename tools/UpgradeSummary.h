#pragma once

#include <string>

#include "tools/UpgradeText.h"

namespace tool {

/// Lines about what people want to know of an upgrade: what went, what has another name or place, and what to do about it.
std::wstring upgradeSummary(const UpgradeOutcome& outcome);
/// `Camera[3] "Old analogue"`
std::wstring deviceName(const std::wstring& section, const std::wstring& id, const std::wstring& name);
/// The command that gives a setting the new IDs of the cameras.
std::wstring followingCommand(const UpgradeOutcome& outcome, const XMLConfig::DanglingReference& reference);

}  // namespace tool
