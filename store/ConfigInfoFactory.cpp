#include "store/ConfigInfoFactory.h"

#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"

ConfigInfoFactory* ConfigInfoFactory::m_instance = nullptr;
double ConfigInfoFactory::m_dFileVersion = XMLConfig::detail::latestFileVersion;

ConfigInfoFactory* ConfigInfoFactory::getInstance() {
    static ConfigInfoFactory* const made = [] {
        static ConfigInfoFactory factory;
        return m_instance = &factory;
    }();
    return made;
}

ConfigInfo* ConfigInfoFactory::createFromFile(const std::wstring& path) {
    return std::make_unique<ConfigInfo>(path).release();
}

ConfigInfo* ConfigInfoFactory::createNew() { return std::make_unique<ConfigInfo>().release(); }

double ConfigInfoFactory::getLatestFileVersionNumber() { return m_dFileVersion; }

std::wstring ConfigInfoFactory::getBuildDate() { return XMLConfig::detail::buildDate; }
