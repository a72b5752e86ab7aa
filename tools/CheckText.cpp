#include "tools/CheckText.h"

#include <algorithm>
#include <map>

#include "platform/Utf8.h"
#include "store/Address.h"
#include "store/CorvaneException.h"
#include "tools/Colour.h"
#include "tools/MendAdvice.h"
#include "tools/Mending.h"
#include "tools/NumberTexts.h"
#include "tools/Printable.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;
using LocatedFinding = CheckedFile::LocatedFinding;

/// What a finding says. Findings of one rule that say the same may share a line.
std::wstring_view wordsOf(const Finding& finding) {
    if (finding.rule == L"XC901") return L"has no effect now";  // what switches it off may differ
    return finding.message;
}

/// The findings of a rule that may share a line, as indices in their order, by severity and words.
using Alike = std::map<std::pair<Severity, std::wstring_view>, std::vector<std::size_t>>;

std::wstring shownAddress(const Finding& finding, const Showing& showing) {
    try {
        return showing.address(finding.address, XMLConfig::parseAddress(finding.address));
    } catch (const CorvaneParseException&) {
        return printable(finding.address);
    }
}

std::wstring head(const Finding& finding, bool isColoured) {
    const Tone tone = finding.severity == Severity::Error     ? Tone::Bad
                      : finding.severity == Severity::Warning ? Tone::Doubtful
                                                              : Tone::Good;
    return coloured(nameOf(finding.severity), tone, isColoured) + L"[" + finding.rule + L"] ";
}

class Text {
public:
    Text(const CheckedFile& checked, const Showing& showing, bool isColoured)
        : m_checked(checked),
          m_showing(showing),
          m_isColoured(isColoured),
          m_file(printable(XMLConfig::wideFromUtf8(checked.file))) {}

    std::wstring make() const {
        std::wstring text;
        const std::vector<LocatedFinding>& all = m_checked.findings;
        for (std::size_t begin = 0, end = 0; begin < all.size(); begin = end) {
            while (end < all.size() && all[end].finding.rule == all[begin].finding.rule) ++end;
            addRule(text, begin, end);
        }
        return text + countLine() + mendAdvice(all, m_checked.file) + pictureHint();
    }

private:
    static constexpr std::size_t mostLines = 3;
    static constexpr std::size_t mostNamed = 4;

    /// Adds the lines of one rule's findings, which stand from `begin` up to `end`.
    void addRule(std::wstring& text, std::size_t begin, std::size_t end) const {
        Alike alike;
        std::vector<std::vector<std::size_t>*> groups;
        for (std::size_t i = begin; i < end; ++i) {
            const Finding& finding = m_checked.findings[i].finding;
            groups.push_back(&alike[{finding.severity, wordsOf(finding)}]);
            groups.back()->push_back(i);
        }
        for (std::size_t i = begin; i < end; ++i) {
            const std::vector<std::size_t>& group = *groups[i - begin];
            if (group.size() <= mostLines) text += line(m_checked.findings[i]);
            else if (group.front() == i) text += sharedLine(group);
        }
    }

    [[nodiscard]] std::wstring line(const LocatedFinding& located) const {
        const Finding& finding = located.finding;
        const std::wstring start = head(finding, m_isColoured);
        if (finding.address.empty()) return start + printable(messageOf(located)) + L"\n";
        const std::wstring number = located.line ? L":" + std::to_wstring(*located.line) : L"";
        return start + m_file + number + L" " + shownAddress(finding, m_showing) + L": " + printable(messageOf(located)) +
               L"\n";
    }

    [[nodiscard]] std::wstring sharedLine(const std::vector<std::size_t>& alike) const {
        const Finding& first = m_checked.findings[alike[0]].finding;
        std::wstring text = head(first, m_isColoured) + std::to_wstring(alike.size());
        text += first.rule == L"XC901" ? L" settings have no effect now: " : L" times: " + printable(first.message) + L": ";
        for (std::size_t i = 0; i < alike.size() && i < mostNamed; ++i)
            text += (i == 0 ? L"" : L", ") + shownAddress(m_checked.findings[alike[i]].finding, m_showing);
        return text + (alike.size() > mostNamed ? L", \u2026\n" : L"\n");
    }

    [[nodiscard]] std::wstring countLine() const {
        const auto number = [this](Severity severity, const wchar_t* noun) {
            return counted(m_checked.count(severity), noun);
        };
        const std::wstring text = m_file + L": " + number(Severity::Error, L"error") + L", " +
                                  number(Severity::Warning, L"warning") + L", " + number(Severity::Note, L"note") +
                                  acceptedCount();
        return text + (m_checked.findings.empty() ? L"; all is well\n" : mendHint() + L"\n");
    }

    [[nodiscard]] std::wstring acceptedCount() const {
        const std::size_t count = m_checked.acceptedFindings;
        return count == 0 ? L"" : L", " + std::to_wstring(count) + L" accepted";
    }

    /// How many findings --fix would mend, and the command for that.
    [[nodiscard]] std::wstring mendHint() const {
        std::map<Severity, std::size_t> counts;
        for (const LocatedFinding& located : m_checked.findings) {
            if (isMendedByFix(located.finding)) ++counts[located.finding.severity];
            else if (forbidsMending(located.finding) || located.finding.rule == L"XC101") return L"";
        }
        std::wstring text;
        for (const auto& [severity, count] : counts) text += (text.empty() ? L"" : L", ") + counted(count, nameOf(severity));
        return text.empty() || m_file == L"-" ? L"" : L"; " + text + L" mended by --fix";
    }

    /// The command that draws the channels that something was found about.
    [[nodiscard]] std::wstring pictureHint() const {
        const auto isOfChannels = [](const LocatedFinding& located) {
            return located.finding.severity != Severity::Note && located.finding.rule.compare(0, 3, L"XC3") == 0;
        };
        if (m_file == L"-" || std::none_of(m_checked.findings.begin(), m_checked.findings.end(), isOfChannels)) return L"";
        return L"  a picture: xmlconfig layout --svg layout.svg " +
               printable(fileWord(XMLConfig::wideFromUtf8(m_checked.file))) + L"\n";
    }

    const CheckedFile& m_checked;
    const Showing& m_showing;
    const bool m_isColoured;
    const std::wstring m_file;
};

}  // namespace

std::size_t CheckedFile::count(Severity severity) const {
    const auto isOfIt = [&](const LocatedFinding& located) { return located.finding.severity == severity; };
    return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isOfIt));
}

std::wstring messageOf(const LocatedFinding& located) {
    if (located.finding.rule != L"XC106" || located.otherLines.empty() || !located.otherLines[0])
        return located.finding.message;
    return L"is hidden by that in line " + std::to_wstring(*located.otherLines[0]);
}

std::wstring findingText(const Finding& finding, const Showing& showing, bool isColoured) {
    const std::wstring place = finding.address.empty() ? L"" : shownAddress(finding, showing) + L": ";
    return head(finding, isColoured) + place + printable(finding.message);
}

std::wstring checkText(const CheckedFile& checked, const Showing& showing, bool isColoured) {
    return Text(checked, showing, isColoured).make();
}

}  // namespace tool
