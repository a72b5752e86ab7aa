#include <memory>

#include "platform/IPathHelper.h"
#include "platform/Paths.h"

namespace {

namespace detail = XMLConfig::detail;

class PathHelper : public IPathHelper {
public:
    void setRootPath(const std::wstring& configFile) override { m_root = detail::folderOf(configFile); }
    std::wstring getRootPath() const override { return m_root; }
    std::wstring makeAbsolute(const std::wstring& path) const override { return resolve(path, m_root); }
    std::wstring makeRelative(const std::wstring& path) const override { return detail::relativeTo(path, m_root); }
    bool isRelative(const std::wstring& path) const override { return !detail::isAbsolute(path); }
    std::wstring resolve(const std::wstring& path, const std::wstring& otherRoot) const override {
        const bool isLeftAlone = detail::isAbsolute(path) || otherRoot.empty();
        return isLeftAlone ? path : detail::foldPath(detail::joinPath(otherRoot, path));
    }

private:
    std::wstring m_root;
};

}  // namespace

IPathHelper* createPathHelper() { return std::make_unique<PathHelper>().release(); }
