#include "base/AssetManager.h"
#include "manager/ManagerLog.h"
#include "manager/OpenConfiguration.h"
#include "manager/XMLConfigManager.h"
#include "platform/Environment.h"
#include "platform/Paths.h"
#include "sections/ColorConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SystemConfig.h"

using XMLConfig::detail::folderOf;
using XMLConfig::detail::isAbsolute;
using XMLConfig::detail::logInfo;
using XMLConfig::detail::managerLog;
using XMLConfig::detail::PathParts;
using XMLConfig::detail::splitPath;

namespace {

std::wstring withCurrentExtension(const std::wstring& path) {
    PathParts parts = splitPath(path);
    if (parts.extension != L".skorra") return path;
    parts.extension = SystemConfig::DEFAULT_SKORRA_FILE_EXTENSION;
    return parts.joined();
}

}  // namespace

// File names are stored relative to the folder of the configuration file. When that folder changes they are rewritten, and
// the way from one folder to another can be found only where both are given as full paths.
std::wstring XMLConfigManager::rootFile(const std::wstring& configFile) {
    if (configFile.empty() || isAbsolute(configFile)) return configFile;
    return XMLConfig::detail::foldPath(XMLConfig::detail::joinPath(XMLConfig::detail::currentFolder(), configFile));
}

std::wstring XMLConfigManager::getFileName() const { return m_fileName; }

void XMLConfigManager::setFileName(const std::wstring& fileName) { m_fileName = fileName; }

std::wstring XMLConfigManager::getFileNameNoPath() const {
    std::size_t separator = m_fileName.rfind(L'/');
    if (separator == std::wstring::npos) separator = m_fileName.rfind(L'\\');
    return separator == std::wstring::npos ? m_fileName : m_fileName.substr(separator + 1);
}

std::wstring XMLConfigManager::getFileNameNoPathNoExtension() const {
    const std::wstring name = getFileNameNoPath();
    return name.substr(0, name.rfind(L'.'));
}

std::wstring XMLConfigManager::getSkorraFilename() { return processPath(getSystemConfig()->getSkorraFilename()); }

std::wstring XMLConfigManager::getAdvancedColorFilename() const {
    return processPath(m_open->color->getAdvancedColorFilename());
}

std::wstring XMLConfigManager::getMpcdiOutputFilename() const {
    std::wstring outputFile;
    m_open->mediaServer->get(L"outputFile", outputFile);
    if (!outputFile.empty()) return outputFile;
    const std::size_t dot = m_fileName.rfind(L'.');
    if (dot == std::wstring::npos) return L"mpcdi.xml";
    return m_fileName.substr(0, dot) + L".mpcdi.xml";
}

void XMLConfigManager::setConfigUntitledIfDeprecatedExtension(const std::wstring& path) {
    const std::size_t dot = path.rfind(L'.');
    const bool hasExtension = dot != std::wstring::npos && dot + 1 < path.size();
    setFileName(hasExtension && path.substr(dot) != configExtension() ? L"" : path);
}

std::wstring XMLConfigManager::processPath(const std::wstring& path) const {
    std::wstring result = withCurrentExtension(path);
    if (!isAbsolute(result) && isAbsolute(m_fileName)) {
        const PathParts file = splitPath(m_fileName);
        result = file.drive + file.directory + result;
    }
    // Not this function's name, on purpose: logs are searched for it.
    logInfo(managerLog, L"processFileName( '" + path + L"' ) = '" + result + L"'");
    return result;
}

void XMLConfigManager::updateRelativeFilePaths(const std::wstring& newConfigPath) {
    const std::wstring oldRoot = m_open->assetManager->getRootPath();
    const std::wstring newFile = rootFile(newConfigPath);
    if (m_open->assetManager->getPath(folderOf(newFile), BaseConfig::FilePathRelative).empty()) return;
    AssetManager other(newFile);
    m_open->assetManager->swapRoots(other);
    try {
        m_open->screen->updateRelativeFilePaths(oldRoot);
    } catch (...) {  // with the new root the next call would find nothing to do
        m_open->assetManager->swapRoots(other);
        throw;
    }
}
