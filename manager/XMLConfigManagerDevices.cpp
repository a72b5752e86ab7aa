#include "manager/DeviceCollection.h"
#include "manager/XMLConfigManager.h"
#include "sections/CameraConfig.h"
#include "sections/CameraItems.h"
#include "sections/ProjectorConfig.h"
#include "sections/ProjectorItems.h"

using XMLConfig::detail::DeviceCollection;
using XMLConfig::detail::DeviceKind;

namespace {

constexpr DeviceKind cameraKind{XMLConfig::detail::cameraItems::sectionName, L"camera"};
constexpr DeviceKind projectorKind{XMLConfig::detail::projectorItems::sectionName, L"projector"};

DeviceCollection<CameraConfig> camerasOf(ConfigInfo* document, std::map<std::wstring, CameraConfig*>& accessors,
                                         std::vector<CameraConfig*>& displaced) {
    return {cameraKind, *document, accessors, &displaced};
}

DeviceCollection<ProjectorConfig> projectorsOf(ConfigInfo* document, std::map<std::wstring, ProjectorConfig*>& accessors) {
    return {projectorKind, *document, accessors, nullptr};
}

}  // namespace

std::vector<std::wstring> XMLConfigManager::getCameraIDs() const { return m_configInfo->getSectionIDs(cameraKind.section); }

std::vector<std::wstring> XMLConfigManager::getProjectorIDs() const {
    return m_configInfo->getSectionIDs(projectorKind.section);
}

int XMLConfigManager::getCameraConfigCount() const { return m_configInfo->getSectionCount(cameraKind.section); }

int XMLConfigManager::getProjectorConfigCount() const { return m_configInfo->getSectionCount(projectorKind.section); }

CameraConfig* XMLConfigManager::getCameraConfig(const std::wstring& id) {
    return camerasOf(m_configInfo, m_cameras, m_displacedCameras).get(id);
}

ProjectorConfig* XMLConfigManager::getProjectorConfig(const std::wstring& id) {
    return projectorsOf(m_configInfo, m_projectors).get(id);
}

bool XMLConfigManager::renameCameraConfig(const std::wstring& oldId, const std::wstring& newId) {
    return camerasOf(m_configInfo, m_cameras, m_displacedCameras).rename(oldId, newId);
}

bool XMLConfigManager::renameProjectorConfig(const std::wstring& oldId, const std::wstring& newId) {
    return projectorsOf(m_configInfo, m_projectors).rename(oldId, newId);
}

bool XMLConfigManager::removeCameraConfig(const std::wstring& id) {
    return camerasOf(m_configInfo, m_cameras, m_displacedCameras).remove(id);
}

bool XMLConfigManager::removeProjectorConfig(const std::wstring& id) {
    return projectorsOf(m_configInfo, m_projectors).remove(id);
}

bool XMLConfigManager::moveCameraConfig(const std::wstring& id, int index) {
    return camerasOf(m_configInfo, m_cameras, m_displacedCameras).move(id, index);
}

bool XMLConfigManager::moveProjectorConfig(const std::wstring& id, int index) {
    return projectorsOf(m_configInfo, m_projectors).move(id, index);
}
