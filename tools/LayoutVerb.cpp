#include <filesystem>
#include <system_error>

#include "manager/FileWriting.h"
#include "platform/FileNames.h"
#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tools/Colour.h"
#include "tools/LayoutPicture.h"
#include "tools/LayoutText.h"
#include "tools/Output.h"
#include "tools/Reading.h"
#include "tools/Verb.h"

namespace tool {
namespace {

/// Whether both names lead to one file.
bool areOne(const std::string& file, const std::string& other) {
    const auto pathOf = [](const std::string& name) { return XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(name)); };
    std::error_code ignored;
    return std::filesystem::equivalent(pathOf(file), pathOf(other), ignored);
}

void writePicture(const Request& request, const std::string& svg) {
    if (areOne(request.file, request.picture))
        throw Refusal(XMLConfig::wideFromUtf8(request.picture) + L": is the configuration; the picture would replace it");
    if (XMLConfig::isDeviceName(XMLConfig::wideFromUtf8(request.picture)))
        throw Refusal(XMLConfig::wideFromUtf8(request.picture) + L": is the name of a device");
    try {
        XMLConfig::writeFile(XMLConfig::wideFromUtf8(request.picture), svg);
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
    noteWritten(request.picture);
}

}  // namespace

void setUpLayout(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to look at; - for standard input").required().notEmpty(emptyName);
    options
        .value("--svg", request.picture,
               "Draw the picture into this file; - for standard output, which gets nothing else then")
        .valueName("FILE.svg")
        .notEmpty(emptyName);
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    options.footer(
        "Exit status: 0 done, 1 refused, 2 wrong usage, 3 a file cannot be read or written, or is no configuration.");
}

ExitStatus runLayout(const Request& request) {
    const bool isPictureTheAnswer = request.picture == "-";
    if (isPictureTheAnswer && request.json) throw WrongOperands("--svg - and --json exclude each other on standard output");
    const std::unique_ptr<ConfigInfo> document = readDocument(request.file);
    const XMLConfig::Layout layout = XMLConfig::layout(*document);
    const Units units(*document);
    if (isPictureTheAnswer) {
        printExactly(XMLConfig::wideFromUtf8(layoutSvg(layout, units)));
        return Done;
    }
    if (!request.picture.empty()) writePicture(request, layoutSvg(layout, units));
    print(request.json ? layoutJson(layout, request.file) : layoutText(layout, units, isColoured(request.colour)));
    return Done;
}

}  // namespace tool
