#include <algorithm>
#include <string>

#include "tools/Summary.h"

namespace tool {
namespace {

Json orNull(const std::wstring& text) { return text.empty() ? Json(nullptr) : jsonText(text); }

/// A number where the text is one, as a network port is and a serial one is not.
Json portJson(const std::wstring& port) {
    constexpr std::size_t longest = 9;
    const auto isDigit = [](wchar_t character) { return character >= L'0' && character <= L'9'; };
    const bool isNumber = !port.empty() && port.size() <= longest && std::all_of(port.begin(), port.end(), isDigit);
    return isNumber ? Json(std::stoi(port)) : orNull(port);
}

Json jsonOf(const Summary::Connection& connection) {
    if (connection.type.empty()) return nullptr;
    Json json = {
        {"type", jsonText(connection.type)}, {"address", orNull(connection.address)}, {"port", portJson(connection.port)}};
    if (!connection.baud.empty()) json["baud"] = portJson(connection.baud);
    return json;
}

Json lineOf(const XMLConfig::ElementView& element, const XMLConfig::FilePlaces* places) {
    const auto place = places == nullptr ? std::nullopt : places->find(element);
    return place ? Json(place->line) : Json(nullptr);
}

Json jsonOf(const Summary::Projector& projector, std::size_t number, const XMLConfig::FilePlaces* places) {
    Json cameras = Json::array();
    for (const std::wstring& id : projector.cameras) cameras.push_back(jsonText(id));
    return {{"number", number},
            {"id", jsonText(projector.id)},
            {"name", jsonText(projector.name)},
            {"line", lineOf(projector.element, places)},
            {"pixels", {projector.resolutionX, projector.resolutionY}},
            {"yaw", projector.yaw},
            {"pitch", projector.pitch},
            {"roll", projector.roll},
            {"connection", jsonOf(projector.connection)},
            {"cameras", cameras}};
}

Json jsonOf(const Summary::Camera& camera, std::size_t number) {
    return {{"number", number},
            {"id", jsonText(camera.id)},
            {"name", jsonText(camera.name)},
            {"address", orNull(camera.address)},
            {"serialNumber", orNull(camera.serialNumber)}};
}

}  // namespace

Json summaryJson(const Summary& summary, const XMLConfig::FilePlaces* places) {
    Json json = {{"projectors", Json::array()}, {"cameras", Json::array()}};
    for (const Summary::Projector& projector : summary.projectors)
        json["projectors"].push_back(jsonOf(projector, json["projectors"].size() + 1, places));
    for (const Summary::Camera& camera : summary.cameras)
        json["cameras"].push_back(jsonOf(camera, json["cameras"].size() + 1));
    const double radius = summary.screen.radius;
    json["screen"] = {{"shape", jsonText(summary.screen.shape)}, {"radius", radius < 0.0 ? Json(nullptr) : Json(radius)}};
    json["runs"] = {{"succeeded", summary.successfulRuns}, {"failed", summary.failedRuns}, {"last", summary.lastRun}};
    json["slots"] = Json::array();
    for (const Summary::Slot& slot : summary.approvedSlots)
        json["slots"].push_back({{"id", jsonText(slot.id)}, {"name", jsonText(slot.name)}});
    json["currentSlot"] = summary.currentSlot;
    json["check"] = {{"errors", summary.errors}, {"warnings", summary.warnings}, {"notes", summary.notes}};
    return json;
}

}  // namespace tool
