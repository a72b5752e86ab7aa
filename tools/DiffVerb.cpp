#include <cmath>

#include "manager/Upgrade.h"
#include "platform/Utf8.h"
#include "platform/Words.h"
#include "store/BuildIdentity.h"
#include "tools/Colour.h"
#include "tools/Configuration.h"
#include "tools/DiffText.h"
#include "tools/Reading.h"
#include "tools/Verb.h"

namespace tool {
namespace {

/// The name that git gives instead of a file that one of the two versions does not have.
const char* const noFile = "/dev/null";

std::unique_ptr<ConfigInfo> emptyDocument() {
    const std::wstring version = XMLConfig::versionText(XMLConfig::detail::latestFileVersion);
    return ConfigInfo::fromText("<ConfigInfo><Version>" + XMLConfig::utf8FromWide(version) + "</Version></ConfigInfo>", L"");
}

std::unique_ptr<ConfigInfo> readSide(const Request& request, const std::string& file) {
    if (request.git && file == noFile) return emptyDocument();
    return request.asStored ? readDocumentAsStored(file) : readDocument(file);
}

/// Git gives: path, old file, its hash and mode, new file, its hash and mode.
struct Files {
    std::string old;
    std::string now;
    std::string path;
};

Files filesOf(const Request& request) {
    const std::vector<std::string>& words = request.operands;
    if (!request.git && words.size() == 2) return {words[0], words[1], ""};
    if (request.git && words.size() == 7) return {words[1], words[4], words[0]};
    throw WrongOperands(request.git ? "--git takes git's seven arguments" : "OLD and NEW are required");
}

std::wstring answer(const Request& request, const XMLConfig::Difference& difference, const Compared& compared) {
    if (request.json) return diffJson(difference, compared);
    if (request.brief) return diffStatistics(difference, request.all);
    if (!request.lines) return diffText(difference, compared, request.all, isColoured(request.colour));
    std::size_t leftOut = 0;
    std::wstring lines = diffLines(difference, compared, leftOut);
    if (leftOut > 0)
        complain(XMLConfig::detail::counted(leftOut, L"difference") + L" cannot be told as " +
                 (leftOut == 1 ? L"a line" : L"lines") + L"; diff without --lines shows " +
                 (leftOut == 1 ? L"it" : L"them"));
    return lines;
}

}  // namespace

void setUpDiff(Options& options, Request& request) {
    options.value("OLD NEW", request.operands, "The files to compare; one may be - for standard input")
        .required()
        .notEmpty(emptyName);
    options.flag("--all", request.all, "Tell runs and times, and what is the same in effect or value, too");
    options.flag("--stat", request.brief, "Print the last line only");
    options.flag("--lines", request.lines, "Print the changes as lines for 'set --from'");
    options.flag("--as-stored", request.asStored, "Compare files of older releases as they are, not as upgraded");
    options.value("--tolerance", request.tolerance, "By how much numbers may differ, in the stored unit").valueName("X");
    options.flag("--git", request.git, "Take the seven arguments that git passes, and end with 0");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    options.footer(
        "Exit status: 0 no difference, 1 differences, 2 wrong usage, 3 a file cannot be read or is no configuration.");
}

ExitStatus runDiff(const Request& request) {
    const Files files = filesOf(request);
    if (request.tolerance && !(*request.tolerance >= 0.0 && std::isfinite(*request.tolerance)))
        throw WrongOperands("--tolerance takes a number from 0 up");
    if (files.old == "-" && files.now == "-") throw WrongOperands("only one of the files can be standard input");
    const std::unique_ptr<ConfigInfo> old = readSide(request, files.old);
    const std::unique_ptr<ConfigInfo> now = readSide(request, files.now);
    XMLConfig::DiffOptions options;
    options.tolerance = request.tolerance;
    const XMLConfig::Difference difference = XMLConfig::diff(*old, *now, options);
    if (request.git) print(L"diff --xmlconfig a/" + XMLConfig::wideFromUtf8(files.path) + L"\n");
    print(answer(request, difference, {files.old, files.now, *old, *now}));
    return request.git || difference.isNothing() ? Done : Refused;
}

}  // namespace tool
