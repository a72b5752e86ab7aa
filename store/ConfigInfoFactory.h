#pragma once

#include <string>

#include "platform/Export.h"

class ConfigInfo;

/// Makes documents and knows the newest file version and this build's identity.
class XMLCONFIG_API ConfigInfoFactory {
public:
    /// The one factory; it lives as long as the process. May be called from any thread.
    static ConfigInfoFactory* getInstance();

    /// A document loaded from a file, owned by the caller. Throws what ConfigInfo's file constructor throws.
    /// May be called from any thread.
    ConfigInfo* createFromFile(const std::wstring& path);
    /// A new document, owned by the caller. May be called from any thread.
    ConfigInfo* createNew();

    /// The version that this library writes.
    static double getLatestFileVersionNumber();
    /// The date of this build, as documents store it: "Mar 11 2019".
    static std::wstring getBuildDate();

private:
    ConfigInfoFactory() = default;
    ~ConfigInfoFactory() = default;

    static ConfigInfoFactory* m_instance;
    static double m_dFileVersion;
};
