#pragma once

#include <string>

#include "tests/manager/TestManager.h"
#include "tests/support/TestDocument.h"

/// A document of these sections after one step of the upgrade.
inline TestDocument stepped(void (*step)(ConfigInfo&), const std::string& sections, const std::string& version) {
    TestDocument document(fileText(sections, version));
    step(*document);
    return document;
}
