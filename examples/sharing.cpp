// How an application shares a configuration with other programs, as docs/sharing.md tells:
//   sharing count FILE TIMES   counts that many successful runs, each a change of its own
//   sharing edit FILE NAME     opens the file, waits for a line of input as for someone who edits, and saves a new name of
//                              the first projector, unless somebody else has changed the file meanwhile
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <manager/ConfigLock.h>
#include <manager/LogOutput.h>
#include <manager/XMLConfigManager.h>
#include <platform/IQuorvelProductInfo.h>
#include <platform/ProgramArguments.h>
#include <platform/SignalHold.h>
#include <platform/Utf8.h>
#include <sections/ProjectorConfig.h>
#include <sections/SiteAnalyticsConfig.h>

namespace {

class Product : public IQuorvelProductInfo {
public:
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

std::unique_ptr<XMLConfigManager> open(const std::wstring& path) {
    return std::unique_ptr<XMLConfigManager>(XMLConfigManager::loadConfiguration(std::make_shared<Product>(), path));
}

// A short change: the lock is held from before the load until after the save, so that nobody's change comes in between.
void countRun(const std::wstring& path) {
    const XMLConfig::ConfigLock lock(path);
    const auto config = open(path);
    config->getSiteAnalyticsConfig()->incrementSuccessfulRunNumber();
    const XMLConfig::SignalHold hold;
    config->saveConfiguration(path);
}

// A document that stays open: nobody could wait for it, so the lock is held for the save only, and the file is compared.
bool saveIfOurs(XMLConfigManager& config, const std::wstring& path) {
    const XMLConfig::ConfigLock lock(path);
    if (config.isConfigChangedOnDisk()) return false;
    const XMLConfig::SignalHold hold;
    config.saveConfiguration(path);
    return true;
}

int edit(const std::wstring& path, const std::wstring& name) {
    const auto config = open(path);
    config->getProjectorConfig(config->getProjectorIDs().at(0))->setName(name);
    std::cout << "opened" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    if (saveIfOurs(*config, path)) return EXIT_SUCCESS;
    // An application asks here: reload and lose what was edited, save under another name, or overwrite knowingly.
    std::cerr << "sharing: " << XMLConfig::utf8FromWide(path) << " was changed by another program; not saved\n";
    return EXIT_FAILURE;
}

int run(const std::string& what, const std::wstring& path, const std::string& argument) {
    if (what == "edit") return edit(path, XMLConfig::wideFromUtf8(argument));
    for (int i = std::stoi(argument); i > 0; --i) countRun(path);
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = XMLConfig::utf8Arguments(argc, argv);
    const std::string what = arguments.size() == 3 ? arguments[0] : "";
    if (what != "count" && what != "edit") {
        std::cerr << "usage: sharing count FILE TIMES | sharing edit FILE NAME\n";
        return 2;
    }
    XMLConfig::logToStandardError(XMLConfig::LogLevel::Warn);
    try {
        return run(what, XMLConfig::wideFromUtf8(arguments[1]), arguments[2]);
    } catch (const std::exception& error) {
        std::cerr << "sharing: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
