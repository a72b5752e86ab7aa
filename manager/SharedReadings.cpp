#include "manager/SharedReadings.h"

#include <map>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "manager/diff/ValueComparison.h"

namespace XMLConfig::detail {
namespace {

constexpr double sharingVersion = 9.0;
constexpr const wchar_t* sharer = L"Geometry";
constexpr const wchar_t* projectorTag = L"Projector";

/// The values of projectors and the geometry section that the upgrade to 9.0 changed, as they were before it; taken from
/// the receipt.
class ValuesBeforeSharing {
public:
    explicit ValuesBeforeSharing(const UpgradeReceipt& receipt) {
        for (const UpgradeStepReport& step : receipt.steps)
            if (step.version == sharingVersion)
                for (const UpgradeChange& change : step.changes) add(change);
    }

    [[nodiscard]] std::vector<Setting> sharedSettings() const {
        std::vector<Setting> settings;
        for (const Setting& setting : settingsOfSection(projectorTag))
            if (setting.inheritsFrom == sharer && m_ofSharer.count(setting.key) > 0) settings.push_back(setting);
        return settings;
    }
    /// What the projector read before the upgrade: its own value where it had one, else that of the geometry section, else
    /// the default. Only for projectors that have no value of their own now.
    [[nodiscard]] std::wstring read(const Setting& setting, const std::wstring& projector) const {
        const auto own = m_own.find({projector, setting.key});
        const std::optional<std::wstring> text = own == m_own.end() ? m_ofSharer.at(setting.key) : own->second;
        return (text ? textAsRead(*text, setting) : std::nullopt).value_or(setting.defaultText);
    }

private:
    using Kind = UpgradeChange::Kind;

    void add(const UpgradeChange& change) {
        if (change.section == sharer && change.kind == Kind::Added) m_ofSharer[change.key] = std::nullopt;
        if (change.section == sharer && change.kind == Kind::Changed) m_ofSharer[change.key] = change.oldValue;
        if (change.section == projectorTag && change.kind == Kind::Removed)
            m_own[{change.sectionID, change.key}] = change.oldValue;
    }

    std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_own;  // by projector and key
    std::map<std::wstring, std::optional<std::wstring>> m_ofSharer;       // by key; nothing where it had none
};

}  // namespace

std::vector<ValueReadOtherwise> readOtherwise(const ConfigInfo& document, const UpgradeReceipt& receipt) {
    constexpr double closest = 1e-10;  // what is nearer counts as one value where the most frequent one is looked for
    const ValuesBeforeSharing before(receipt);
    const std::vector<Setting> settings = before.sharedSettings();
    std::vector<ValueReadOtherwise> found;
    for (const ElementView& projector : sectionElements(document, projectorTag)) {
        const std::wstring id = projector.id();
        for (const Setting& setting : settings) {
            const Address place{projectorTag, id, L"", L"", setting.key};
            const std::optional<EffectiveValue> now = id.empty() ? std::nullopt : effectiveValue(document, place);
            if (!now || now->origin == Origin::Stored) continue;
            const std::wstring old = before.read(setting, id);
            if (!areOneValue(old, now->text, setting.type, closest)) found.push_back({addressText(place), old, now->text});
        }
    }
    return found;
}

}  // namespace XMLConfig::detail
