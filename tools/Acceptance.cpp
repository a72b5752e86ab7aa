#include "tools/Acceptance.h"

#include <algorithm>

#include "manager/Check.h"
#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "platform/Words.h"
#include "store/Address.h"
#include "store/Comments.h"
#include "tools/Colour.h"
#include "tools/NumberTexts.h"
#include "tools/Output.h"
#include "tools/Places.h"
#include "tools/Printable.h"
#include "tools/RuleText.h"
#include "tools/Showing.h"
#include "tools/Suggestion.h"

namespace tool {
namespace {

using XMLConfig::ElementView;
using XMLConfig::Finding;

/// What a command line accepts: "XC321" or "XC321@Projector[1]".
struct Accepted {
    std::wstring rule;
    std::wstring place;  ///< as it was written; "" for any
};

Accepted acceptedOf(const Request& request) {
    const std::size_t end = request.accepted.find('@');
    const std::wstring rule = ruleIDOf(request.accepted.substr(0, end));
    if (end == std::string::npos) return {rule, L""};
    const std::wstring place = XMLConfig::wideFromUtf8(request.accepted.substr(end + 1));
    XMLConfig::parseAddress(place);
    return {rule, place};
}

std::wstring reasonOf(const Request& request) {
    return XMLConfig::detail::withoutOuterBlanks(XMLConfig::wideFromUtf8(request.because.value_or("")));
}

void refuseWrongReason(const std::wstring& reason) {
    if (reason.empty()) throw WrongOperands("--accept needs a reason: --because TEXT");
    if (reason.find(L"--") != std::wstring::npos)
        throw WrongOperands("--because cannot hold \"--\", which would end the comment that it becomes");
    if (printable(reason) != reason)
        throw WrongOperands("--because is one line, without line feeds and other control characters");
}

/// What the rule finds at the place and inside of it, also what a comment accepts already.
std::vector<Finding> found(const ConfigInfo& document, const Accepted& accepted, XMLConfig::CheckOptions options) {
    options.onlyRules = {accepted.rule};
    options.givesAccepted = true;
    std::vector<Finding> findings = XMLConfig::check(document, options);
    if (accepted.place.empty()) return findings;
    std::vector<std::wstring> places;
    for (const XMLConfig::Address& place : placesOf(document, XMLConfig::parseAddress(accepted.place)))
        places.push_back(XMLConfig::addressText(place));
    const auto isElsewhere = [&](const Finding& finding) {
        return std::none_of(places.begin(), places.end(), [&](const std::wstring& place) {
            return finding.address == place || finding.address.compare(0, place.size() + 1, place + L"/") == 0;
        });
    };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isElsewhere), findings.end());
    return findings;
}

/// The section that a finding stands in; the root for a finding that stands in no section.
ElementView sectionOf(const Finding& finding, const ConfigInfo& document) {
    const ElementView root = XMLConfig::rootElement(document);
    ElementView place = finding.element;
    while (place && place != root && place.parent() != root) place = place.parent();
    return !place || XMLConfig::isHeaderElement(place.name()) ? root : place;
}

XMLConfig::Address addressOf(const ElementView& section) {
    if (!section.parent()) return {};
    return {section.name(), section.id(), L"", L"", L""};
}

/// Advice for a place where nothing stands: what the user may have meant.
std::wstring adviceFor(const ConfigInfo& document, const Accepted& accepted) {
    if (accepted.place.empty()) return L"";
    const XMLConfig::Address address = XMLConfig::parseAddress(accepted.place);
    const std::vector<XMLConfig::Address> places = placesOf(document, address);
    const bool isThere =
        !places.empty() && (XMLConfig::findElement(document, places[0]) || XMLConfig::knownSetting(places[0]));
    return isThere ? L"" : suggestionFor(document, address);
}

}  // namespace

void refuseWrongAcceptance(const Request& request) {
    if (request.accepted.empty()) {
        if (request.because) throw WrongOperands("--because tells why --accept is asked for, which is missing");
        return;
    }
    const Accepted accepted = acceptedOf(request);
    if (accepted.rule == L"XC910") throw WrongOperands("XC910 cannot be accepted; remove the comment that it names");
    refuseWrongReason(reasonOf(request));
    if (request.operands.size() != 1) throw WrongOperands("--accept takes one file");
    if (request.operands[0] == "-") throw WrongOperands("--accept writes to a file and cannot take standard input");
}

std::vector<NewComment> accept(ConfigInfo& document, const Request& request, XMLConfig::CheckOptions options) {
    const Accepted accepted = acceptedOf(request);
    const std::wstring text = XMLConfig::acceptanceText(accepted.rule, reasonOf(request));
    const std::vector<Finding> findings = found(document, accepted, std::move(options));
    std::vector<ElementView> sections;
    std::vector<NewComment> comments;
    for (const Finding& finding : findings) {
        if (finding.isAccepted) continue;
        const ElementView section = sectionOf(finding, document);
        const auto known = std::find(sections.begin(), sections.end(), section);
        if (known == sections.end()) comments.push_back({addressOf(section), text, 1});
        else ++comments[static_cast<std::size_t>(known - sections.begin())].findings;
        if (known == sections.end()) sections.push_back(section);
    }
    const std::wstring place = accepted.place.empty() ? L"" : L" at " + accepted.place;
    if (findings.empty()) throw Refusal(accepted.rule + L" is not found" + place + adviceFor(document, accepted));
    if (sections.empty()) throw Refusal(accepted.rule + L" is accepted already" + place);
    XMLConfig::addComment(document, sections, L" " + text + L" ");
    return comments;
}

std::wstring acceptedText(const std::vector<NewComment>& comments, const ConfigInfo& document, const Request& request) {
    const Showing showing(document);
    std::wstring text;
    std::size_t findings = 0;
    for (const NewComment& comment : comments) {
        const bool isWhole = comment.section.section.empty();
        text += coloured(L"+", Tone::Good, isColoured(request.colour)) + L" " +
                (isWhole ? L"the whole file" : showing.address(comment.section)) + L": " + printable(comment.text) + L"\n";
        findings += comment.findings;
    }
    return text + counted(comments.size(), L"comment") + L" for " + counted(findings, L"finding") +
           (request.dryRun ? L" (dry run, nothing written)\n" : L"\n");
}

}  // namespace tool
