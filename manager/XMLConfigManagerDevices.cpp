#include "manager/OpenConfiguration.h"
#include "manager/XMLConfigManager.h"
#include "sections/CameraConfig.h"
#include "sections/ProjectorConfig.h"

std::vector<std::wstring> XMLConfigManager::getCameraIDs() const { return m_open->cameras.ids(); }

std::vector<std::wstring> XMLConfigManager::getProjectorIDs() const { return m_open->projectors.ids(); }

int XMLConfigManager::getCameraConfigCount() const { return m_open->cameras.count(); }

int XMLConfigManager::getProjectorConfigCount() const { return m_open->projectors.count(); }

CameraConfig* XMLConfigManager::getCameraConfig(const std::wstring& id) { return m_open->cameras.get(id); }

ProjectorConfig* XMLConfigManager::getProjectorConfig(const std::wstring& id) { return m_open->projectors.get(id); }

bool XMLConfigManager::renameCameraConfig(const std::wstring& oldId, const std::wstring& newId) {
    return m_open->cameras.rename(oldId, newId);
}

bool XMLConfigManager::renameProjectorConfig(const std::wstring& oldId, const std::wstring& newId) {
    return m_open->projectors.rename(oldId, newId);
}

bool XMLConfigManager::removeCameraConfig(const std::wstring& id) { return m_open->cameras.remove(id); }

bool XMLConfigManager::removeProjectorConfig(const std::wstring& id) { return m_open->projectors.remove(id); }

bool XMLConfigManager::moveCameraConfig(const std::wstring& id, int index) { return m_open->cameras.move(id, index); }

bool XMLConfigManager::moveProjectorConfig(const std::wstring& id, int index) { return m_open->projectors.move(id, index); }
