#include "tools/DiffText.h"

#include <vector>

#include "manager/SettingSearch.h"
#include "store/ConfigInfo.h"
#include "tools/Colour.h"
#include "tools/Printable.h"
#include "tools/Showing.h"
#include "tools/TableText.h"

namespace tool {
namespace {

using XMLConfig::Difference;
using XMLConfig::LoneDevice;
using XMLConfig::OrderDifference;
using XMLConfig::RenamedDevice;
using XMLConfig::SettingDifference;
using XMLConfig::detail::counted;
using XMLConfig::detail::joined;

std::wstring reasonOf(const RenamedDevice& device) {
    if (device.by == L"OldSectionID") return L"its OldSectionID says so";
    if (device.by == L"place") return L"replaced: it has the same connection or channel";
    return L"it has the same " + device.by;
}

/// "projectors" for "Projector".
std::wstring pluralOf(const std::wstring& section) {
    std::wstring plural = section + L"s";
    plural[0] = XMLConfig::detail::lowerAscii(plural[0]);
    return plural;
}

wchar_t signOf(const SettingDifference& difference) {
    if (!difference.old) return L'+';
    return difference.now ? L'~' : L'-';
}

Tone toneOf(wchar_t sign) { return sign == L'+' ? Tone::Good : sign == L'-' ? Tone::Bad : Tone::Doubtful; }

class DifferenceRows {
public:
    DifferenceRows(const Compared& compared, bool isColoured)
        : m_old(compared.oldDocument), m_new(compared.newDocument), m_isColoured(isColoured) {}

    /// Adds a line for the difference; `asStored` shows the stored forms, for texts that differ in nothing else.
    void add(const SettingDifference& difference, const std::wstring& remark, bool asStored = false) {
        const bool isPlain = asStored || difference.inSnippet;
        const XMLConfig::Setting* const setting = isPlain ? nullptr : XMLConfig::knownSetting(difference.place);
        const Showing& showing = difference.now ? m_new : m_old;
        const std::wstring text = difference.old && difference.now
                                      ? shownChange(m_old, *difference.old, m_new, *difference.now, setting)
                                      : showing.visibleValue(difference.now ? *difference.now : *difference.old, setting);
        addRow(signOf(difference), showing.address(difference.address, difference.place), text + remark);
    }
    void add(wchar_t sign, const LoneDevice& device) {
        const Showing& showing = sign == L'+' ? m_new : m_old;
        addRow(sign, showing.address({device.section, device.id, L"", L"", L""}),
               L"ID " + device.id + L", " + counted(device.settings, L"setting"));
    }

    /// The rows in two columns.
    std::wstring text() const {
        std::wstring lines;
        std::size_t start = 0;
        const std::wstring table = tableText(m_rows, L"");
        for (const wchar_t sign : m_signs) {
            const std::size_t end = table.find(L'\n', start);
            const std::wstring line = std::wstring(1, sign) + L" " + table.substr(start, end - start);
            lines += coloured(line, toneOf(sign), m_isColoured) + L"\n";
            start = end + 1;
        }
        return lines;
    }
    const Showing& now() const { return m_new; }

private:
    void addRow(wchar_t sign, const std::wstring& address, const std::wstring& text) {
        m_signs.push_back(sign);
        m_rows.push_back({address, text});
    }

    Showing m_old;
    Showing m_new;
    bool m_isColoured;
    std::vector<wchar_t> m_signs;
    std::vector<std::vector<std::wstring>> m_rows;
};

void addSigned(DifferenceRows& rows, const std::vector<SettingDifference>& differences, wchar_t sign) {
    for (const SettingDifference& difference : differences)
        if (signOf(difference) == sign) rows.add(difference, L"");
}

/// Adds the differences that change nothing that the application does.
void addQuiet(DifferenceRows& rows, const Difference& difference) {
    for (const SettingDifference& run : difference.runs) rows.add(run, L" (runs and times)");
    for (const SettingDifference& same : difference.sameInEffect)
        rows.add(same, L" (the same in effect: " + same.why + L")");
    for (const SettingDifference& same : difference.sameInValue) rows.add(same, L" (the same in value)", true);
}

struct Counts {
    std::size_t changed = 0;
    std::size_t added = 0;
    std::size_t removed = 0;
};

Counts countsOf(const Difference& difference) {
    Counts counts{0, difference.added.size(), difference.removed.size()};
    for (const SettingDifference& change : difference.changed) {
        const wchar_t sign = signOf(change);
        ++(sign == L'+' ? counts.added : sign == L'-' ? counts.removed : counts.changed);
    }
    return counts;
}

std::wstring notToldText(const Difference& difference) {
    std::vector<std::wstring> parts;
    const auto add = [&](std::size_t count, const wchar_t* what) {
        if (count > 0) parts.push_back(std::to_wstring(count) + what);
    };
    add(difference.runs.size(), L" of runs and times");
    add(difference.sameInEffect.size(), L" the same in effect");
    add(difference.sameInValue.size(), L" the same in value");
    return joined(parts);
}

/// Comments change nothing that the application does, and only their number is told.
std::wstring commentsText(const Difference& difference) {
    if (difference.comments == 0) return {};
    return L"; " + counted(difference.comments, L"comment") + (difference.comments == 1 ? L" differs" : L" differ");
}

}  // namespace

std::wstring diffText(const Difference& difference, const Compared& compared, bool all, bool isColoured) {
    DifferenceRows rows(compared, isColoured);
    std::wstring text;
    for (const RenamedDevice& device : difference.renamed)
        text += coloured(L"= " + rows.now().address({device.section, device.newID, L"", L"", L""}) + L"  ID " +
                             printable(device.oldID + L" -> " + device.newID) + L" (" + reasonOf(device) + L")",
                         Tone::Doubtful, isColoured) +
                L"\n";
    addSigned(rows, difference.changed, L'~');
    for (const LoneDevice& device : difference.added) rows.add(L'+', device);
    addSigned(rows, difference.changed, L'+');
    for (const LoneDevice& device : difference.removed) rows.add(L'-', device);
    addSigned(rows, difference.changed, L'-');
    if (all) addQuiet(rows, difference);
    text += rows.text();
    for (const OrderDifference& order : difference.order)
        text += coloured(L"^ order of the " + pluralOf(order.section) + L": " + printable(joined(order.now)), Tone::Doubtful,
                         isColoured) +
                L"\n";
    return text + diffStatistics(difference, all);
}

std::wstring diffStatistics(const Difference& difference, bool all) {
    const Counts counts = countsOf(difference);
    const std::wstring notTold = all ? std::wstring() : notToldText(difference);
    return std::to_wstring(difference.renamed.size()) + L" renamed, " + std::to_wstring(counts.changed) + L" changed, " +
           std::to_wstring(counts.added) + L" added, " + std::to_wstring(counts.removed) + L" removed" +
           (notTold.empty() ? L"" : L"; told with --all: " + notTold) + commentsText(difference) + L"\n";
}

}  // namespace tool
