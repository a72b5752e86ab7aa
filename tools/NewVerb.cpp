#include <CLI/App.hpp>
#include <memory>

#include "manager/XMLConfigManager.h"
#include "platform/SignalHold.h"
#include "platform/Utf8.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

// The manager quietly saves nothing under another extension.
bool hasExtension(const std::string& file) {
    const std::string extension = ProductInfo().getConfigFileExtension();
    return file.size() > extension.size() && file.compare(file.size() - extension.size(), extension.size(), extension) == 0;
}

}  // namespace

void setUpNew(CLI::App& app, Request& request) {
    app.add_option("FILE", request.file, "The file to make; its name ends in .skorrax")->required();
    app.add_flag("--force", request.force, "Replace a file that exists");
    setUpWriting(app, request);
}

ExitStatus runNew(const Request& request) {
    const std::wstring file = XMLConfig::wideFromUtf8(request.file);
    if (!hasExtension(request.file)) throw Refusal(file + L": the name of a configuration ends in \".skorrax\"");
    const auto lock = lockForWriting(request.file, request);
    if (!request.force && exists(request.file)) throw Refusal(file + L": exists; --force replaces it");
    const std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::newConfiguration(std::make_shared<ProductInfo>()));
    const XMLConfig::SignalHold hold;
    manager->saveConfiguration(file);
    return Done;
}

}  // namespace tool
