#include <algorithm>
#include <tuple>

#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "store/FilePlaces.h"
#include "tools/Acceptance.h"
#include "tools/CheckText.h"
#include "tools/Colour.h"
#include "tools/Configuration.h"
#include "tools/Mending.h"
#include "tools/Reading.h"
#include "tools/RuleText.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;

XMLConfig::CheckOptions optionsOf(const Request& request, const std::string& file, std::optional<double> storedVersion) {
    XMLConfig::CheckOptions options;
    for (const std::string& word : request.rules) options.onlyRules.push_back(ruleIDOf(word));
    if (file != "-") options.file = XMLConfig::wideFromUtf8(file);
    options.looksForFiles = !request.withoutFiles;
    options.storedVersion = storedVersion;
    options.givesAccepted = true;
    return options;
}

using FoundLines = std::vector<std::optional<unsigned long long>>;

/// The lines in which findings and their other places stand, of each finding the own one first. Where no file is named,
/// nothing has a line.
FoundLines linesOf(const std::vector<Finding>& findings, const ConfigInfo& document, const std::string& file) {
    std::vector<XMLConfig::ElementView> elements;
    for (const Finding& finding : findings) {
        elements.push_back(finding.element);
        for (const XMLConfig::FindingPlace& other : finding.places) elements.push_back(other.element);
    }
    FoundLines lines(elements.size());
    if (file.empty()) return lines;
    try {
        const XMLConfig::FilePlaces places(document, XMLConfig::wideFromUtf8(file));
        for (std::size_t i = 0; i < elements.size(); ++i)
            if (const auto place = places.find(elements[i])) lines[i] = place->line;
    } catch (const CorvaneException&) {
        // Another program has replaced the file by one that cannot be read. The findings are shown without lines.
    }
    return lines;
}

/// The place of a finding in the answer. The findings of one group have the same severity and rule.
struct Turn {
    std::size_t group = 0;
    unsigned long long line = 0;
    std::size_t index = 0;
    std::size_t lines = 0;  ///< where those of the finding begin among all
    bool operator<(const Turn& other) const {
        return std::tie(group, line, index) < std::tie(other.group, other.line, other.index);
    }
};

/// The order in which the findings are shown: by severity and rule, as the check gives them, and within these by line.
std::vector<Turn> turnsOf(const std::vector<Finding>& findings, const FoundLines& lines) {
    const auto isOfOneRule = [](const Finding& one, const Finding& other) {
        return one.severity == other.severity && one.rule == other.rule;
    };
    std::vector<Turn> turns;
    turns.reserve(findings.size());
    std::size_t group = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (i > 0 && !isOfOneRule(findings[i - 1], findings[i])) ++group;
        turns.push_back({group, lines[next].value_or(0), i, next});
        next += 1 + findings[i].places.size();
    }
    if (!std::is_sorted(turns.begin(), turns.end())) std::sort(turns.begin(), turns.end());
    return turns;
}

std::vector<CheckedFile::LocatedFinding> withLines(std::vector<Finding> findings, const ConfigInfo& document,
                                                   const std::string& file) {
    std::vector<CheckedFile::LocatedFinding> result;
    if (findings.empty()) return result;
    const FoundLines lines = linesOf(findings, document, file);
    result.reserve(findings.size());
    for (const Turn& turn : turnsOf(findings, lines)) {
        CheckedFile::LocatedFinding& located = result.emplace_back();
        located.finding = std::move(findings[turn.index]);
        const auto own = lines.begin() + static_cast<std::ptrdiff_t>(turn.lines);
        located.line = *own;
        located.otherLines.assign(own + 1, own + 1 + static_cast<std::ptrdiff_t>(located.finding.places.size()));
    }
    return result;
}

/// Removes the findings that comments accept, and gives how many there were.
std::size_t takeAccepted(std::vector<Finding>& findings) {
    const auto isAccepted = [](const Finding& finding) { return finding.isAccepted; };
    const auto rest = std::remove_if(findings.begin(), findings.end(), isAccepted);
    const auto count = static_cast<std::size_t>(findings.end() - rest);
    findings.erase(rest, findings.end());
    return count;
}

