#pragma once

#include <stdexcept>
#include <string>

#include "store/ConfigInfo.h"
#include "tests/support/TemporaryFolder.h"

/// What the document would be saved as; its dirty flag stays as it is. Throws where it cannot be saved.
inline std::string savedText(ConfigInfo& document) {
    const TemporaryFolder folder;
    const bool wasDirty = document.isDirty();
    if (!document.save(folder.file(L"output.skorrax"))) throw std::runtime_error("the document was not saved");
    document.setDirty(wasDirty);
    return folder.read(L"output.skorrax");
}
