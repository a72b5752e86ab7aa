#pragma once

#include <memory>
#include <string>

#include "manager/ConfigLock.h"
#include "store/ConfigInfo.h"
#include "tools/Changes.h"
#include "tools/FindingChange.h"
#include "tools/Verb.h"

/// What the verbs that write have in common.
namespace tool {

/// The options of every verb that writes.
void setUpWriting(Options& options, Request& request);

/// The options of the verbs that change settings.
void setUpChanging(Options& options, Request& request);

/// Throws WrongOperands where the file to be changed is standard input.
void refuseStandardInput(const Request& request);

/// What a document was before a change of it.
struct DocumentBefore {
    DocumentBefore(const ConfigInfo& document, const std::string& file);

    Showing showing;
    std::vector<XMLConfig::Finding> findings;
};

/// Writes the document where there are changes and it is no dry run, and tells them by the names that the devices had
/// before, and what the change does to the findings. Changes that make errors are refused without --force.
ExitStatus finishChange(const char* verb, ConfigInfo& document, const std::vector<Change>& changes,
                        const DocumentBefore& before, const Request& request);

/// The lock on a file, to be held from before it is read until it is written. Throws a Refusal that says who has it when
/// the time that was asked for is over. None in a folder that does not exist: what follows says that it is missing.
std::unique_ptr<XMLConfig::ConfigLock> lockForWriting(const std::string& file, const Request& request);

/// Refuses where another program has changed the file since it was read.
void refuseForeignChange(const ConfigInfo& document, const std::string& file);

}  // namespace tool
