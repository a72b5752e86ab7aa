#include <map>
#include <set>

#include "manager/SettingSearch.h"
#include "store/ConfigInfo.h"
#include "tools/DiffText.h"
#include "tools/Printable.h"
#include "tools/Showing.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::Difference;
using XMLConfig::SettingDifference;

/// Makes the lines from which "set --from" makes the new document of the old one, as far as it can.
class LinesForSet {
public:
    LinesForSet(const Difference& difference, const ConfigInfo& newDocument)
        : m_difference(difference),
          m_new(newDocument),
          m_leftOut(difference.renamed.size() + difference.added.size() + difference.removed.size() +
                    difference.order.size()) {
        for (const XMLConfig::RenamedDevice& device : difference.renamed)
            m_oldIDs[{device.section, device.newID}] = device.oldID;
    }

    void addChanged() {
        for (const SettingDifference& change : m_difference.changed) {
            const std::optional<std::wstring> value = change.inSnippet ? snippetOf(change) : change.now;
            if (!value) ++m_leftOut;
            else if (!change.inSnippet || m_snippets.insert(addressText(change.place)).second) add(change, *value);
        }
    }

    /// Adds lines for settings that inherit from a changed one in the old document: without them the other lines would
    /// change these settings too.
    void addInherited() {
        std::set<std::wstring> changed;
        for (const SettingDifference& change : m_difference.changed)
            if (change.place.sectionID.empty()) changed.insert(change.address);
        for (const SettingDifference& same : m_difference.sameInEffect) {
            const XMLConfig::Setting* const setting = same.now ? XMLConfig::knownSetting(same.place) : nullptr;
            if (setting == nullptr || setting->inheritsFrom.empty()) continue;
            const Address above{setting->inheritsFrom, L"", L"", L"", setting->key};
            if (changed.count(addressText(above)) > 0) add(same, *same.now);
        }
    }

    [[nodiscard]] const std::wstring& text() const { return m_text; }
    [[nodiscard]] std::size_t leftOut() const { return m_leftOut; }

private:
    void add(const SettingDifference& change, const std::wstring& value) {
        Address place = change.place;
        if (const std::wstring* const oldID = oldIDOf(place)) place.sectionID = *oldID;
        m_text += escaped(addressText(place) + L"=" + value) + L"\n";
    }

    /// The ID that the device had in the old document; null for a device that has not been renamed.
    [[nodiscard]] const std::wstring* oldIDOf(const Address& place) const {
        const auto old = m_oldIDs.find({place.section, place.sectionID});
        return old == m_oldIDs.end() ? nullptr : &old->second;
    }

    /// The whole snippet, since its parts have no addresses. Nothing where it is gone, and where the device was renamed,
    /// because the snippet then holds the new ID.
    [[nodiscard]] std::optional<std::wstring> snippetOf(const SettingDifference& change) const {
        if (oldIDOf(change.place) != nullptr) return std::nullopt;
        std::wstring snippet =
            m_new.getStringItemAsDOMElement(change.place.section, change.place.key, L"", change.place.sectionID);
        return snippet.empty() ? std::nullopt : std::optional(std::move(snippet));
    }

    const Difference& m_difference;
    const ConfigInfo& m_new;
    std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_oldIDs;  // by section and new ID
    std::set<std::wstring> m_snippets;                                       // of which there is a line
    std::wstring m_text;
    std::size_t m_leftOut;
};

}  // namespace

std::wstring diffLines(const Difference& difference, const Compared& compared, std::size_t& leftOut) {
    LinesForSet lines(difference, compared.newDocument);
    lines.addChanged();
    lines.addInherited();
    leftOut = lines.leftOut();
    return lines.text();
}

}  // namespace tool
