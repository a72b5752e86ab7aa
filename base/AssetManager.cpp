#include "base/AssetManager.h"

#include "platform/IPathHelper.h"

AssetManager::AssetManager(const std::wstring& rootPath) : m_pathHelper(createPathHelper()) {
    m_pathHelper->setRootPath(rootPath);
}

AssetManager::~AssetManager() = default;

void AssetManager::setRootPath(const std::wstring& configFile) { m_pathHelper->setRootPath(configFile); }

std::wstring AssetManager::getRootPath() const { return m_pathHelper->getRootPath(); }

std::wstring AssetManager::getPath(const std::wstring& path, BaseConfig::FilePathMode mode) const {
    if (path.empty()) return path;
    return mode == BaseConfig::FilePathRelative ? m_pathHelper->makeRelative(path) : m_pathHelper->makeAbsolute(path);
}

std::wstring AssetManager::getRelativePath(const std::wstring& path) const {
    return path.empty() ? path : m_pathHelper->makeRelative(path);
}

std::wstring AssetManager::getAbsolutePath(const std::wstring& path) const {
    return path.empty() ? path : m_pathHelper->makeAbsolute(path);
}

void AssetManager::swapRoots(AssetManager& other) noexcept { m_pathHelper.swap(other.m_pathHelper); }

std::wstring AssetManager::relocate(const std::wstring& path, const std::wstring& otherRoot) const {
    if (path.empty()) return path;
    return getPath(m_pathHelper->resolve(path, otherRoot), BaseConfig::FilePathRelative);
}
