#pragma once

#include "platform/Export.h"

class ConfigInfo;

namespace XMLConfig {

/// Whether the file that the document was loaded from, or saved to last, has been changed since by somebody else: it holds
/// other bytes, is gone, or cannot be read any more. A document that has no file yet has no changed file either. Copies that
/// XMLConfigManager::copyConfiguration makes do not count.
///
/// Usually one look at the file's size and times; its content is read where those leave a doubt, as in the first seconds
/// after a save. The answer holds for the moment only, unless the caller holds a ConfigLock and the other program takes it
/// too.
XMLCONFIG_API bool hasFileChanged(const ConfigInfo& document);

}  // namespace XMLConfig
