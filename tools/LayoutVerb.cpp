#include <filesystem>
#include <fstream>

#include "platform/Utf8.h"
#include "tools/Colour.h"
#include "tools/LayoutPicture.h"
#include "tools/LayoutText.h"
#include "tools/Reading.h"
#include "tools/Verb.h"

namespace tool {
namespace {

void writePicture(const std::string& file, const std::string& svg) {
    std::ofstream out(std::filesystem::u8path(file), std::ios::binary | std::ios::trunc);
    out << svg;
    out.close();
    if (!out) throw Unreadable(XMLConfig::wideFromUtf8(file) + L": cannot be written");
}

}  // namespace

void setUpLayout(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to look at; - for standard input").required();
    options.value("--svg", request.picture, "Draw the picture into this file").valueName("FILE.svg");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpColour(options, request.colour);
    options.footer("Exit status: 0 done, 2 wrong usage, 3 a file cannot be read or written, or is no configuration.");
}

ExitStatus runLayout(const Request& request) {
    const std::unique_ptr<ConfigInfo> document = readDocument(request.file);
    const XMLConfig::Layout layout = XMLConfig::layout(*document);
    const Units units(*document);
    if (!request.picture.empty()) writePicture(request.picture, layoutSvg(layout, units));
    print(request.json ? layoutJson(layout, request.file) : layoutText(layout, units, isColoured(request.colour)));
    return Done;
}

}  // namespace tool
