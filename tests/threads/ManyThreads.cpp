// Eight threads at once, each with configurations and documents of its own, from the first call of the library on. Built
// with the thread sanitizer it ends with a failure at the first data race. The one argument is the folder to work in.

#include <atomic>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "base/BaseConfig.h"
#include "manager/Check.h"
#include "manager/UlvanoDiagnostics.h"
#include "manager/UpgradeFile.h"
#include "manager/XMLConfigManager.h"
#include "platform/IQuorvelProductInfo.h"
#include "platform/Utf8.h"
#include "sections/CameraConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SystemConfig.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"

namespace {

constexpr int threadCount = 8;
constexpr int rounds = 4;
constexpr const char* oldFile = "examples/history/dome-1.500.skorra";

struct Product : IQuorvelProductInfo {
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

std::wstring wide(const std::string& text) { return XMLConfig::wideFromUtf8(text); }

void require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

template <typename Call>
void requireRefusal(Call&& call) {
    try {
        call();
    } catch (const CorvaneExceptionBase&) {
        return;
    }
    throw std::runtime_error("a refusal");
}

void useDocuments(const std::wstring& folder) {
    ConfigInfoFactory& factory = *ConfigInfoFactory::getInstance();
    const std::unique_ptr<ConfigInfo> document(factory.createNew());
    document->insertBuildDateAndNumber();
    document->setStringItemAsDOMElement(L"Projector", L"Device", L"<d><e>1</e></d>", L"1");
    document->setDoubleItem(L"Projector", L"A|B", 0.5, L"1");
    const std::wstring path = folder + L"/document.skorrax";
    require(document->save(path), "the save");
    const std::unique_ptr<ConfigInfo> loaded(factory.createFromFile(path));
    require(loaded->getDoubleItem(L"Projector", L"A|B", 0.0, L"1") == 0.5, "the stored number");
    require(haveEqualContents(XMLConfig::rootElement(*loaded), XMLConfig::rootElement(*document)), "the loaded content");
    requireRefusal([&] { factory.createFromFile(folder + L"/missing.skorrax"); });
    requireRefusal([&] { document->save(folder + L"/no/folder.skorrax"); });
    requireRefusal([&] { document->setStringItemAsDOMElement(L"S", L"K", L"<a><b></a>", L""); });
}

void useSections(XMLConfigManager& manager) {
    manager.getScreenConfig()->setShape(BaseConfig::SHAPE_SPHERE);
    require(manager.getScreenConfig()->getShape() == L"Sphere", "the shape");
    manager.getProjectorConfig(L"new")->setGamma(2.25);
    require(manager.getProjectorConfig(L"new")->getGamma() == 2.25, "gamma");
    require(manager.renameProjectorConfig(L"new", L"renamed"), "the new name");
    for (const std::wstring& id : manager.getCameraIDs()) manager.getCameraConfig(id);
    require(BaseConfig::convertMeasurement(L"Meters", L"Millimeters", 2.0) == 2000.0, "the table of units");
    require(!manager.getSystemConfig()->getLengthUnit().empty(), "the unit");
}

void useManagers(const std::wstring& folder) {
    const auto product = std::make_shared<Product>();
    const std::unique_ptr<XMLConfigManager> upgraded(XMLConfigManager::loadConfiguration(product, wide(oldFile)));
    require(upgraded->getVersionUpgradeStatus() == XMLConfig::Upgraded, "the upgrade");
    useSections(*upgraded);
    upgraded->saveConfiguration(folder + L"/manager.skorrax");
    UlvanoDiagnostics::saveConfiguration(upgraded.get());
    const std::unique_ptr<XMLConfigManager> fresh(XMLConfigManager::newConfiguration(product));
    useSections(*fresh);
    fresh->copyConfiguration(folder + L"/copy.skorrax");
    XMLConfig::UpgradeFileRequest request;
    request.path = wide(oldFile);
    request.writesFiles = false;
    require(XMLConfig::upgradeFile(request).status == XMLConfig::Upgraded, "the upgrade of a file");
    const ConfigInfo saved(folder + L"/manager.skorrax");
    XMLConfig::check(saved);
}

void work(const std::string& folder, int number) {
    for (int round = 0; round < rounds; ++round) {
        useDocuments(wide(folder + "/" + std::to_string(number)));
        useManagers(wide(folder + "/" + std::to_string(number)));
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return EXIT_FAILURE;
    const std::string folder = arguments[1];
    UlvanoDiagnostics::setDataSubDirectory(wide(folder));
    std::atomic<int> ready{0};
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back([&, number] {
            for (++ready; ready < threadCount;) std::this_thread::yield();
            try {
                work(folder, number);
                ++good;
            } catch (const CorvaneExceptionBase& error) {
                std::cerr << "threads: " << error.what() << '\n';
            } catch (const std::exception& error) {
                std::cerr << "threads: " << error.what() << " does not hold\n";
            }
        });
    for (std::thread& thread : threads) thread.join();
    std::cout << good << " of " << threadCount << " threads did all their work\n";
    return good == threadCount ? EXIT_SUCCESS : EXIT_FAILURE;
}
