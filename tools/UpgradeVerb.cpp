#include "manager/UpgradeFile.h"
#include "platform/SignalHold.h"
#include "platform/Terminal.h"
#include "platform/Utf8.h"
#include "tools/Colour.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/UpgradeSummary.h"
#include "tools/UpgradeText.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

// The number of the file that is being converted, in one line that each next file overwrites; shown on a terminal only,
// and not for a single file.
class Progress {
public:
    explicit Progress(std::size_t count)
        : m_count(count), m_isShown(count > 1 && XMLConfig::detail::isErrorATerminal() && !isTerminalDumb()) {}
    ~Progress() { clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void begin(const std::string& file) {
        ++m_done;
        if (m_isShown)
            showProgress("\r" + std::to_string(m_done) + "/" + std::to_string(m_count) + " " +
                         XMLConfig::utf8FromWide(printable(XMLConfig::wideFromUtf8(file))) + "\x1b[K");
    }
    void clear() const {
        if (m_isShown) showProgress("\r\x1b[K");
    }

private:
    std::size_t m_count;
    std::size_t m_done = 0;
    bool m_isShown;
};

// A fault of one file is kept in its outcome, so that the other files are converted all the same.
UpgradeOutcome upgradeOne(const std::string& file, const Request& request) {
    UpgradeOutcome outcome;
    outcome.file = XMLConfig::wideFromUtf8(file);
    outcome.isDryRun = request.dryRun;
    try {
        const auto lock = request.dryRun ? nullptr : lockForWriting(file, request);
        const XMLConfig::SignalHold hold;
        outcome.report = XMLConfig::upgradeFile({outcome.file, XMLConfig::wideFromUtf8(request.target), !request.dryRun});
        const bool isNew = outcome.report.status == XMLConfig::Upgraded || !request.target.empty();
        if (isNew && !request.dryRun) noteWritten(XMLConfig::utf8FromWide(outcome.report.target));
    } catch (const Refusal& fault) {  // another program is writing
        outcome.fault = XMLConfig::wideFromUtf8(fault.what());
        outcome.isRefused = true;
    } catch (const std::exception& fault) {
        outcome.fault = withReason(XMLConfig::wideFromUtf8(fault.what()), file);
        outcome.isRefused = !request.target.empty() && exists(request.target);
    }
    return outcome;
}

ExitStatus statusOf(const std::vector<UpgradeOutcome>& outcomes) {
    ExitStatus status = Done;
    for (const UpgradeOutcome& outcome : outcomes) {
        if (!outcome.fault.empty() && !outcome.isRefused) return NotReadable;
        if (outcome.isRefused || !outcome.report.lost.empty()) status = Refused;
    }
    return status;
}

void refuseWrongOperands(const Request& request) {
    if (!request.target.empty() && request.operands.size() > 1) throw WrongOperands("--output goes with one FILE only");
    for (const std::string& file : request.operands)
        if (file == "-") throw WrongOperands("a file is converted here; standard input cannot be");
    if (request.target == "-") throw WrongOperands("the result goes to a file; standard output cannot take it");
}

/// A version that is no number counts as 0 for the application.
void tellAssumedVersion(const UpgradeOutcome& outcome) {
    const bool isConverted = outcome.fault.empty() && outcome.report.status == XMLConfig::Upgraded;
    if (isConverted && !(outcome.report.receipt.fromVersion > 0.0))
        complain(outcome.file + L": its version \"" + outcome.report.statedVersion +
                 L"\" is no number above 0; converted as if of version " +
                 XMLConfig::versionText(outcome.report.receipt.fromVersion) + L", as the application does");
}

/// Without what the library puts before it, which would name the file twice.
std::wstring reasonOf(const UpgradeOutcome& outcome) {
    const std::wstring prefix = L"Error upgradeFile: " + outcome.file + L": ";
    const bool isPrefixed = outcome.fault.compare(0, prefix.size(), prefix) == 0;
    return isPrefixed ? outcome.fault.substr(prefix.size()) : outcome.fault;
}

void printOutcome(const UpgradeOutcome& outcome, const Request& request) {
    if (!outcome.fault.empty())
        complain(outcome.file + L": not upgraded: " + reasonOf(outcome),
                 faultLineIn(XMLConfig::utf8FromWide(outcome.file), outcome.fault));
    tellAssumedVersion(outcome);
    if (request.json || request.quiet) return;
    if (outcome.fault.empty()) print(upgradeLine(outcome, !request.explain) + L"\n");
    if (request.explain && outcome.fault.empty()) print(upgradeSummary(outcome));
    if (request.steps) print(explanation(outcome.report.receipt));
}

}  // namespace

void setUpUpgrade(Options& options, Request& request) {
    options.value("FILE", request.operands, "The files to bring to the latest version").required().notEmpty(emptyName);
    // An empty name, as an unset variable gives, must not fall back to converting in place.
    options.value("-o,--output", request.target, "Where the result goes, a file that does not exist yet")
        .valueName("FILE")
        .notEmpty(emptyName);
    options.flag("--explain", request.explain, "Tell what was lost, renamed, moved and dropped");
    options.flag("--steps", request.steps, "Tell every change of each step");
    options.flag("--json", request.json, "Tell everything as JSON");
    options.flag("--dry-run", request.dryRun, "Write nothing");
    setUpWriting(options, request);
    options.footer(
        "Without --output a file is converted in place; the old one is kept beside it as FILE.v1.500.bak,\n"
        "with the version it had. A file that fails is left as it was, and the others are gone on with.\n"
        "\n"
        "Exit status: 0 all done, 1 refused or a device is lost, 2 wrong usage, 3 a file cannot be read or\n"
        "written, or is no configuration.");
}

ExitStatus runUpgrade(const Request& asked) {
    Request request = asked;
    request.operands = withPatternsExpanded(asked.operands);
    refuseWrongOperands(request);
    std::vector<UpgradeOutcome> outcomes;
    Progress progress(request.operands.size());
    for (const std::string& file : request.operands) {
        progress.begin(file);
        outcomes.push_back(upgradeOne(file, request));
        progress.clear();
        printOutcome(outcomes.back(), request);
        if (!request.json) outcomes.back().report.receipt.steps.clear();  // printed already, and large
    }
    const ExitStatus status = statusOf(outcomes);
    if (request.json) print(upgradeJson(outcomes, status));
    else if (!request.quiet) print(countLine(outcomes) + L"\n");
    return status;
}

}  // namespace tool
