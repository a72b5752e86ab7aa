#include "tools/Mending.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "manager/CheckRules.h"
#include "manager/StoredTexts.h"
#include "platform/Utf8.h"
#include "platform/Words.h"
#include "store/Address.h"
#include "store/Comments.h"
#include "store/CorvaneException.h"
#include "tools/AskedChange.h"
#include "tools/Changing.h"
#include "tools/Output.h"
#include "tools/RuleText.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::MendSafety;

/// How often all findings are mended, since one mend can make another possible. No mend is known to undo another's work; the
/// bound ends the rounds if one ever does.
constexpr int mostRounds = 4;

constexpr const wchar_t* acceptedGone = L"XC910";

bool isAmong(const std::vector<std::wstring>& rules, const std::wstring& rule) {
    return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

std::vector<std::wstring> rulesOf(const std::vector<std::string>& words) {
    std::vector<std::wstring> rules;
    rules.reserve(words.size());
    for (const std::string& word : words) rules.push_back(ruleIDOf(word));
    return rules;
}

/// The rules that --fix names.
std::vector<std::wstring> namedRules(const std::string& fix) {
    if (fix == "true") return {};
    std::vector<std::string> words;
    std::istringstream list(fix);
    for (std::string word; std::getline(list, word, ',');) words.push_back(word);
    return rulesOf(words);
}

/// Refuses a rule whose findings no mend is known for.
void refuseWithoutMend(const std::wstring& id) {
    const XMLConfig::CheckRule& rule = *XMLConfig::findRule(id);
    if (rule.safety != MendSafety::None) return;
    const std::wstring mend = rule.mend;
    throw WrongOperands(XMLConfig::utf8FromWide(
        L"--fix=" + id + L": the rule has no mend that a program could do" +
        (mend.empty() ? L"; 'xmlconfig describe " + id + L"' tells what it looks at" : L", only a person: " + mend)));
}

class Mending {
public:
    Mending(ConfigInfo& document, const Request& request, const std::string& file)
        : m_document(document), m_file(file), m_named(namedRules(request.fix)), m_only(rulesOf(request.rules)) {}

    void refuseUnsound(const std::vector<Finding>& findings) const {
        for (const Finding& finding : findings) {
            if (!forbidsMending(finding) || isWanted(finding)) continue;
            throw Refusal(XMLConfig::wideFromUtf8(m_file) + L": nothing is mended in a file with an error of its form: " +
                          finding.rule + L" " + finding.address + mendText(finding));
        }
    }

    /// Mends each finding once; false where there was nothing to do. Of mends that share a place only the first is done,
    /// since the others were made for what stood there before.
    bool mendEach(const std::vector<Finding>& findings) {
        const std::size_t before = m_changes.size();
        std::set<std::wstring> met;
        for (const Finding& finding : findings)
            if (isWanted(finding) && isNew(met, finding)) mendOne(finding);
        return m_changes.size() > before;
    }
    [[nodiscard]] const std::vector<Change>& changes() const { return m_changes; }

private:
    [[nodiscard]] bool isWanted(const Finding& finding) const {
        if (!m_only.empty() && !isAmong(m_only, finding.rule)) return false;
        const bool isAsked = finding.mend.safety == MendSafety::Asked && isAmong(m_named, finding.rule);
        return isMendedByFix(finding) || (isAsked && !finding.mend.commands.empty());
    }

    /// How it could be mended too.
    static std::wstring mendText(const Finding& finding) {
        const bool isMended = finding.mend.safety == MendSafety::Asked && !finding.mend.commands.empty();
        return isMended ? L"; --fix=" + finding.rule + L" mends that too" : L"";
    }

    static bool isNew(std::set<std::wstring>& met, const Finding& finding) {
        if (isOfThisVerb(finding)) return true;  // changes no setting
        std::vector<std::wstring> places;
        for (const std::vector<std::wstring>& command : finding.mend.commands) {
            const std::size_t value = command[0] == L"set" ? valueStart(command[2]) : std::wstring::npos;
            places.push_back(value == std::wstring::npos ? command[2] : command[2].substr(0, value - 1));
        }
        const auto isMet = [&](const std::wstring& place) { return met.count(place) > 0; };
        if (std::any_of(places.begin(), places.end(), isMet)) return false;
        met.insert(places.begin(), places.end());
        return true;
    }

    void mendOne(const Finding& finding) {
        try {
            if (finding.rule == acceptedGone) removeAcceptance(finding);
            else if (isOfThisVerb(finding)) removeCopy(finding);
            else
                for (const std::vector<std::wstring>& command : finding.mend.commands) run(command);
        } catch (const Refusal& fault) {
            refuse(finding, XMLConfig::wideFromUtf8(fault.what()));
        } catch (const CorvaneExceptionBase& fault) {
            refuse(finding, fault.getMessage());
        }
    }

    /// Whether the finding names no other command, since the command that mends it is --fix.
    static bool isOfThisVerb(const Finding& finding) { return finding.mend.commands[0][0] == L"check"; }

    /// Removes the second of two equal sections, so that the devices stay in their order.
    void removeCopy(const Finding& finding) {
        const XMLConfig::Address place = XMLConfig::parseAddress(finding.address);
        const XMLConfig::ElementView first = XMLConfig::findElement(m_document, place);
        Change change;
        change.address = finding.address;
        change.place = place;
        change.old =
            XMLConfig::detail::counted(XMLConfig::storedTexts(first, place, L"").size(), L"setting") + L", a second time";
        std::wstring spare = place.sectionID;
        while (!spare.empty() && m_document.doesSectionExist(place.section, spare)) spare += L'~';
        if (!spare.empty()) m_document.renameSection(place.section, place.sectionID, spare);
        m_document.removeSection(place.section, place.sectionID);
        if (!spare.empty()) m_document.renameSection(place.section, spare, place.sectionID);
        m_changes.push_back(change);
    }

    /// Removes a comment that accepts nothing.
    void removeAcceptance(const Finding& finding) {
        const std::wstring text = finding.places[0].text.value_or(L"");
        const bool isWhole = finding.address.empty();
        Change change;
        change.address = finding.address;
        if (!isWhole) change.place = XMLConfig::parseAddress(finding.address);
        change.old = XMLConfig::detail::withoutOuterBlanks(text);
        const XMLConfig::ElementView around =
            isWhole ? XMLConfig::rootElement(m_document) : XMLConfig::findElement(m_document, change.place);
        if (XMLConfig::removeComment(m_document, around, text) > 0) m_changes.push_back(change);
    }

    void run(const std::vector<std::wstring>& command) {
        const bool isSet = command[0] == L"set";
        if (!isSet && command[0] != L"unset") throw Refusal(L"no mend is called " + command[0]);
        for (Change& change : isSet ? applySet(m_document, command[2]) : applyUnset(m_document, command[2], m_file))
            m_changes.push_back(std::move(change));
    }

    [[noreturn]] void refuse(const Finding& finding, const std::wstring& fault) const {
        throw Refusal(XMLConfig::wideFromUtf8(m_file) + L": " + finding.rule + L" cannot be mended, nothing was written: " +
                      fault);
    }

    ConfigInfo& m_document;
    const std::string& m_file;
    const std::vector<std::wstring> m_named;
    const std::vector<std::wstring> m_only;
    std::vector<Change> m_changes;
};

}  // namespace

bool isMendedByFix(const Finding& finding) {
    return finding.mend.safety == MendSafety::Safe && !finding.mend.commands.empty();
}

bool forbidsMending(const Finding& finding) {
    return finding.severity == XMLConfig::Severity::Error && finding.rule.compare(0, 3, L"XC1") == 0;
}

void refuseWrongFix(const Request& request) {
    if (request.fix.empty()) return;
    for (const std::wstring& rule : namedRules(request.fix)) refuseWithoutMend(rule);
    if (!request.accepted.empty()) throw WrongOperands("--fix and --accept exclude each other");
    if (std::find(request.operands.begin(), request.operands.end(), "-") != request.operands.end())
        throw WrongOperands("--fix writes to files and cannot take standard input");
}

std::vector<Change> mend(ConfigInfo& document, const std::vector<Finding>& findings, const Request& request,
                         const std::string& file) {
    Mending mending(document, request, file);
    mending.refuseUnsound(findings);
    bool isChanged = mending.mendEach(findings);
    for (int round = 1; isChanged && round < mostRounds; ++round) isChanged = mending.mendEach(findingsOf(document, file));
    return mending.changes();
}

}  // namespace tool
