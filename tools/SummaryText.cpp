#include <ctime>

#include "platform/Utf8.h"
#include "tools/NumberTexts.h"
#include "tools/Printable.h"
#include "tools/Summary.h"
#include "tools/TableText.h"

namespace tool {
namespace {

using Rows = std::vector<std::vector<std::wstring>>;

std::wstring fileText(const Summary& summary, const std::wstring& file) {
    const std::wstring name = file == L"-" ? L"standard input" : file;
    std::wstring text = L"File        " + printable(name) + L", version " + printable(summary.version);
    if (!summary.buildNumber.empty()) text += L", build " + printable(summary.buildNumber);
    if (!summary.buildDate.empty()) text += L" of " + printable(summary.buildDate);
    return text + L"\n";
}

std::wstring checkText(const Summary& summary, const std::wstring& file) {
    const auto text = [](std::size_t count, const wchar_t* noun) { return counted(count, noun); };
    const std::wstring command = L" (xmlconfig check " + printable(fileWord(file)) + L")";
    return L"Check       " + text(summary.errors, L"error") + L", " + text(summary.warnings, L"warning") + L", " +
           text(summary.notes, L"note") + (file == L"-" ? L"" : command) + L"\n";
}

std::wstring known(double value) { return value < 0.0 ? L"?" : numberText(value, 2); }

std::wstring connectionText(const Summary::Connection& connection) {
    std::wstring text = connection.address.empty() ? connection.port : connection.address;
    if (!connection.address.empty() && !connection.port.empty()) text += L":" + connection.port;
    if (!connection.baud.empty()) text += L" " + connection.baud;
    return text.empty() ? L"-" : text;
}

std::wstring cameraNames(const std::vector<std::wstring>& ids, const Showing& showing) {
    std::wstring names;
    for (const std::wstring& id : ids) names += (names.empty() ? L"" : L", ") + showing.device(L"Camera", id);
    return names.empty() ? L"-" : names;
}

std::wstring projectorsText(const Summary& summary, const Showing& showing) {
    std::wstring text = L"Projectors  " + std::to_wstring(summary.projectors.size());
    if (summary.projectors.empty()) return text + L"\n";
    text += L" (" + std::to_wstring(summary.columns) + L" x " + std::to_wstring(summary.rows) + L")\n";
    Rows rows = {{L"#", L"Name", L"Heading", L"Field", L"Pixels", L"Blends l/r/t/b", L"Cameras", L"Connection", L"ID"}};
    const Units& units = showing.units();
    for (const Summary::Projector& p : summary.projectors)
        rows.push_back(
            {std::to_wstring(rows.size()), p.name, units.angle(p.yaw) + L" / " + units.angle(p.pitch),
             units.angle(p.fieldAcross) + L" x " + units.angle(p.fieldUpright),
             std::to_wstring(p.resolutionX) + L" x " + std::to_wstring(p.resolutionY),
             known(p.blends[0]) + L" / " + known(p.blends[1]) + L" / " + known(p.blends[2]) + L" / " + known(p.blends[3]),
             cameraNames(p.cameras, showing), connectionText(p.connection), p.id});
    return text + tableText(rows, L"  ");
}

std::wstring camerasText(const Summary& summary) {
    std::wstring text = L"Cameras     " + std::to_wstring(summary.cameras.size()) + L"\n";
    if (summary.cameras.empty()) return text;
    Rows rows = {{L"#", L"Name", L"Exposure", L"Gain", L"Connection", L"ID"}};
    for (const Summary::Camera& c : summary.cameras)
        rows.push_back({std::to_wstring(rows.size()), c.name,
                        c.automaticExposure ? L"automatic" : std::to_wstring(c.exposure), std::to_wstring(c.gain),
                        c.address.empty() ? L"-" : c.address, c.id});
    return text + tableText(rows, L"  ");
}

std::wstring screenText(const Summary::Screen& s, const Units& units) {
    const auto length = [&](double meters) { return meters < 0.0 ? L"?" : units.length(meters); };
    const std::wstring unit = L" " + units.lengthUnit();
    std::wstring text = L"Screen      " + printable(s.shape) + L", ";
    if (s.shape == L"Flat" || s.shape == L"VRML" || s.shape == L"Ruled" || s.shape == L"Test")
        return text + length(s.width) + L" x " + length(s.height) + unit + L"\n";
    text += L"radius " + length(s.radius) + unit;
    if (s.shape == L"Cylinder") text += L", height " + length(s.height) + unit;
    text += L", " + units.angle(s.minTheta) + L" to " + units.angle(s.maxTheta) + L" around";
    if (s.shape != L"Cylinder") text += L", " + units.angle(s.minPhi) + L" to " + units.angle(s.maxPhi) + L" up";
    return text + L"\n";
}

std::wstring utc(std::int32_t seconds) {
    // Not every system knows times before 1970, but the calendar repeats itself.
    constexpr std::time_t fourCenturies = std::time_t{146'097} * 86'400;
    const std::time_t time = seconds + fourCenturies;
    std::tm parts = *std::gmtime(&time);
    parts.tm_year -= 400;
    char text[32];
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S UTC", &parts);
    return XMLConfig::wideFromUtf8(std::string(text, length));
}

std::wstring runsText(const Summary& summary) {
    std::wstring text = L"Runs        " + std::to_wstring(summary.successfulRuns) + L" succeeded, " +
                        std::to_wstring(summary.failedRuns) + L" failed";
    if (summary.lastRun != 0) text += L", the last one at " + utc(summary.lastRun);
    text += L"\nSlots       " + std::to_wstring(summary.approvedSlots.size()) + L" approved";
    const wchar_t* separator = L": ";
    for (const Summary::Slot& slot : summary.approvedSlots) {
        text += separator + printable(slot.id + L" \"" + slot.name) + L"\"";
        separator = L", ";
    }
    if (summary.currentSlot != -1) text += L"; current slot " + std::to_wstring(summary.currentSlot);
    return text + L"\n";
}

}  // namespace

std::wstring summaryText(const Summary& summary, const std::wstring& file, const Showing& showing) {
    return fileText(summary, file) + checkText(summary, file) + projectorsText(summary, showing) + camerasText(summary) +
           screenText(summary.screen, showing.units()) + L"Target      " + printable(summary.target) + L"\n" +
           runsText(summary);
}

}  // namespace tool
