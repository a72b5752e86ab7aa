// Opens a configuration through the manager, walks its devices, changes settings and saves it under a new name in another
// folder, where it is read back:  tour FILE NEWFILE
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <manager/LogOutput.h>
#include <manager/XMLConfigManager.h>
#include <platform/IQuorvelProductInfo.h>
#include <platform/ProgramArguments.h>
#include <platform/Utf8.h>
#include <sections/CameraConfig.h>
#include <sections/ProjectorConfig.h>
#include <sections/ScreenConfig.h>

namespace {

class Product : public IQuorvelProductInfo {
public:
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

std::unique_ptr<XMLConfigManager> open(const std::wstring& path) {
    return std::unique_ptr<XMLConfigManager>(XMLConfigManager::loadConfiguration(std::make_shared<Product>(), path));
}

void print(const std::wstring& text) { std::cout << XMLConfig::utf8FromWide(text) << '\n'; }

void walk(XMLConfigManager& config) {
    for (const std::wstring& id : config.getProjectorIDs()) {
        const ProjectorConfig& projector = *config.getProjectorConfig(id);
        print(L"  projector " + id + L": " + projector.getName());
    }
    for (const std::wstring& id : config.getCameraIDs())
        print(L"  camera " + id + L": " + config.getCameraConfig(id)->getName());
    print(L"  screen mesh: " + config.getScreenConfig()->getMeshPath(BaseConfig::FilePathRelative));
}

void tour(const std::wstring& from, const std::wstring& to) {
    const auto config = open(from);
    print(L"opened " + config->getFileNameNoPath());
    walk(*config);
    for (const std::wstring& id : config->getProjectorIDs()) {
        ProjectorConfig& projector = *config->getProjectorConfig(id);
        projector.setName(projector.getName() + L" (spare)");
    }
    config->saveConfiguration(to);
    print(L"saved as " + config->getFileNameNoPath() + (config->isConfigDirty() ? L", still dirty" : L", nothing unsaved"));
    walk(*open(to));
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = XMLConfig::utf8Arguments(argc, argv);
    if (arguments.size() != 2) {
        std::cerr << "usage: tour FILE NEWFILE\n";
        return 2;
    }
    XMLConfig::logToStandardError(XMLConfig::LogLevel::Warn);
    try {
        tour(XMLConfig::wideFromUtf8(arguments[0]), XMLConfig::wideFromUtf8(arguments[1]));
    } catch (const std::exception& error) {
        std::cerr << "tour: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