/// Checks a document and adds the findings, with their lines in that file. Gives the text that shows them, which is made
/// here because findings borrow the document.
std::wstring addFindings(CheckedFile& checked, const ConfigInfo& document, const Request& request,
                         std::optional<double> storedVersion, const std::string& fileOfLines) {
    checked.version = storedVersion.value_or(document.getVersion());
    std::vector<Finding> findings = XMLConfig::check(document, optionsOf(request, checked.file, storedVersion));
    checked.acceptedFindings = takeAccepted(findings);
    checked.findings = withLines(std::move(findings), document, fileOfLines);
    return request.json ? L"" : checkText(checked, Showing(document), isColoured(request.colour));
}

/// Checks one file. `text` becomes what shows its findings.
CheckedFile checkFile(const Request& request, const std::string& file, std::wstring& text) {
    CheckedFile checked;
    checked.file = file;
    try {
        const ReadDocument read = readForCheck(file);
        text = addFindings(checked, *read.document, request, read.storedVersion, file == "-" ? "" : file);
    } catch (const Unreadable& fault) {
        checked.fault = XMLConfig::wideFromUtf8(fault.what());
        complain(checked.fault, fault.lines());
    }
    return checked;
}

/// Accepts some of the file's findings, and gives what a check of the file finds then.
CheckedFile acceptInFile(const Request& request, const std::string& file, std::wstring& text) {
    const auto lock = request.dryRun ? nullptr : lockForWriting(file, request);
    const std::unique_ptr<ConfigInfo> document = openDocument(file);
    requireLatestVersion(*document, file);
    CheckedFile checked;
    checked.file = file;
    checked.comments = accept(*document, request, optionsOf(request, file, std::nullopt));
    checked.isWritten = !request.dryRun;
    if (!request.dryRun) saveDocument(*document, file);
    if (!request.json && !request.quiet) text = acceptedText(checked.comments, *document, request);
    text += addFindings(checked, *document, request, std::nullopt, request.dryRun ? "" : file);
    return checked;
}

[[noreturn]] void refuseErrors(const std::string& file, const FindingChange& findings, const Showing& showing) {
    throw Refusal(XMLConfig::wideFromUtf8(file) + L": nothing was written, for the mends make errors",
                  errorLines(findings, showing));
}

/// The findings that may be mended: those from before, and those about comments that accept nothing any more. The former
/// were found without a look for files, so that a comment that accepts a missing file needs another check.
std::vector<Finding> toMend(const ConfigInfo& document, const DocumentBefore& before, const Request& request,
                            const std::string& file) {
    XMLConfig::CheckOptions options = optionsOf(request, file, std::nullopt);
    options.onlyRules = {L"XC910"};
    std::vector<Finding> findings = before.findings;
    for (Finding& finding : XMLConfig::check(document, options)) findings.push_back(std::move(finding));
    return findings;
}

/// Mends findings and writes the file. Gives the text that tells of the changes, to be shown before the findings. Throws a
/// Refusal where nothing may be mended.
std::wstring fixInFile(CheckedFile& checked, const Request& request) {
    const auto lock = request.dryRun ? nullptr : lockForWriting(checked.file, request);
    const std::unique_ptr<ConfigInfo> document = openDocument(checked.file);
    requireLatestVersion(*document, checked.file);
    const DocumentBefore before(*document, checked.file);
    const std::vector<Change> changes =
        mend(*document, toMend(*document, before, request, checked.file), request, checked.file);
    const FindingChange findings = compareFindings(before.findings, findingsOf(*document, checked.file));
    if (findings.newErrors > 0) refuseErrors(checked.file, findings, Showing(*document));
    const bool isToBeWritten = !changes.empty() && !request.dryRun;
    if (isToBeWritten) saveDocument(*document, checked.file);
    checked.isWritten = isToBeWritten;
    checked.changes = changes;
    std::wstring text;
    if (!request.json && !request.quiet)
        text = changesText(changes, before.showing, findingCounts(findings), request.dryRun, isColoured(request.colour));
    return text + addFindings(checked, *document, request, std::nullopt, request.dryRun ? "" : checked.file);
}

