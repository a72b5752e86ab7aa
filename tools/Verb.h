#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/Options.h"

namespace tool {

/// What the command line asked for. Each verb names its operands and options in its setUp function and reads only those
/// fields; all others keep their values from here. Text is UTF-8.
struct Request {
    // Operands.

    std::string file;                   ///< FILE of the verbs that take one file; "-" for standard input
    std::vector<std::string> operands;  ///< FILEs of the verbs that take several; else addresses, changes or words

    // Options of several verbs.

    bool json = false;            ///< --json
    bool all = false;             ///< --all: show and diff leave nothing out
    bool force = false;           ///< --force: new replaces a file, set and unset do what they would refuse
    bool dryRun = false;          ///< --dry-run: nothing is written
    bool quiet = false;           ///< --quiet: the verbs that write do not tell what they wrote
    unsigned waitSeconds = 30;    ///< --wait: for another program that is writing
    std::string colour = "auto";  ///< --color

    // Options of one verb.

    unsigned projectors = 0;              ///< new --projectors
    bool flat = false;                    ///< show --flat
    bool effective = false;               ///< get --effective
    bool origin = false;                  ///< get --origin
    bool human = false;                   ///< get --human
    std::optional<std::string> fallback;  ///< get --default
    std::string lineFile;                 ///< set --from: the file with a change a line, "-" for standard input
    std::vector<std::string> rules;       ///< check --only: IDs of rules
    bool withoutFiles = false;            ///< check --no-files
    bool strict = false;                  ///< check --strict
    std::string fix;       ///< check --fix: "" for no, "true" for the safe mends, else the rules whose others are wanted too
    std::string accepted;  ///< check --accept: RULE or RULE@ADDRESS
    std::optional<std::string> because;  ///< check --because
    std::string picture;                 ///< layout --svg: where the picture goes, "-" for standard output
    bool brief = false;                  ///< diff --stat
    bool lines = false;                  ///< diff --lines
    bool asStored = false;               ///< diff --as-stored
    bool git = false;                    ///< diff --git
    std::optional<double> tolerance;     ///< diff --tolerance, in the stored unit of each number
    std::string target;                  ///< upgrade --output; "" for the file itself
    bool explain = false;                ///< upgrade --explain
    bool steps = false;                  ///< upgrade --steps
};

/// What a program of this tool answers with.
enum ExitStatus : int { Done = 0, Refused = 1, WrongUsage = 2, NotReadable = 3 };

struct Verb {
    const char* name;
    const char* summary;                                ///< one line
    void (*setUp)(Options& options, Request& request);  ///< names the operands and options
    ExitStatus (*run)(const Request& request);          ///< what it throws is told as a refusal
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
