#pragma once

#include <memory>
#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"

class IPathHelper;

// The interface has it that the destructor is not virtual; compilers would complain of it here and in every make_shared.
#if defined(__GNUC__)
#pragma GCC system_header
#endif

/// Turns the file names that settings hold into absolute paths and back. They are stored relative to a root, the folder of
/// the configuration file, so that the folder can be moved as a whole. Everything here works on the text of the paths:
/// nothing is looked up on a disk. An empty path is always given back empty. The order of the virtual members is part of
/// the interface.
class XMLCONFIG_API AssetManager {
public:
    /// `rootPath` is the full path of the configuration file; empty for a new configuration, which has no root.
    explicit AssetManager(const std::wstring& rootPath);
    AssetManager(const AssetManager&) = delete;
    AssetManager& operator=(const AssetManager&) = delete;
    ~AssetManager();

    /// The root becomes the folder of `configFile`; an empty name takes the root away. Stored paths are not rewritten.
    virtual void setRootPath(const std::wstring& configFile);
    /// The folder, without a trailing separator; empty without a root.
    virtual std::wstring getRootPath() const;
    /// The path in the form asked for; every mode but FilePathRelative gives the absolute one.
    virtual std::wstring getPath(const std::wstring& path, BaseConfig::FilePathMode mode) const;
    /// The path as seen from the root: "" for the root itself. It stays absolute on another drive and without a root.
    virtual std::wstring getRelativePath(const std::wstring& path) const;
    /// A relative path joined to the root; without a root it stays relative. An absolute path as it is.
    virtual std::wstring getAbsolutePath(const std::wstring& path) const;

    /// A path that was relative to the folder `otherRoot`, as seen from this root. What it names stays the same.
    std::wstring relocate(const std::wstring& path, const std::wstring& otherRoot) const;
    /// This one gets the other's root and the other this one's; cannot fail.
    void swapRoots(AssetManager& other) noexcept;

private:
    std::unique_ptr<IPathHelper> m_pathHelper;
};
