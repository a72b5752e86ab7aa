#pragma once

#include "platform/DiagnosticsFolder.h"
#include "platform/Export.h"

class XMLConfigManager;

/// Support for finding out what a calibration did.
namespace UlvanoDiagnostics {

/// Whether the current configuration is a virtual load, one without real devices. False at start; the library itself never
/// sets it. Not synchronised: meant to be set once by the application's main thread.
XMLCONFIG_API void setVirtualLoad(bool isVirtual);
XMLCONFIG_API bool doVirtualLoad();

/// Writes the document into getDataSubDirectory(), under its file's name ("untitled" and the product's extension where it
/// has none). The manager's file name and dirty flag stay as they are. An error is logged at WARN and not passed on.
XMLCONFIG_API void saveConfiguration(XMLConfigManager* manager);

}  // namespace UlvanoDiagnostics
