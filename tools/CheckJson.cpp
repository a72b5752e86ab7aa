#include <algorithm>

#include "platform/Utf8.h"
#include "tools/CheckText.h"
#include "tools/Json.h"
#include "tools/Printable.h"

namespace tool {
namespace {

using XMLConfig::Finding;
using XMLConfig::Severity;

Json numberOrNull(const std::optional<unsigned long long>& line) { return line ? Json(*line) : Json(nullptr); }

Json placesOf(const CheckedFile::LocatedFinding& located) {
    Json places = Json::array();
    for (std::size_t i = 0; i < located.finding.places.size(); ++i) {
        const XMLConfig::FindingPlace& other = located.finding.places[i];
        places.push_back({{"address", jsonText(other.address)},
                          {"line", numberOrNull(located.otherLines[i])},
                          {"text", jsonText(other.text)}});
    }
    return places;
}

Json mendOf(const Finding& finding, const std::string& file) {
    Json commands = Json::array();
    for (const std::vector<std::wstring>& command : finding.mend.commands) {
        Json words = Json::array();
        for (const std::wstring& word : command) words.push_back(word == L"FILE" ? Json(file) : jsonText(word));
        commands.push_back(words);
    }
    return {{"safety", jsonText(nameOf(finding.mend.safety))}, {"commands", commands}};
}

Json jsonOf(const CheckedFile::LocatedFinding& located, const std::string& file) {
    const Finding& finding = located.finding;
    return {{"rule", jsonText(finding.rule)},
            {"name", jsonText(finding.name)},
            {"severity", jsonText(nameOf(finding.severity))},
            {"address", jsonText(finding.address)},
            {"device", finding.device.empty() ? Json(nullptr) : jsonText(finding.device)},
            {"line", numberOrNull(located.line)},
            {"message", jsonText(messageOf(located))},
            {"places", placesOf(located)},
            {"mend", mendOf(finding, file)}};
}

Json jsonOf(const std::vector<NewComment>& comments) {
    Json json = Json::array();
    for (const NewComment& comment : comments)
        json.push_back(
            {{"address", jsonText(comment.section.section.empty() ? L"" : XMLConfig::addressText(comment.section))},
             {"text", jsonText(comment.text)}});
    return json;
}

Json jsonOf(const CheckedFile& checked) {
    if (!checked.fault.empty()) return {{"file", checked.file}, {"error", jsonText(printable(checked.fault))}};
    Json json = {{"file", checked.file}, {"version", checked.version}};
    if (checked.isWritten) json["written"] = *checked.isWritten;
    if (checked.changes) json["changes"] = jsonOf(*checked.changes);
    if (!checked.comments.empty()) json["comments"] = jsonOf(checked.comments);
    json["errors"] = checked.count(Severity::Error);
    json["warnings"] = checked.count(Severity::Warning);
    json["notes"] = checked.count(Severity::Note);
    json["accepted"] = checked.acceptedFindings;
    json["findings"] = Json::array();
    for (const CheckedFile::LocatedFinding& located : checked.findings)
        json["findings"].push_back(jsonOf(located, checked.file));
    return json;
}

}  // namespace

std::wstring checkJson(const std::vector<CheckedFile>& checked, int exitStatus) {
    Json json = {{"format", 1}, {"verb", "check"}, {"files", Json::array()}};
    for (const CheckedFile& file : checked) json["files"].push_back(jsonOf(file));
    json["exit"] = exitStatus;
    return XMLConfig::wideFromUtf8(json.dump(2)) + L"\n";
}

}  // namespace tool
