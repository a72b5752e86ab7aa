#pragma once

#include <string>

#include "platform/Export.h"

/// Makes paths relative to a root, the folder of a configuration file, and absolute again. It works on the text of the
/// paths: nothing is looked up on a disk.
/// The order of the virtual members is part of the interface.
class XMLCONFIG_API IPathHelper {
public:
    virtual ~IPathHelper();
    /// The root becomes the folder of `configFile`, without a trailing separator; empty for an empty name.
    virtual void setRootPath(const std::wstring& configFile) = 0;
    virtual std::wstring getRootPath() const = 0;  ///< the folder, as setRootPath() says; empty before its first call
    /// An absolute path as it is; a relative one joined to the root, "." and ".." folded.
    virtual std::wstring makeAbsolute(const std::wstring& path) const = 0;
    /// A relative path as it is; an absolute one as seen from the root: "" for the root itself, with ".." beside or
    /// above it, and left absolute when it lies on another drive or the root is empty.
    virtual std::wstring makeRelative(const std::wstring& path) const = 0;
    /// Whether the path begins neither with a drive, such as "C:", nor with a separator.
    virtual bool isRelative(const std::wstring& path) const = 0;
    /// A relative path joined to `otherRoot`, a folder that takes the root's place for this call; an absolute path as it is.
    virtual std::wstring resolve(const std::wstring& path, const std::wstring& otherRoot) const = 0;
};

/// A new helper with an empty root; the caller deletes it.
XMLCONFIG_API IPathHelper* createPathHelper();
