#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/Numbers.h"
#include "platform/Text.h"

/// Where the files stand that belong to the upgrade chain, seen from the root of the sources.

/// "2.005", as it is written in files and in their names.
inline std::string fileVersion(double version) {
    return XMLConfig::detail::toUtf8(XMLConfig::detail::formatFixed(version, 3));
}

/// Without the zeros at the end: "9" for 9.0, "2.005" for 2.005.
inline std::string shortVersion(double version) {
    std::string text = fileVersion(version);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

/// As people write it: "9.0", "2.005".
inline std::string spokenVersion(double version) {
    const std::string number = shortVersion(version);
    return number + (number.find('.') == std::string::npos ? ".0" : "");
}

inline std::filesystem::path stepInput(const std::string& version) { return "tests/golden/steps/to-" + version + ".in.xml"; }
inline std::filesystem::path stepOutcome(const std::string& version) {
    return "tests/golden/steps/to-" + version + ".expected.xml";
}
inline std::filesystem::path chainOutcome(const std::string& version) {
    return "tests/golden/chains/from-" + version + ".expected.xml";
}

/// An old file that is shipped as an example: "dome-", its version, and the extension of its time.
struct HistoricalFile {
    std::string version;
    std::filesystem::path path;
};

/// In the order of their versions; none where there is no such folder.
inline std::vector<HistoricalFile> historicalFiles(const std::filesystem::path& folder) {
    std::vector<HistoricalFile> files;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) {
        const std::string name = entry.path().stem().string();
        if (name.compare(0, 5, "dome-") == 0) files.push_back({name.substr(5), entry.path()});
    }
    std::sort(files.begin(), files.end(), [](const auto& left, const auto& right) { return left.version < right.version; });
    return files;
}
