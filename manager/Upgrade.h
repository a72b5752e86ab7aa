#pragma once

#include <string>
#include <vector>

#include "manager/XMLConfigManager.h"
#include "platform/Export.h"

class ConfigInfo;

/// Brings a document of an older release up to the latest version, and reports what that changed.
namespace XMLConfig {

/// One thing that a conversion step did to the document.
struct UpgradeChange {
    enum class Kind { Added, Changed, Moved, Renamed, Removed };
    Kind kind;
    std::wstring section;     ///< tag of the section
    std::wstring sectionID;   ///< its "ID" before the change; "" without one
    std::wstring key;         ///< of the item; "" where the section as a whole was added, renamed or removed
    std::wstring oldValue;    ///< the text, XML elements or ID before; "" for what is added
    std::wstring newValue;    ///< the text, XML elements or ID after; "" for what is removed
    std::wstring newSection;  ///< of a moved item: where it is now
    std::wstring newKey;      ///< of a moved item
};

/// What one conversion step did.
struct UpgradeStepReport {
    double version = 0.0;  ///< the version that the step leads to
    std::wstring summary;  ///< one line for people
    std::vector<UpgradeChange> changes;
};

/// Told during an upgrade what that does. Without an observer the upgrade gathers nothing.
class XMLCONFIG_API UpgradeObserver {
public:
    virtual ~UpgradeObserver();
    /// Called once, before the first step; not for a document that needs none.
    virtual void upgradeBegins(double fromVersion, double toVersion) = 0;
    /// Called after each step that was applied, also where it found nothing to do. The document holds all that the steps
    /// did only after the last of them.
    virtual void stepDone(UpgradeStepReport step) = 0;
};

/// An observer that keeps all that it is told, in the order of the steps. Where the upgrade throws, it keeps what it was
/// told before.
class XMLCONFIG_API UpgradeReceipt : public UpgradeObserver {
public:
    ~UpgradeReceipt() override;
    void upgradeBegins(double from, double to) override;  ///< keeps both versions
    void stepDone(UpgradeStepReport step) override;       ///< keeps the report

    double fromVersion = 0.0;              ///< the document's version before; 0.0 where no upgrade began
    double toVersion = 0.0;                ///< the latest version; 0.0 where no upgrade began
    std::vector<UpgradeStepReport> steps;  ///< one for each step that was applied
};

/// Applies the conversion steps that the document's version asks for, in memory, and stamps the latest version.
/// UpgradeFailed for a document newer than the library, which is left alone. Throws what the document throws, e.g. without
/// a version, and what the observer throws; the document is then as it was before.
XMLCONFIG_API VersionUpgradeEnum upgradeDocument(ConfigInfo& document, UpgradeObserver* observer = nullptr);

/// A file version as files and messages spell it: "9.000", "2.005".
XMLCONFIG_API std::wstring versionText(double version);

}  // namespace XMLConfig
