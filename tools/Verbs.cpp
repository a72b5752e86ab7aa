#include "tools/Verb.h"

namespace tool {

const char* const addressHelp =
    "An ADDRESS is Section[ID]/Key/Nested or Section[ID]/Subsection[ID]/Key. A device may be named by its ID,\n"
    "its name, the ending of its ID after \":\" or \"***\", or its number in the file: Projector[#3];\n"
    "Projector[*] means all of them, and Projector/Name the only one. In brackets every character stands for\n"
    "itself, \"/\" and \"=\" too; only \"]\" is written twice: Projector[a]]b]/Name is the name of \"a]b\".\n"
    "The shell wants addresses in quotes: 'Camera[Dome left]/Camera_Gain'.\n"
    "\n"
    "Exit status: 0 done, 1 not found or refused, 2 wrong usage, 3 a file cannot be read or written, or is no\n"
    "configuration.";

const std::vector<Verb>& verbs() {
    static const std::vector<Verb> table = {
        {"new", "Make a file that holds a new configuration", setUpNew, runNew},
        {"show", "Show what a file holds", setUpShow, runShow},
        {"get", "Print the values at addresses", setUpGet, runGet},
        {"set", "Change the values at addresses, all or none", setUpSet, runSet},
        {"unset", "Take values away, so that inherited ones or defaults count", setUpUnset, runUnset},
        {"describe", "List the settings the library knows", setUpDescribe, runDescribe},
        {"check", "Look for what is not in order", setUpCheck, runCheck},
        {"layout", "Show where the channels lie, overlap and leave gaps", setUpLayout, runLayout},
        {"diff", "Tell what differs between two files", setUpDiff, runDiff},
        {"upgrade", "Bring files of older releases to the latest version", setUpUpgrade, runUpgrade},
    };
    return table;
}

}  // namespace tool
