#include <CLI/App.hpp>

#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Summary.h"
#include "tools/Tree.h"
#include "tools/Verb.h"

namespace tool {
namespace {

struct HeaderLine {
    const wchar_t* element;
    const wchar_t* label;
};
constexpr HeaderLine headerLines[] = {
    {L"Version", L"File        version "},
    {L"BuildDate", L"Build date  "},
    {L"BuildNumber", L"Build       "},
    {L"DevelopedBy", L"Maker       "},
};

const wchar_t* labelOf(const XMLConfig::OutlineNode& node) {
    for (const HeaderLine& line : headerLines)
        if (node.name == line.element) return line.label;
    return nullptr;
}

}  // namespace

void setUpShow(CLI::App& app, Request& request) {
    app.add_option("FILE", request.file, "The file to show")->required();
    app.add_flag("--summary", request.brief, "Leave out the sections and their items");
}

ExitStatus runShow(const Request& request) {
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    const std::vector<XMLConfig::OutlineNode> nodes = XMLConfig::outline(*document);
    for (const XMLConfig::OutlineNode& node : nodes)
        if (const wchar_t* const label = labelOf(node)) print(label + node.text + L"\n");
    if (isOfLatestVersion(*document)) print(L"\n" + summaryText(summarize(*document)));
    for (const XMLConfig::OutlineNode& node : nodes)
        if (labelOf(node) == nullptr && !request.brief) print(L"\n" + treeText(node));
    return Done;
}

}  // namespace tool
