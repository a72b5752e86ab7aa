#include <cmath>
#include <map>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "manager/check/Findings.h"
#include "store/Tokens.h"

/// Rules on the picture of a projector: resolution, colour, and what it shares with the others.
namespace XMLConfig::detail {
namespace {

struct Size {
    double width = 0.0;
    double height = 0.0;
};

std::wstring textOf(const Size& size) { return shortNumber(size.width) + L" x " + shortNumber(size.height); }

Size imageOf(const Findings& findings, const CheckedSection& projector) {
    return {findings.read.number(projector, L"ImageResolution_X"), findings.read.number(projector, L"ImageResolution_Y")};
}

Size panelOf(const Findings& findings, const CheckedSection& projector) {
    return {findings.read.number(projector, L"Resolution_X"), findings.read.number(projector, L"Resolution_Y")};
}

void checkScaling(Findings& findings, const CheckedSection& projector) {
    const Size image = imageOf(findings, projector);
    const Size panel = panelOf(findings, projector);
    const int mode = findings.read.integer(projector, L"InputImageScaling_Mode");
    const auto add = [&](const wchar_t* rule, Severity severity, const std::wstring& fault) {
        findings.add(rule, severity, placeOf(projector, L"Resolution_X"), L"image of " + textOf(image) + L" is " + fault);
    };
    if (mode == 1 && (image.width > panel.width || image.height > panel.height))
        add(L"XC401", Severity::Warning, L"not scaled to the panel of " + textOf(panel) + L" and is cut");
    if (mode != 0 || image.width <= 0.0 || image.height <= 0.0 || panel.width <= 0.0 || panel.height <= 0.0) return;
    constexpr double tolerance = 0.02 + 1e-9;  // and the rounding of the quotient
    if (std::abs(image.width * panel.height / (image.height * panel.width) - 1.0) > tolerance)
        add(L"XC402", Severity::Note, L"stretched to the panel of " + textOf(panel));
}

void checkUpright(Findings& findings, const CheckedSection& projector) {
    const double left = findings.read.number(projector, L"Channel_Extents|HFOV|Left");
    const double right = findings.read.number(projector, L"Channel_Extents|HFOV|Right");
    const double bottom = findings.read.number(projector, L"Channel_Extents|VFOV|Bottom");
    const double top = findings.read.number(projector, L"Channel_Extents|VFOV|Top");
    constexpr double mostOff = 1.55;  // 89 degrees: wider channels have rules of their own
    for (const double edge : {left, right, bottom, top})
        if (!(std::abs(edge) < mostOff)) return;
    const double width = std::tan(right) - std::tan(left);
    const double height = std::tan(top) - std::tan(bottom);
    if (width <= 0.0 || height <= 0.0) return;
    const Size image = imageOf(findings, projector);
    const int mode = findings.read.integer(projector, L"Portrait_Mode");
    const auto add = [&](const wchar_t* form) {
        const ShownUnits& units = findings.units;
        findings.add(L"XC403", Severity::Note, placeOf(projector, L"Portrait_Mode"),
                     L"is " + std::to_wstring(mode) + L", but the channel is " + form + L" (" + units.angle(right - left) +
                         L" x " + units.angle(top - bottom) + L")");
    };
    constexpr double clearly = 1.05;
    if (mode == 0 && image.width > image.height && height > clearly * width) add(L"upright");
    if (mode != 0 && width > clearly * height) add(L"wide");
}

void checkDesigned(Findings& findings, const CheckedSection& projector) {
    if (!projector.holds(L"Designed|Frustum|ResolutionX") || !projector.holds(L"Designed|Frustum|ResolutionY")) return;
    const Size designed = {findings.read.number(projector, L"Designed|Frustum|ResolutionX"),
                           findings.read.number(projector, L"Designed|Frustum|ResolutionY")};
    const Size panel = panelOf(findings, projector);
    if (designed.width == 0.0 && designed.height == 0.0) return;  // not designed
    if (designed.width != panel.width || designed.height != panel.height)
        findings.add(L"XC405", Severity::Note, placeOf(projector, L"Designed|Frustum"),
                     L"was designed for " + textOf(designed));
}

void checkLamp(Findings& findings, const CheckedSection& projector) {
    if (!findings.read.flag(L"Color", L"UseBrightnessAdjustViaLampPower")) return;
    const double cap = 100.0 * findings.read.number(L"Color", L"UserLampPowerCap");
    const double power = findings.read.number(projector, L"Lamp_Power");
    constexpr double least = 1e-6;
    if (power > cap + least)
        findings.add(L"XC407", Severity::Note, placeOf(projector, L"Lamp_Power"),
                     shortNumber(power) + L" % is above the cap of " + shortNumber(cap) + L" %");
}

void checkBlobs(Findings& findings, const CheckedSection& projector) {
    const std::vector<double> box = findings.read.numbers(projector, L"Box_Size");
    if (box.size() != 2) return;
    const double spacing = findings.read.number(projector, L"Box_Spacing");
    const Size image = imageOf(findings, projector);
    const auto add = [&](const std::wstring& fault) {
        findings.add(L"XC411", Severity::Warning, placeOf(projector, L"Box_Size"), fault);
    };
    constexpr double least = 4.0;
    if (box[0] < 1.0 || box[1] < 1.0)
        add(L"a blob of " + shortNumber(box[0]) + L" x " + shortNumber(box[1]) + L" has no size");
    else if (image.width < least * box[0] * spacing) add(L"fewer than 4 blobs fit across the image");
    else if (image.height < least * box[1] * spacing) add(L"fewer than 4 blobs fit up the image");
}

void checkRepeats(Findings& findings, const CheckedSection& projector) {
    for (const CheckedItem& item : projector.items) {
        if (item.setting == nullptr || item.setting->inheritsFrom.empty() || item.hiddenBy) continue;
        const CheckedSection& parent = findings.read.section(item.setting->inheritsFrom);
        const CheckedItem* const above = parent.find(item.key);
        if (above == nullptr) continue;
        const ReadValue* const own = valueOf(item);
        const ReadValue* const inherited = valueOf(*above);
        if (own == nullptr || inherited == nullptr || own->text() != inherited->text()) continue;
        const Place place = placeOf(projector, item);
        Finding& finding =
            findings.add(L"XC409", Severity::Note, place,
                         L"says again what it would inherit (" + shortText(item.text, item.setting->type) + L")");
        finding.places = {otherPlace(placeOf(parent, *above), above->text)};
        if (!projector.holdsTwice(item.key)) finding.mend = mendBy(MendSafety::Safe, unsetCommand(place));
    }
}

// The one that differs from all others.

constexpr const wchar_t* comparedKeys[] = {
    L"Gamma",        L"Lamp_Mode",         L"Lamp_Power",        L"Colour_User", L"Resolution_X", L"Resolution_Y",
    L"Fit_Order",    L"ImageResolution_X", L"ImageResolution_Y", L"Box_Size",    L"Box_Spacing",  L"InputImageScaling_Mode",
    L"Portrait_Mode"};

/// Without its own text the projector has what it inherits, which need not be what the others have.
std::vector<std::vector<std::wstring>> oddCommands(const Findings& findings, const CheckedSection& projector,
                                                   const Setting& setting, const std::wstring& usual) {
    const Place place = placeOf(projector, setting.key);
    const bool wouldInherit = projector.holds(setting.key) && !setting.inheritsFrom.empty() &&
                              findings.read.text(setting.inheritsFrom, setting.key) == usual;
    return {wouldInherit ? unsetCommand(place) : setCommand(place, usual)};
}

std::wstring withoutNegativeZero(const std::wstring& text) {
    const bool isZero = text.size() > 1 && text[0] == L'-' && text.find_first_not_of(L"-0.e+") == std::wstring::npos;
    return isZero ? text.substr(1) : text;
}

void checkOddOne(Findings& findings, const std::wstring& key) {
    std::map<std::wstring, std::vector<const CheckedSection*>> byValue;
    const std::wstring* before = nullptr;  // projectors that say the same one after the other share one text
    std::vector<const CheckedSection*>* group = nullptr;
    for (const CheckedSection* projector : findings.read.projectors()) {
        const std::wstring& text = findings.read.text(*projector, key);
        if (&text != before) group = &byValue[withoutNegativeZero(text)];
        before = &text;
        group->push_back(projector);
    }
    if (byValue.size() != 2) return;
    auto odd = byValue.begin();
    auto usual = std::next(odd);
    if (odd->second.size() != 1) std::swap(odd, usual);
    if (odd->second.size() != 1) return;
    const CheckedSection& projector = *odd->second[0];
    const Setting& setting = *knownSetting({L"Projector", L"", L"", L"", key});
    const Place place = placeOf(projector, key);
    const auto shown = [&](const std::wstring& text) {
        return text.empty() ? L"\"\"" : findings.units.value(text, setting);
    };
    findings
        .add(L"XC408", Severity::Note, place,
             shown(odd->first) + L", the other " + std::to_wstring(usual->second.size()) + L" projectors have " +
                 shown(usual->first))
        .mend.commands = oddCommands(findings, projector, setting, usual->first);
}

}  // namespace

void checkPicture(Findings& findings) {
    constexpr std::size_t fewest = 4;
    for (const CheckedSection* projector : findings.read.projectors()) {
        checkScaling(findings, *projector);
        checkUpright(findings, *projector);
        checkDesigned(findings, *projector);
        checkLamp(findings, *projector);
        checkRepeats(findings, *projector);
        checkBlobs(findings, *projector);
    }
    if (findings.read.projectors().size() < fewest) return;
    for (const wchar_t* const key : comparedKeys) checkOddOne(findings, key);
}

}  // namespace XMLConfig::detail
