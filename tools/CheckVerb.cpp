#include <algorithm>
#include <numeric>

#include "manager/CheckRules.h"
#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "store/FilePlaces.h"
#include "tools/CheckText.h"
#include "tools/Colour.h"
#include "tools/Reading.h"
#include "tools/RuleText.h"
#include "tools/Suggestion.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;

std::wstring ruleOf(const std::string& word) {
    if (const XMLConfig::CheckRule* const rule = ruleNamed(XMLConfig::wideFromUtf8(word))) return rule->id;
    throw WrongOperands("there is no rule " + word + "; docs/rules.md and 'xmlconfig describe' tell all");
}

XMLConfig::CheckOptions optionsOf(const Request& request, const std::string& file, std::optional<double> storedVersion) {
    XMLConfig::CheckOptions options;
    for (const std::string& word : request.rules) options.onlyRules.push_back(ruleOf(word));
    if (file != "-") options.file = XMLConfig::wideFromUtf8(file);
    options.looksForFiles = !request.withoutFiles;
    options.storedVersion = storedVersion;
    return options;
}

/// Finds the lines of what was found.
class Lines {
public:
    Lines(const ConfigInfo& document, const std::string& file) {
        if (file == "-") return;
        try {
            m_places = std::make_unique<XMLConfig::FilePlaces>(document, XMLConfig::wideFromUtf8(file));
        } catch (const CorvaneException&) {
            // Another program has replaced the file by one that cannot be read: what was found stands without lines.
        }
    }
    [[nodiscard]] std::optional<unsigned long long> of(const XMLConfig::ElementView& element) const {
        if (!m_places || !element) return std::nullopt;
        const std::optional<XMLConfig::FilePlace> place = m_places->find(element);
        return place ? std::optional<unsigned long long>(place->line) : std::nullopt;
    }

private:
    std::unique_ptr<XMLConfig::FilePlaces> m_places;
};

/// The findings come by severity and rule; within these they are told by line.
std::vector<CheckedFile::Place> withLines(std::vector<Finding> findings, const ConfigInfo& document,
                                          const std::string& file) {
    std::vector<CheckedFile::Place> result;
    if (findings.empty()) return result;
    const Lines lines(document, file);
    std::vector<std::size_t> order(findings.size());
    std::vector<unsigned long long> found;
    found.reserve(findings.size());
    for (const Finding& finding : findings) found.push_back(lines.of(finding.element).value_or(0));
    std::iota(order.begin(), order.end(), 0U);
    const auto isBefore = [&](std::size_t a, std::size_t b) {
        if (findings[a].severity != findings[b].severity) return findings[a].severity < findings[b].severity;
        if (findings[a].rule != findings[b].rule) return findings[a].rule < findings[b].rule;
        return found[a] < found[b];
    };
    if (!std::is_sorted(order.begin(), order.end(), isBefore)) std::stable_sort(order.begin(), order.end(), isBefore);
    for (const std::size_t index : order) {
        const std::optional<unsigned long long> line = found[index] == 0 ? std::nullopt : std::optional(found[index]);
        result.push_back({std::move(findings[index]), line, {}});
        for (const XMLConfig::FindingPlace& other : result.back().finding.places)
            result.back().otherLines.push_back(lines.of(other.element));
    }
    return result;
}

/// The findings of one file, and how they are shown: at once, because they borrow the document.
CheckedFile checkFile(const Request& request, const std::string& file, std::wstring& text) {
    CheckedFile checked;
    checked.file = file;
    try {
        const ReadForCheck read = readForCheck(file);
        checked.version = read.storedVersion ? *read.storedVersion : read.document->getVersion();
        std::vector<Finding> findings = XMLConfig::check(*read.document, optionsOf(request, file, read.storedVersion));
        checked.findings = withLines(std::move(findings), *read.document, file);
        if (!request.json) text = checkText(checked, Showing(*read.document), isColoured(request.colour));
    } catch (const Unreadable& fault) {
        checked.fault = XMLConfig::wideFromUtf8(fault.what());
        complain(checked.fault);
    }
    return checked;
}

ExitStatus statusOf(const std::vector<CheckedFile>& all, bool isStrict) {
    ExitStatus status = Done;
    for (const CheckedFile& checked : all) {
        if (!checked.fault.empty()) return NotReadable;
        const bool isBad = checked.count(Severity::Error) > 0 || checked.count(Severity::Warning) > 0;
        if (isBad || (isStrict && !checked.findings.empty())) status = Refused;
    }
    return status;
}

}  // namespace

void setUpCheck(Options& options, Request& request) {
    options.value("FILE", request.operands, "The files to check; - for standard input").required();
    options.value("--only", request.rules, "Look for these rules alone, as in XC103,XC217")
        .separatedBy(',')
        .valueName("RULE");
    options.flag("--no-files", request.withoutFiles, "Do not look for the files that a configuration names");
    options.flag("--strict", request.strict, "Let notes count for the exit status");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    options.footer(
        "'xmlconfig describe RULE' tells what a rule looks at.\n\n"
        "Exit status: 0 no errors and no warnings, 1 some, 2 wrong usage, 3 a file cannot be read or is no\n"
        "configuration.");
}

ExitStatus runCheck(const Request& request) {
    std::vector<CheckedFile> all;
    for (const std::string& word : request.rules) ruleOf(word);
    for (const std::string& file : request.operands) {
        std::wstring text;
        all.push_back(checkFile(request, file, text));
        print(text);
    }
    const ExitStatus status = statusOf(all, request.strict);
    if (request.json) print(checkJson(all, status));
    return status;
}

}  // namespace tool
