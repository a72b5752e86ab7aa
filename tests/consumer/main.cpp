// Makes a document, saves it, loads it again and compares. The one argument is the folder to work in.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "manager/AssetManager.h"
#include "manager/Check.h"
#include "manager/Upgrade.h"
#include "manager/XMLConfigManager.h"
#include "platform/IQuorvelProductInfo.h"
#include "platform/Utf8.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
    if (holds) return;
    std::cerr << "consumer: " << what << " does not hold\n";
    ++failures;
}

void writeDocument(const std::wstring& path) {
    const std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createNew());
    document->setStringItem(L"Projector", L"Name", L"links oben \u00fc", L"1", L"", L"");
    document->setDoubleItem(L"Projector", L"Designed|Frustum|FOVLeft", -0.25, L"1");
    document->setPoint3DItem(L"Projector", L"Position", {1.0, 2.0, 3.0}, L"1");
    expect(document->isDirty(), "a changed document is dirty");
    expect(document->save(path), "the save succeeds");
    expect(!document->isDirty(), "a saved document is clean");
}

int countInRoot(const ConfigInfo& document) {
    int count = 0;
    for (auto element = XMLConfig::rootElement(document).firstChild(); element; element = element.next()) ++count;
    return count;
}

void readDocument(const std::wstring& path) {
    const std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
    expect(document->getVersion() == 9.0, "the version is the latest");
    expect(document->getStringItem(L"Projector", L"Name", L"", L"1", L"", L"") == L"links oben \u00fc", "the text is kept");
    expect(document->getDoubleItem(L"Projector", L"Designed|Frustum|FOVLeft", 0.0, L"1") == -0.25, "the number is kept");
    expect(document->getPoint3DItem(L"Projector", L"Position", {}, L"1") == Point_3Dim<double>(1.0, 2.0, 3.0),
           "the point is kept");
    expect(countInRoot(*document) == 5, "the document has the header and the section");
}

void readMissingDocument(const std::wstring& path) {
    try {
        ConfigInfo missing(path);
        expect(false, "a missing file is refused");
    } catch (const CorvaneExceptionBase& error) {
        expect(error.getMessage() == L"Error parseDataFile: Can not open file: " + path, "the message names the file");
    }
}

class Product : public IQuorvelProductInfo {
public:
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

bool finds(const XMLConfigManager& manager, const std::wstring& rule, const std::wstring& address) {
    for (const XMLConfig::Finding& finding : manager.check())
        if (finding.rule == rule && finding.address == address) return true;
    return false;
}

// All that is to be known of a file, from loading it once.
void loadOnce(const std::wstring& path) {
    const std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::loadWithReceipt(std::make_shared<Product>(), path));
    expect(manager->getProjectorIDs().size() == 1, "the manager lists the projector");
    expect(manager->getUpgradeReceipt()->steps.empty(), "a file of today needs no upgrade");
    expect(finds(*manager, L"XC104", L"Projector[1]/Position"), "the manager finds the item that is no setting");
    expect(countInRoot(manager->getDocument()) == 6, "the manager's document has the visit, too");
    expect(manager->getDocument().getVersion() == 9.0, "the manager shows its document");
    const XMLConfigManager copy(*manager);
    expect(&copy.getDocument() == &manager->getDocument(), "a copy shares the document");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return EXIT_FAILURE;
    const std::string folder = arguments[1];
    writeDocument(XMLConfig::wideFromUtf8(folder + "/made.skorrax"));
    readDocument(XMLConfig::wideFromUtf8(folder + "/made.skorrax"));
    loadOnce(XMLConfig::wideFromUtf8(folder + "/made.skorrax"));
    readMissingDocument(XMLConfig::wideFromUtf8(folder + "/missing.skorrax"));
    expect(std::ifstream(folder + "/made.skorrax").good(), "the file is there");
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
