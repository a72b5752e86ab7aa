#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Setting.h"
#include "platform/Export.h"
#include "store/Address.h"

/// Questions to the catalogue of settings.
namespace XMLConfig {

/// The setting that stands at the address; the parts of frustums and mirror flags count as settings of their own.
/// Nothing for a place the catalogue does not know.
XMLCONFIG_API std::optional<Setting> findSetting(const Address& address);
/// The setting that stands at the address, without a copy: null for a place the catalogue does not know; what it points to
/// lives as long as the process.
XMLCONFIG_API const Setting* knownSetting(const Address& address);
/// Whether the catalogue holds settings below the address, so that an element without a value may stand there.
XMLCONFIG_API bool isGroupOfSettings(const Address& address);
/// Whether callers choose the keys of the section, so that the catalogue cannot know them all.
XMLCONFIG_API bool isOpenSection(const std::wstring& section);
/// Whether sections of that name stand for devices and are told apart by their IDs.
XMLCONFIG_API bool isDeviceSection(const std::wstring& section);
/// Whether the setting holds IDs of cameras: one or a list.
XMLCONFIG_API bool namesCameras(const Setting& setting);
/// Whether that child of the root is no section but stands for the file itself, such as "Version".
XMLCONFIG_API bool isHeaderElement(const std::wstring& name);
/// The names of the sections in the catalogue and of the open ones, each once.
XMLCONFIG_API std::vector<std::wstring> sectionNames();

/// The catalogue's settings of one section, in its order; none for an unknown one.
XMLCONFIG_API std::vector<Setting> settingsOfSection(const std::wstring& section);
/// The setting's key as an address spells it, with "/" for "|".
XMLCONFIG_API std::wstring addressKey(const Setting& setting);

}  // namespace XMLConfig
