#pragma once

#include <optional>
#include <string>
#include <vector>

#include "manager/LogOutput.h"
#include "tools/Options.h"

namespace tool {

/// What the command line asked for; each verb takes the fields that it set up. Text is UTF-8.
struct Request {
    std::string file;
    std::vector<std::string> operands;
    bool force = false;
    bool brief = false;
    std::string target;
    bool explain = false;
    bool json = false;
    bool dryRun = false;
    bool all = false;
    bool lines = false;
    bool asStored = false;
    bool git = false;
    std::vector<std::string> rules;
    bool strict = false;
    bool withoutFiles = false;
    std::string fix;       ///< "" for no, "true" for the safe mends, else the rules whose others are wanted too
    std::string accepted;  ///< RULE or RULE@ADDRESS
    std::optional<std::string> because;
    std::optional<double> tolerance;
    std::string picture;
    std::string colour = "auto";
    unsigned waitSeconds = 30;
    unsigned projectors = 0;
    bool origin = false;
    bool effective = false;
    bool human = false;
    std::optional<std::string> fallback;
    bool quiet = false;
    std::string lineFile;
    bool flat = false;
    bool steps = false;
};

/// What a program of this tool answers with.
enum ExitStatus : int { Done = 0, Refused = 1, WrongUsage = 2, NotReadable = 3 };

struct Verb {
    const char* name;
    const char* summary;                                ///< one line
    void (*setUp)(Options& options, Request& request);  ///< names the operands and options
    ExitStatus (*run)(const Request& request);          ///< what it throws is told as a refusal
    /// From which level up the library's log is shown without --verbose.
    XMLConfig::LogLevel log = XMLConfig::LogLevel::Warn;
};

/// How addresses are written, for the help of verbs that take them.
extern const char* const addressHelp;

/// The table of verbs, in the order in which they are listed.
const std::vector<Verb>& verbs();

// One source file a verb.

void setUpNew(Options& options, Request& request);
ExitStatus runNew(const Request& request);
void setUpShow(Options& options, Request& request);
ExitStatus runShow(const Request& request);
void setUpGet(Options& options, Request& request);
ExitStatus runGet(const Request& request);
void setUpSet(Options& options, Request& request);
ExitStatus runSet(const Request& request);
void setUpUnset(Options& options, Request& request);
ExitStatus runUnset(const Request& request);
void setUpDescribe(Options& options, Request& request);
ExitStatus runDescribe(const Request& request);
void setUpCheck(Options& options, Request& request);
ExitStatus runCheck(const Request& request);
void setUpLayout(Options& options, Request& request);
ExitStatus runLayout(const Request& request);
void setUpDiff(Options& options, Request& request);
ExitStatus runDiff(const Request& request);
void setUpUpgrade(Options& options, Request& request);
ExitStatus runUpgrade(const Request& request);

}  // namespace tool
