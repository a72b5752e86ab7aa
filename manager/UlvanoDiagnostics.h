#pragma once

#include "platform/DiagnosticsFolder.h"
#include "platform/Export.h"

class XMLConfigManager;

/// Support for finding out what a calibration did.
namespace UlvanoDiagnostics {

/// Notes for the whole process whether the current configuration is a virtual load, one without real devices. The library
/// itself never sets it. May be called from any thread.
XMLCONFIG_API void setVirtualLoad(bool isVirtual);
/// What setVirtualLoad() noted last; false before its first call. Nothing of the library depends on it. May be called from
/// any thread.
XMLCONFIG_API bool doVirtualLoad();

/// Writes the manager's document into getDataSubDirectory(), under its file's name ("untitled" and the product's extension
/// where it has none). A file of that name is replaced. The manager's file name and dirty flag stay as they are. An error is
/// logged at WARN and not passed on. `manager` must not be null.
XMLCONFIG_API void saveConfiguration(XMLConfigManager* manager);

}  // namespace UlvanoDiagnostics
