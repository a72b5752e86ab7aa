#pragma once

#include <memory>
#include <string>

#include "manager/XMLConfigManager.h"
#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TestProduct.h"

/// The protected members of the manager, open to tests, on a new document that can be looked at.
class TestManager : public XMLConfigManager {
public:
    explicit TestManager(const std::wstring& path = L"", const std::string& extension = ".skorrax")
        : TestManager(std::make_unique<ConfigInfo>().release(), path, extension) {}
    TestManager(ConfigInfo* ownedDocument, const std::wstring& path, const std::string& extension = ".skorrax")
        : XMLConfigManager(TestProduct::make(extension), ownedDocument, path), document(*ownedDocument) {
        setFileName(path);
    }

    using XMLConfigManager::setFileName;

    ConfigInfo& document;
};

inline std::unique_ptr<XMLConfigManager> newManager(const std::string& extension = ".skorrax") {
    return std::unique_ptr<XMLConfigManager>(XMLConfigManager::newConfiguration(TestProduct::make(extension)));
}

inline std::unique_ptr<XMLConfigManager> loadedManager(const std::wstring& path, const std::string& extension = ".skorrax") {
    return std::unique_ptr<XMLConfigManager>(XMLConfigManager::loadConfiguration(TestProduct::make(extension), path));
}

/// A file at the given version with these sections.
inline std::string fileText(const std::string& sections = "", const std::string& version = latestVersion) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ConfigInfo><Version>" + version +
           "</Version><BuildDate>Jan  1 2010</BuildDate><BuildNumber>1.0.0.0</BuildNumber><DevelopedBy>x</DevelopedBy>" +
           sections + "</ConfigInfo>\n";
}
