#include "tools/Writing.h"

#include <CLI/App.hpp>

#include "platform/Utf8.h"
#include "store/FileChange.h"
#include "tools/Configuration.h"
#include "tools/Output.h"

namespace tool {

void setUpWriting(CLI::App& app, Request& request) {
    constexpr unsigned day = 24 * 60 * 60;
    app.add_option("--wait", request.waitSeconds, "How long to wait for another program that writes (30)")
        ->type_name("SECONDS")
        ->check(CLI::Range(0U, day));
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
    throw Refusal(XMLConfig::wideFromUtf8(file) + L" has been changed by another program meanwhile; nothing was written");
}

}  // namespace tool
