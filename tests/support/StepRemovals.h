#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "manager/upgrade/UpgradeChain.h"

/// What the steps of the upgrade take away, found by running them. Run in the root of the sources.

/// Section and key.
using SettingName = std::pair<std::wstring, std::wstring>;
/// Settings that today's catalogue does not know, with the version of the last step that removes or moves them.
using Removals = std::map<SettingName, double>;

/// Those that the step removes or moves from a document of this text.
Removals removalsOf(const XMLConfig::detail::UpgradeStep& step, const std::string& text);
/// Those that the chain's steps remove or move from the documents that the tests have for them, and from one in which each
/// section holds an item for every key that any step names, so that nothing is missed because no file holds it.
Removals removalsOfChain();

/// What is missing in the list of settings that are gone, one text a setting.
std::vector<std::string> missingAmongGone(const Removals& removals);
