#pragma once

#include <string>
#include <vector>

#include "manager/UpgradeFile.h"

/// What an upgrade did, as text and as JSON.
namespace tool {

struct UpgradeOutcome {
    std::wstring file;
    bool isDryRun = false;
    std::wstring fault;      ///< why it failed; "" where it did not
    bool isRefused = false;  ///< whether it failed though the files can be read and written
    XMLConfig::UpgradeFileReport report;
};

struct UpgradeCounts {
    std::size_t upgraded = 0;
    std::size_t current = 0;
    std::size_t failed = 0;
    std::size_t lost = 0;  ///< of the upgraded, how many lost a device
};
UpgradeCounts countOf(const std::vector<UpgradeOutcome>& outcomes);

/// One line about a file that did not fail; `namesLost` names the devices that are lost.
std::wstring upgradeLine(const UpgradeOutcome& outcome, bool namesLost);
/// Lines about each step and each change; "" where there was no step.
std::wstring explanation(const XMLConfig::UpgradeReceipt& receipt);
/// "2 upgraded, 1 at the latest version already, 0 failed; 1 lost something"
std::wstring countLine(const std::vector<UpgradeOutcome>& outcomes);
/// One object, with a line end.
std::wstring upgradeJson(const std::vector<UpgradeOutcome>& outcomes, int exitStatus);

}  // namespace tool
