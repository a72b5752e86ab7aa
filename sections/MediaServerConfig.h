#pragma once

#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "MediaServer": settings of the export to a media server, under keys that the callers choose (a key may
/// be a path, its parts joined by "|"). The order of the virtual members is part of the interface.
/// Its settings: sections/MediaServerItems.h and, as a page, docs/settings.md#mediaserver.
class XMLCONFIG_API MediaServerConfig : public BaseConfig {
public:
    MediaServerConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~MediaServerConfig() override;
    /// Writes nothing.
    void initialize() override;

    // `value` is left as it was when the item is missing, a truth value also when the text holds none.
    void get(const std::wstring& key, std::wstring& value) const;
    void get(const std::wstring& key, bool& value) const;

    void set(const std::wstring& key, const std::wstring& value);
    void set(const std::wstring& key, const wchar_t* value);
    void set(const std::wstring& key, bool value);

    // Write `newValue` and return true, unless the item already reads so; a missing item reads `defaultValue`.
    bool change(const std::wstring& key, const std::wstring& newValue, const std::wstring& defaultValue);
    bool change(const std::wstring& key, const wchar_t* newValue, const wchar_t* defaultValue);
    bool change(const std::wstring& key, bool newValue, bool defaultValue);
};
