#include <charconv>
#include <ctime>

#include "platform/Utf8.h"
#include "tools/Summary.h"
#include "tools/Table.h"

namespace tool {
namespace {

using Rows = std::vector<std::vector<std::wstring>>;

/// At most two decimals, without trailing zeros; the same under every locale.
std::wstring number(double value) {
    char text[400];
    const auto end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, 2);
    std::string digits(text, end.ptr);
    if (digits.find('.') != std::string::npos) {
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.pop_back();
    }
    return XMLConfig::wideFromUtf8(digits == "-0" ? "0" : digits);
}

std::wstring known(double value) { return value < 0.0 ? L"?" : number(value); }

std::wstring projectorsText(const Summary& summary) {
    std::wstring text = L"Projectors  " + std::to_wstring(summary.projectors.size());
    if (summary.projectors.empty()) return text + L"\n";
    text += L" (" + std::to_wstring(summary.columns) + L" x " + std::to_wstring(summary.rows) + L")\n";
    Rows rows = {{L"ID", L"Name", L"Pixels", L"Yaw", L"Pitch", L"Roll", L"Field", L"Blends left/right/top/bottom"}};
    for (const Summary::Projector& p : summary.projectors)
        rows.push_back(
            {p.id, p.name, std::to_wstring(p.resolutionX) + L" x " + std::to_wstring(p.resolutionY), number(p.yaw) + L"°",
             number(p.pitch) + L"°", number(p.roll) + L"°", number(p.fieldAcross) + L"° x " + number(p.fieldUpright) + L"°",
             known(p.blends[0]) + L" / " + known(p.blends[1]) + L" / " + known(p.blends[2]) + L" / " + known(p.blends[3])});
    return text + tableText(rows, L"  ");
}

std::wstring camerasText(const Summary& summary) {
    std::wstring text = L"Cameras     " + std::to_wstring(summary.cameras.size()) + L"\n";
    if (summary.cameras.empty()) return text;
    Rows rows = {{L"ID", L"Name", L"Exposure", L"Gain"}};
    for (const Summary::Camera& c : summary.cameras)
        rows.push_back(
            {c.id, c.name, c.automaticExposure ? L"automatic" : std::to_wstring(c.exposure), std::to_wstring(c.gain)});
    return text + tableText(rows, L"  ");
}

std::wstring screenText(const Summary::Screen& s) {
    std::wstring text = L"Screen      " + s.shape + L", ";
    if (s.shape == L"Flat" || s.shape == L"VRML" || s.shape == L"Ruled" || s.shape == L"Test")
        return text + known(s.width) + L" x " + known(s.height) + L" " + s.unit + L"\n";
    text += L"radius " + known(s.radius) + L" " + s.unit;
    if (s.shape == L"Cylinder") text += L", height " + known(s.height) + L" " + s.unit;
    text += L", " + number(s.minTheta) + L"° to " + number(s.maxTheta) + L"° around";
    if (s.shape != L"Cylinder") text += L", " + number(s.minPhi) + L"° to " + number(s.maxPhi) + L"° up";
    return text + L"\n";
}

std::wstring utc(std::int32_t seconds) {
    const std::time_t time = seconds;
    char text[32];
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S UTC", std::gmtime(&time));
    return XMLConfig::wideFromUtf8(std::string(text, length));
}

std::wstring runsText(const Summary& summary) {
    std::wstring text = L"Runs        " + std::to_wstring(summary.successfulRuns) + L" succeeded, " +
                        std::to_wstring(summary.failedRuns) + L" failed";
    if (summary.lastRun != 0) text += L", the last one at " + utc(summary.lastRun);
    text += L"\nSlots       " + std::to_wstring(summary.approvedSlots.size()) + L" approved";
    const wchar_t* separator = L": ";
    for (const Summary::Slot& slot : summary.approvedSlots) {
        text += separator + slot.id + L" \"" + slot.name + L"\"";
        separator = L", ";
    }
    if (summary.currentSlot != -1) text += L"; current slot " + std::to_wstring(summary.currentSlot);
    return text + L"\n";
}

}  // namespace

std::wstring summaryText(const Summary& summary) {
    return projectorsText(summary) + camerasText(summary) + screenText(summary.screen) + L"Target      " + summary.target +
           L"\n" + runsText(summary);
}

}  // namespace tool
