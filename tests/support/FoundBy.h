#pragma once

#include <string>
#include <vector>

#include "manager/Check.h"
#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TemporaryFolder.h"

using Lines = std::vector<std::wstring>;

/// What one rule finds in a document of these sections.
inline std::vector<XMLConfig::Finding> findingsOf(const wchar_t* rule, const std::string& sections) {
    const TemporaryFolder folder;
    const ConfigInfo document(folder.write(L"hall.skorrax", currentFile(sections)));
    XMLConfig::CheckOptions options;
    options.onlyRules = {rule};
    return XMLConfig::check(document, options);
}

/// That, as "address: message" and, where something mends it, "; " and the command.
inline Lines foundBy(const wchar_t* rule, const std::string& sections) {
    Lines lines;
    for (const XMLConfig::Finding& finding : findingsOf(rule, sections)) {
        lines.push_back(finding.address + L": " + finding.message);
        for (const auto& command : finding.mend.commands) lines.back() += L"; " + command[0] + L" " + command[2];
    }
    return lines;
}

/// At which addresses.
inline Lines placesOf(const wchar_t* rule, const std::string& sections) {
    Lines places;
    for (const XMLConfig::Finding& finding : findingsOf(rule, sections)) places.push_back(finding.address);
    return places;
}
