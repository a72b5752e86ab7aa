#include "tests/support/GoldenFile.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr std::size_t context = 3;

struct Line {
    char sign;
    std::string text;
};

std::vector<std::string> linesWithEndMark(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\n', begin);
        if (end == std::string::npos) {
            lines.push_back(text.substr(begin) + "  (no line end)");
            break;
        }
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

// Length of the longest common subsequence of the texts' ends, from each pair of places on.
std::vector<std::vector<int>> commonLengths(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    std::vector<std::vector<int>> lengths(left.size() + 1, std::vector<int>(right.size() + 1, 0));
    for (std::size_t i = left.size(); i-- > 0;) {
        for (std::size_t j = right.size(); j-- > 0;) {
            lengths[i][j] = left[i] == right[j] ? lengths[i + 1][j + 1] + 1 : std::max(lengths[i + 1][j], lengths[i][j + 1]);
        }
    }
    return lengths;
}

std::vector<Line> merged(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    const auto lengths = commonLengths(left, right);
    std::vector<Line> lines;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() || j < right.size()) {
        if (i < left.size() && j < right.size() && left[i] == right[j]) {
            lines.push_back({' ', left[i++]});
            ++j;
        } else if (j == right.size() || (i < left.size() && lengths[i + 1][j] >= lengths[i][j + 1])) {
            lines.push_back({'-', left[i++]});
        } else {
            lines.push_back({'+', right[j++]});
        }
    }
    return lines;
}

// Whether a changed line stands within the context of this one.
bool isShown(const std::vector<Line>& lines, std::size_t place) {
    const auto first = lines.begin() + static_cast<std::ptrdiff_t>(place - std::min(place, context));
    const auto last = lines.begin() + static_cast<std::ptrdiff_t>(std::min(place + context + 1, lines.size()));
    return std::any_of(first, last, [](const Line& line) { return line.sign != ' '; });
}

}  // namespace

std::string unifiedDiff(const std::string& expected, const std::string& actual, const std::string& name) {
    if (expected == actual) return {};
    const std::vector<Line> lines = merged(linesWithEndMark(expected), linesWithEndMark(actual));
    std::string text = "--- " + name + " (expected)\n+++ " + name + " (actual)\n";
    std::size_t leftLine = 0;
    bool wasShown = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].sign != '+') ++leftLine;
        const bool shown = isShown(lines, i);
        if (shown && !wasShown) text += "@@ line " + std::to_string(std::max<std::size_t>(leftLine, 1)) + " @@\n";
        if (shown) text += lines[i].sign + lines[i].text + '\n';
        wasShown = shown;
    }
    return text;
}

testing::AssertionResult matchesGolden(const std::filesystem::path& file, const std::string& actual) {
    const char* const update = std::getenv("XMLCONFIG_UPDATE_GOLDEN");
    if (update != nullptr && std::string(update) == "1") {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << actual;
        return testing::AssertionSuccess();
    }
    if (!std::filesystem::exists(file)) return testing::AssertionFailure() << "there is no file " << file;
    const std::string expected = TemporaryFolder::readFile(file);
    if (expected == actual) return testing::AssertionSuccess();
    return testing::AssertionFailure() << '\n' << unifiedDiff(expected, actual, file.filename().string());
}
