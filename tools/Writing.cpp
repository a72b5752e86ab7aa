#include "tools/Writing.h"

#include "platform/Utf8.h"
#include "store/FileChange.h"
#include "tools/Colour.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Reading.h"

namespace tool {
namespace {

void refuseErrors(const FindingChange& findings, const Showing& showing) {
    complain(L"nothing was written, for the change makes errors",
             errorLines(findings, showing) + L"\n'xmlconfig describe " + findings.fresh[0].rule +
                 L"' tells what is asked for; --force writes it all the same");
}

}  // namespace

void setUpWriting(Options& options, Request& request) {
    options.flag("--quiet", request.quiet, "Do not tell what was written");
    constexpr unsigned day = 24 * 60 * 60;
    options.value("--wait", request.waitSeconds, "How long to wait for another program that writes (30)")
        .valueName("SECONDS")
        .between(0U, day);
}

void setUpChanging(Options& options, Request& request) {
    options.flag("--dry-run", request.dryRun, "Tell what would change and write nothing");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    setUpWriting(options, request);
}

void refuseStandardInput(const Request& request) {
    if (request.file == "-") throw WrongOperands("a file is changed here; standard input cannot be");
}

DocumentBefore::DocumentBefore(const ConfigInfo& document, const std::string& file)
    : showing(document), findings(findingsOf(document, file)) {}

ExitStatus finishChange(const char* verb, ConfigInfo& document, const std::vector<Change>& changes,
                        const DocumentBefore& before, const Request& request) {
    const FindingChange findings = compareFindings(before.findings, findingsOf(document, request.file));
    const bool isRefused = findings.newErrors > 0 && !request.force;
    const bool isWritten = !changes.empty() && !request.dryRun && !isRefused;
    const ExitStatus status = isRefused ? Refused : Done;
    const Showing after(document);
    if (isWritten) saveDocument(document, request.file);
    if (request.json) print(changesJson(verb, request.file, changes, findings, isWritten, status));
    if (isRefused) refuseErrors(findings, after);
    else if (!request.json && !request.quiet) {
        const bool isInColour = isColoured(request.colour);
        print(changesText(changes, before.showing, findingCounts(findings), request.dryRun, isInColour) +
              findingLines(findings.fresh, after, isInColour));
    }
    return status;
}

std::unique_ptr<XMLConfig::ConfigLock> lockForWriting(const std::string& file, const Request& request) {
    const std::string folder = file.substr(0, file.find_last_of("/\\") + 1);
    if (!folder.empty() && !exists(folder)) return nullptr;
    try {
        return std::make_unique<XMLConfig::ConfigLock>(XMLConfig::wideFromUtf8(file),
                                                       std::chrono::seconds(request.waitSeconds));
    } catch (const XMLConfig::ConfigBusyException& busy) {
        throw Refusal(busy.getReason());
    }
}

void refuseForeignChange(const ConfigInfo& document, const std::string& file) {
    if (!XMLConfig::hasFileChanged(document)) return;
    throw Unreadable(XMLConfig::wideFromUtf8(file) + L" has been changed by another program meanwhile; nothing was written");
}

}  // namespace tool
