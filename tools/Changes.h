#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Setting.h"
#include "store/Address.h"
#include "tools/FindingChange.h"
#include "tools/Json.h"
#include "tools/Showing.h"

/// What the verbs that write have changed, in the form in which all of them tell it.
namespace tool {

/// A text that a writing verb stored, replaced or took away.
struct Change {
    std::wstring address;  ///< as addressText writes it; followed by the part of a device snippet; "" for the whole document
    XMLConfig::Address place;
    std::optional<std::wstring> old;              ///< what was stored; nothing where nothing was
    std::optional<std::wstring> now;              ///< what is stored; nothing where nothing is
    std::wstring counted;                         ///< what the application reads where nothing is stored
    std::wstring inheritedFrom;                   ///< the section that gives it; empty for a default
    bool isKnown = false;                         ///< whether the catalogue knows what counts where nothing is stored
    const XMLConfig::Setting* setting = nullptr;  ///< null for what the catalogue does not know
};

/// What is stored at a place, or counts there, before a change of it.
Change beginChange(const ConfigInfo& document, const XMLConfig::Address& place);
/// What is stored at that place, or counts there, after the change.
void endChange(Change& change, const ConfigInfo& document);

/// A line for each change, and one with their number, at the end of which `counts` is put.
std::wstring changesText(const std::vector<Change>& changes, const Showing& showing, const std::wstring& counts,
                         bool isDryRun, bool isColoured);
/// An array with address, kind, old and new of each.
Json jsonOf(const std::vector<Change>& changes);
/// The answer of a writing verb.
std::wstring changesJson(const char* verb, const std::string& file, const std::vector<Change>& changes,
                         const FindingChange& findings, bool isWritten, int exitStatus);

}  // namespace tool