/// Mends some of the file's findings, and gives what a check of the file finds then. Where the mends are refused, the file
/// is as it was, and so are its findings.
CheckedFile fixFile(const Request& request, const std::string& file, std::wstring& text) {
    CheckedFile checked;
    checked.file = file;
    try {
        text = fixInFile(checked, request);
        return checked;
    } catch (const Unreadable& fault) {
        checked.fault = XMLConfig::wideFromUtf8(fault.what());
        complain(checked.fault, fault.lines());
        return checked;
    } catch (const Refusal& fault) {
        complain(XMLConfig::wideFromUtf8(fault.what()), fault.lines());
    }
    checked = checkFile(request, file, text);
    checked.isRefused = true;
    checked.isWritten = false;
    checked.changes.emplace();
    return checked;
}

CheckedFile answerFor(const Request& request, const std::string& file, std::wstring& text) {
    if (!request.accepted.empty()) return acceptInFile(request, file, text);
    return request.fix.empty() ? checkFile(request, file, text) : fixFile(request, file, text);
}

ExitStatus statusOf(const std::vector<CheckedFile>& all, bool isStrict) {
    ExitStatus status = Done;
    for (const CheckedFile& checked : all) {
        if (!checked.fault.empty()) return NotReadable;
        const bool isBad = checked.isRefused || checked.count(Severity::Error) > 0 || checked.count(Severity::Warning) > 0;
        if (isBad || (isStrict && !checked.findings.empty())) status = Refused;
    }
    return status;
}

}  // namespace

void setUpCheck(Options& options, Request& request) {
    options.value("FILE", request.operands, "The files to check; - for standard input").required().notEmpty(emptyName);
    options.value("--only", request.rules, "Look for these rules alone, as in XC103,XC217")
        .separatedBy(',')
        .valueName("RULE,...");
    options.flag("--no-files", request.withoutFiles, "Do not look for the files that a configuration names");
    options
        .flag("--fix", request.fix,
              "Do the safe mends, then check again; --fix=XC103,XC217 those of these rules that somebody has to ask for too")
        .valueName("[=RULE,...]");
    options
        .value("--accept", request.accepted,
               "Accept what this rule finds, there or anywhere, by a comment in its section: it counts no more")
        .valueName("RULE[@ADDRESS]");
    options.value("--because", request.because, "Why it is accepted, for those who read the file").valueName("TEXT");
    options.flag("--dry-run", request.dryRun, "Tell what would change and write nothing");
    options.flag("--strict", request.strict, "Let notes count for the exit status");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    setUpWriting(options, request);
    options.footer(
        "'xmlconfig describe RULE' tells what a rule looks at.\n\n"
        "Exit status: 0 no errors and no warnings, 1 some, 2 wrong usage, 3 a file cannot be read or is no\n"
        "configuration.");
}

ExitStatus runCheck(const Request& request) {
    // What is found in a large file takes as long to be freed as to be shown, and the process ends after this.
    static std::vector<CheckedFile>& all = *std::make_unique<std::vector<CheckedFile>>().release();
    for (const std::string& word : request.rules) ruleIDOf(word);
    refuseWrongAcceptance(request);
    refuseWrongFix(request);
    if (std::count(request.operands.begin(), request.operands.end(), "-") > 1)
        throw WrongOperands("only one of the files can be standard input");
    for (const std::string& file : request.operands) {
        std::wstring text;
        all.push_back(answerFor(request, file, text));
        print(text);
    }
    const ExitStatus status = statusOf(all, request.strict);
    if (request.json) print(checkJson(all, status));
    return status;
}

}  // namespace tool
