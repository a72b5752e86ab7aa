#pragma once

#include <string>

#include "manager/upgrade/StepDocument.h"
#include "tests/manager/TestManager.h"
#include "tests/support/TestDocument.h"

using Step = void (*)(XMLConfig::detail::StepDocument& document);

/// One step of the upgrade by itself.
inline void applyAlone(Step step, ConfigInfo& document) {
    XMLConfig::detail::StepDocument converted(document);
    step(converted);
    converted.write();
}

/// A document of these sections after one step of the upgrade.
inline TestDocument stepped(Step step, const std::string& sections, const std::string& version) {
    TestDocument document(fileText(sections, version));
    applyAlone(step, *document);
    return document;
}
