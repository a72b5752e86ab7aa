#include <CLI/App.hpp>
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

void setUpLayout(CLI::App& app, Request& request) {
    app.add_option("FILE", request.file, "The file to look at; - for standard input")->required();
    app.add_option("--svg", request.picture, "Draw the picture into this file")->type_name("FILE.svg");
    app.add_flag("--json", request.json, "Answer with one JSON object");
    setUpColour(app, request.colour);
    app.footer("Exit status: 0 done, 2 wrong usage, 3 a file cannot be read or written, or is no configuration.");
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
