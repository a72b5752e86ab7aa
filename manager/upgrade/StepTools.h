#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/Text.h"
#include "store/ConfigInfo.h"

/// What several conversion steps need.
namespace XMLConfig::detail {

inline std::vector<std::wstring> projectorsOf(const ConfigInfo& document) { return document.getSectionIDs(L"Projector"); }
inline std::vector<std::wstring> camerasOf(const ConfigInfo& document) { return document.getSectionIDs(L"Camera"); }

inline std::wstring textItem(const ConfigInfo& document, const wchar_t* section, const wchar_t* key,
                             const std::wstring& fallback, const std::wstring& id = {}) {
    return document.getStringItem(section, key, fallback, id, {}, {});
}

inline void setTextItem(ConfigInfo& document, const wchar_t* section, const wchar_t* key, const std::wstring& value,
                        const std::wstring& id = {}) {
    document.setStringItem(section, key, value, id, {}, {});
}

/// Items that the section lacks are passed over.
inline void removeItems(ConfigInfo& document, const std::wstring& section, std::initializer_list<const wchar_t*> keys,
                        const std::wstring& id = {}) {
    for (const wchar_t* key : keys) document.removeItem(section, key, id);
}

/// UTF-8 with "&", "<", ">" and quotes escaped, so that a snippet built of it always parses.
inline std::string escaped(const std::wstring& text) { return toUtf8(escapedForXml(text)); }

}  // namespace XMLConfig::detail
