#include "tools/Writing.h"

#include <CLI/App.hpp>

#include "platform/Utf8.h"
#include "store/FileChange.h"
#include "tools/Colour.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Reading.h"

namespace tool {

void setUpWriting(CLI::App& app, Request& request) {
    constexpr unsigned day = 24 * 60 * 60;
    app.add_option("--wait", request.waitSeconds, "How long to wait for another program that writes (30)")
        ->type_name("SECONDS")
        ->check(CLI::Range(0U, day));
}

void setUpChanging(CLI::App& app, Request& request) {
    app.add_flag("--dry-run", request.dryRun, "Tell what would change and write nothing");
    app.add_flag("--quiet", request.quiet, "Do not tell what has changed");
    app.add_flag("--json", request.json, "Answer with one JSON object");
    setUpColour(app, request.colour);
    setUpWriting(app, request);
}

void finishChange(const char* verb, ConfigInfo& document, const std::vector<Change>& changes, const Showing& before,
                  const Request& request) {
    const bool isWritten = !changes.empty() && !request.dryRun;
    if (isWritten) saveDocument(document, request.file);
    if (request.json) print(changesJson(verb, request.file, changes, isWritten));
    else if (!request.quiet) print(changesText(changes, before, request.dryRun, isColoured(request.colour)));
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
