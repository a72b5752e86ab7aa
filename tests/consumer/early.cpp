// A program whose configuration is made before main and used until after it. The one argument is the folder to work in.

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include "base/BaseConfig.h"
#include "manager/XMLConfigManager.h"
#include "platform/IQuorvelProductInfo.h"
#include "platform/Utf8.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SystemConfig.h"
#include "store/CorvaneException.h"

namespace {

struct Product : IQuorvelProductInfo {
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

// Ends the program at once: an exception would be lost where static objects are made and destroyed.
void require(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "early: " << what << " does not hold\n";
    std::_Exit(EXIT_FAILURE);
}

bool isSaveRefused(XMLConfigManager& configuration) {
    try {
        configuration.saveConfiguration(L"/there/is/no/such/folder/early.skorrax");
    } catch (const CorvaneExceptionBase&) {
        return true;
    }
    return false;
}

void use(XMLConfigManager& configuration) {
    require(BaseConfig::convertMeasurement(L"Meters", L"Millimeters", 2.0) == 2000.0, "the table of units");
    require(BaseConfig::convertAngle(L"Degrees", L"Degrees", 3.0) == 3.0, "the table of angles");
    ProjectorConfig& projector = *configuration.getProjectorConfig(L"1");
    projector.setLampMode(ProjectorConfig::LAMP_MODE_DUAL);
    require(projector.getLampMode() == L"Dual", "the lamp mode");
    configuration.getScreenConfig()->setShape(BaseConfig::SHAPE_CYLINDER);
    require(configuration.getScreenConfig()->getShape() == L"Cylinder", "the shape");
    require(SystemConfig::DEFAULT_FILE_BASENAME == L"untitled", "the name of a file without one");
    require(isSaveRefused(configuration), "the refused save");
}

class Application {
public:
    Application() : m_configuration(XMLConfigManager::newConfiguration(std::make_shared<Product>())) {
        use(*m_configuration);
    }
    ~Application() { use(*m_configuration); }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    XMLConfigManager& configuration() { return *m_configuration; }

private:
    std::unique_ptr<XMLConfigManager> m_configuration;
};

Application application;

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return EXIT_FAILURE;
    const std::wstring file = XMLConfig::wideFromUtf8(std::string(arguments[1]) + "/early.skorrax");
    use(application.configuration());
    application.configuration().saveConfiguration(file);
    require(!application.configuration().isConfigDirty(), "the save");
    return EXIT_SUCCESS;
}
