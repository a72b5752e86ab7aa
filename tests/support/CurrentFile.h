#pragma once

#include <string>

#include "platform/Text.h"
#include "store/BuildIdentity.h"
#include "store/TextForms.h"

/// The file version of today as files spell it. Tests that hold what the version is write it out instead.
inline const std::string latestVersion =
    XMLConfig::detail::toUtf8(XMLConfig::detail::versionText(XMLConfig::detail::latestFileVersion));

/// A file of that version with these sections, on one line.
inline std::string currentFile(const std::string& sections) {
    return "<ConfigInfo><Version>" + latestVersion + "</Version>" + sections + "</ConfigInfo>";
}
