#pragma once

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/ToolRun.h"

/// What the tool's help tells of its verbs and their options.

/// What the first group of the pattern matches in each line that holds a match.
inline std::vector<std::string> firstGroups(const std::string& text, const std::string& pattern) {
    std::vector<std::string> words;
    std::istringstream lines(text);
    const std::regex expression(pattern);
    std::smatch match;
    for (std::string line; std::getline(lines, line);)
        if (std::regex_search(line, match, expression)) words.push_back(match[1]);
    return words;
}

inline std::vector<std::string> verbNames() {
    const std::string help = runTool({"--help"}).output;
    return firstGroups(help.substr(help.find("Verbs:")), "^  ([a-z]+)  ");
}

/// "-h,--help", "--json", ...
inline std::vector<std::string> optionsOf(const std::string& verb) {
    return firstGroups(runTool({verb, "--help"}).output, "^  (-[-a-z,]+)");
}
