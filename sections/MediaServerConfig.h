#pragma once

#include <string>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "MediaServer": settings of the export to a media server, under keys that the callers choose (a key may
/// be a path, its parts joined by "|"). The library itself reads "outputFile" only. What a key means, and its unit, is its
/// callers' affair. The order of the virtual members is part of the interface.
///
/// Its settings: sections/MediaServerItems.h and, as a page, docs/settings.md#mediaserver.
class XMLCONFIG_API MediaServerConfig : public BaseConfig {
public:
    /// Borrows the document (null: a private one). Writes nothing.
    MediaServerConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~MediaServerConfig() override;
    /// Writes nothing.
    void initialize() override;

    /// Puts the item's text into `value`, which is left as it was when the item is missing.
    void get(const std::wstring& key, std::wstring& value) const;
    /// Puts the item's truth value into `value`, which is left as it was when the item is missing or holds none.
    void get(const std::wstring& key, bool& value) const;

    void set(const std::wstring& key, const std::wstring& value);  ///< stores a text
    void set(const std::wstring& key, const wchar_t* value);       ///< stores a text, which must not be null
    void set(const std::wstring& key, bool value);                 ///< stores "true" or "false"

    /// Stores `newValue` and returns true, unless the item already reads so; a missing item reads `defaultValue`. Case
    /// counts.
    bool change(const std::wstring& key, const std::wstring& newValue, const std::wstring& defaultValue);
    /// The same for texts that must not be null.
    bool change(const std::wstring& key, const wchar_t* newValue, const wchar_t* defaultValue);
    /// Stores `newValue` and returns true, unless the item already reads so; an item that is missing or holds no truth value
    /// reads `defaultValue`.
    bool change(const std::wstring& key, bool newValue, bool defaultValue);
};
