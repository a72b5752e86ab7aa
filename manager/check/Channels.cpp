#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "base/Setting.h"
#include "manager/check/Channels.h"
#include "manager/layout/Parts.h"
#include "manager/layout/Vector.h"
#include "platform/Numbers.h"

/// Rules on the channels: each by itself, and their places on the screen.
namespace XMLConfig::detail {
namespace {

constexpr int allDigits = 12;  // as many decimals of degrees as are stored
std::wstring degreesText(double radians) { return shortNumber(radians * 180.0 / pi, allDigits) + L"deg"; }

// Rules that look at one channel alone.

/// What an edge is set to that takes the other one's number. That may be stored as no number, or nowhere.
std::wstring numberOf(const CheckedDocument& read, const CheckedSection& projector, const std::wstring& key) {
    const std::wstring& stored = projector.stored(key);
    return isOfType(stored, SettingType::Double) ? stored : read.text(projector, key);
}

/// Swaps two values that stand the wrong way round.
Mend swapped(const CheckedDocument& read, const CheckedSection& projector, const std::wstring& low,
             const std::wstring& high) {
    return {MendSafety::Asked,
            {setCommand(placeOf(projector, low), numberOf(read, projector, high)),
             setCommand(placeOf(projector, high), numberOf(read, projector, low))}};
}

/// False for what rules of their own find: what is no number, and what looks like degrees.
bool isAngle(double radians) { return std::abs(radians) <= fullTurn; }

bool areAngles(const EdgeValues& edges, ImageEdge low, ImageEdge high) {
    return isAngle(edges.at(low)) && isAngle(edges.at(high));
}

void checkEdges(ChannelCheck& check, const CheckedSection& projector, ImageEdge low, ImageEdge high) {
    const EdgeValues& field = check.channel(projector).edges;
    if (field.at(low) < field.at(high) || !areAngles(field, low, high)) return;
    const bool isAcross = low == ImageEdge::Left;
    Finding& finding = check.findings.add(L"XC303", Severity::Error, placeOf(projector, namesOf(low).field),
                                          std::wstring(isAcross ? L"Left (" : L"Bottom (") + check.angle(field.at(low)) +
                                              (isAcross ? L") is not left of Right (" : L") is not below Top (") +
                                              check.angle(field.at(high)) + L")");
    if (field.at(low) > field.at(high))
        finding.mend = swapped(check.findings.read, projector, namesOf(low).field, namesOf(high).field);
}

void checkFieldWidth(ChannelCheck& check, const CheckedSection& projector) {
    const EdgeValues& field = check.channel(projector).edges;
    const auto width = [&](ImageEdge edge) { return isAngle(field.at(edge)) ? std::abs(field.at(edge)) : 0.0; };
    const auto isNearer = [&](ImageEdge a, ImageEdge b) { return width(a) < width(b); };
    const ImageEdge furthest = *std::max_element(std::begin(imageEdges), std::end(imageEdges), isNearer);
    if (width(furthest) < widestEdge) return;
    check.findings.add(L"XC304", Severity::Warning, placeOf(projector, namesOf(furthest).field),
                       L"an edge " + check.angle(width(furthest)) + L" off the line of sight");
}

void checkField(ChannelCheck& check, const CheckedSection& projector) {
    const EdgeValues& field = check.channel(projector).edges;
    const auto isZero = [&](ImageEdge edge) { return field.at(edge) == 0.0; };
    if (std::all_of(std::begin(imageEdges), std::end(imageEdges), isZero)) {
        check.findings.add(L"XC309", Severity::Error, placeOf(projector, L"Channel_Extents"), L"has no channel yet");
        return;
    }
    checkEdges(check, projector, ImageEdge::Left, ImageEdge::Right);
    checkEdges(check, projector, ImageEdge::Bottom, ImageEdge::Top);
    checkFieldWidth(check, projector);
}

/// Whatever is stored in radians, in any section.
void checkDegrees(Findings& findings, const CheckedSection& section) {
    for (const CheckedItem& item : section.items) {
        if (item.setting == nullptr || item.setting->unit != Unit::Radians || item.hiddenBy || item.holdsElements) continue;
        for (const double number : item.content.numbers()) {
            if (!(std::abs(number) > fullTurn) || !std::isfinite(number)) continue;
            const Place place = placeOf(section, item);
            Finding& finding =
                findings.add(L"XC305", Severity::Error, place,
                             shortNumber(number) + L" radians are " + shortNumber(std::abs(number) / fullTurn, 1) +
                                 L" turns; it looks like degrees");
            const bool isEdge = item.key.find(L"FOV") != std::wstring::npos;
            const double mostDegrees = isEdge ? 89.0 : 360.0;
            if (item.setting->type == SettingType::Double && std::abs(number) <= mostDegrees)
                finding.mend = mendBy(MendSafety::Asked, setCommand(place, shortNumber(number, allDigits) + L"deg"));
            break;
        }
    }
}

void checkHeading(ChannelCheck& check, const CheckedSection& projector) {
    const Channel& channel = check.channel(projector);
    constexpr double rounding = 1e-9;
    const auto isBetween = [](double angle, double least) {
        return std::abs(angle) > least + rounding && std::abs(angle) <= fullTurn;
    };
    if (isBetween(channel.yaw, pi)) {
        const Place place = placeOf(projector, L"Channel_Extents|Heading|Yaw");
        const double better = channel.yaw - (channel.yaw > 0.0 ? fullTurn : -fullTurn);
        check.findings
            .add(L"XC306", Severity::Note, place,
                 check.findings.units.angleBeyond(channel.yaw, pi) + L" is more than half a turn")
            .mend = mendBy(MendSafety::Safe, setCommand(place, degreesText(better)));
    }
    if (isBetween(channel.pitch, pi / 2.0))
        check.findings.add(L"XC306", Severity::Warning, placeOf(projector, L"Channel_Extents|Heading|Pitch"),
                           check.findings.units.angleBeyond(channel.pitch, pi / 2.0) + L" is more than a quarter turn");
}

void checkSight(ChannelCheck& check, const CheckedSection& projector) {
    const EdgeValues& field = check.channel(projector).edges;
    const auto isBeside = [&](ImageEdge low, ImageEdge high) {
        const bool isSound = field.at(low) < field.at(high) && areAngles(field, low, high);
        return isSound && (field.at(low) > 0.0 || field.at(high) < 0.0);
    };
    const bool isAcross = isBeside(ImageEdge::Left, ImageEdge::Right);
    if (!isAcross && !isBeside(ImageEdge::Bottom, ImageEdge::Top)) return;
    check.findings.add(L"XC307", Severity::Note,
                       placeOf(projector, isAcross ? L"Channel_Extents|HFOV" : L"Channel_Extents|VFOV"),
                       L"does not hold its own line of sight");
}

void checkArea(ChannelCheck& check, const CheckedSection& projector, const wchar_t* lowKey, const wchar_t* highKey) {
    const double low = check.findings.read.number(projector, lowKey);
    const double high = check.findings.read.number(projector, highKey);
    if (isPartOfScreen(low, high) || !std::isfinite(low) || !std::isfinite(high)) return;  // XC113 is about the latter
    const auto shown = [](double value) {
        return value == unknownArea ? std::wstring(L"?") : numberBeyond(value, {0.0, 1.0});
    };
    Finding& finding = check.findings.add(L"XC316", Severity::Warning, placeOf(projector, lowKey),
                                          shown(low) + L" to " + shown(high) + L" is no part of the screen");
    if (low > high && high >= 0.0 && low <= 1.0) finding.mend = swapped(check.findings.read, projector, lowKey, highKey);
}

// Eye points.

std::wstring storedPoint(const Point_3Dim<double>& point) {
    return formatScientific(point.x) + L", " + formatScientific(point.y) + L", " + formatScientific(point.z);
}

using Channels = std::vector<const Channel*>;

/// Without those of projectors that have no channel yet, nor an eye point of their own, and without eye points that are no
/// numbers, which another rule finds.
Channels seenChannels(const ChannelCheck& check) {
    Channels channels;
    for (const Channel& channel : check.layout.channels) {
        if (!isFinite(channel.eyePoint)) continue;
        const bool isThere = channel.state != ChannelState::Missing;
        if (isThere || check.findings.read.projector(channel.id)->holds(L"Channel_Extents|Eye_Point"))
            channels.push_back(&channel);
    }
    return channels;
}

void checkEyePoints(ChannelCheck& check) {
    const Channels channels = seenChannels(check);
    const Point_3Dim<double>& target = check.layout.targetEyePoint;
    if (channels.empty() || !isFinite(target)) return;
    const Point_3Dim<double>& first = channels[0]->eyePoint;
    const ShownUnits& units = check.findings.units;
    const auto isWithFirst = [&](const Channel* channel) { return isOneEyePoint(channel->eyePoint, first); };
    if (std::all_of(channels.begin(), channels.end(), isWithFirst)) {
        if (isOneEyePoint(first, target)) return;
        const Place place = placeOf(check.findings, L"TargetLocator", L"Eye_Point");
        check.findings
            .add(L"XC310", Severity::Note, place,
                 L"channels are seen from " + units.point(first) + L", the target from " + units.point(target))
            .mend = mendBy(MendSafety::Asked, setCommand(place, storedPoint(first)));
        return;
    }
    const auto isOffTarget = [&](const Channel* channel) { return !isOneEyePoint(channel->eyePoint, target); };
    const bool anyIsOff = std::any_of(channels.begin(), channels.end(), isOffTarget);
    for (const Channel* const channel : channels) {
        if (anyIsOff ? !isOffTarget(channel) : isWithFirst(channel)) continue;  // else they are off one another
        const Place place = placeOf(*check.findings.read.projector(channel->id), L"Channel_Extents|Eye_Point");
        check.findings
            .add(L"XC310", Severity::Note, place,
                 L"is seen from " + units.point(channel->eyePoint) + L", the target from " + units.point(target))
            .mend = mendBy(MendSafety::Asked, setCommand(place, storedPoint(target)));
    }
}

// The whole.

void addNotLookedAt(ChannelCheck& check) {
    std::vector<const CheckedSection*> broken;
    for (const CheckedSection* projector : check.findings.read.projectors())
        if (check.channel(*projector).state != ChannelState::Usable) broken.push_back(projector);
    if (broken.empty()) return;
    const std::wstring others = broken.size() == 1 ? L" is" : L" and " + counted(broken.size() - 1, L"other") + L" are";
    check.findings.add(
        L"XC300", Severity::Note, placeOf(*broken[0], L"Channel_Extents"),
        L"neighbours, blends and coverage are not checked before " + broken[0]->title() + others + L" in order");
}

}  // namespace

EdgeNames namesOf(ImageEdge edge) {
    switch (edge) {
        case ImageEdge::Left:
            return {L"Left", L"Channel_Extents|HFOV|Left", L"Blend_Left", L"Pond_Of_Mirrors|Left"};
        case ImageEdge::Right:
            return {L"Right", L"Channel_Extents|HFOV|Right", L"Blend_Right", L"Pond_Of_Mirrors|Right"};
        case ImageEdge::Top:
            return {L"Top", L"Channel_Extents|VFOV|Top", L"Blend_Top", L"Pond_Of_Mirrors|Top"};
        case ImageEdge::Bottom:
            break;
    }
    return {L"Bottom", L"Channel_Extents|VFOV|Bottom", L"Blend_Bottom", L"Pond_Of_Mirrors|Bottom"};
}

bool isPartOfScreen(double low, double high) {
    const auto isInside = [](double value) { return value == unknownArea || (value >= 0.0 && value <= 1.0); };
    const bool areBothKnown = low != unknownArea && high != unknownArea;
    return isInside(low) && isInside(high) && (!areBothKnown || low < high);
}

ChannelCheck::ChannelCheck(Findings& all) : findings(all), layout(layoutOf(all)) {
    for (std::size_t i = 0; i < layout.channels.size(); ++i) m_indices.emplace(layout.channels[i].id, i);
}

const Channel& ChannelCheck::channel(const CheckedSection& projector) const {
    return layout.channels[m_indices.at(projector.id)];
}

const CheckedSection& ChannelCheck::projector(std::size_t channel) const { return *findings.read.projectors()[channel]; }

std::wstring ChannelCheck::title(std::size_t channel) const { return projector(channel).title(); }

void checkChannels(Findings& findings) {
    ChannelCheck check(findings);
    for (const CheckedSection& section : findings.read.sections()) checkDegrees(findings, section);
    for (const CheckedSection* projector : findings.read.projectors()) {
        checkField(check, *projector);
        checkHeading(check, *projector);
        checkSight(check, *projector);
        checkArea(check, *projector, L"Screen_Area_Left", L"Screen_Area_Right");
        checkArea(check, *projector, L"Screen_Area_Top", L"Screen_Area_Bottom");
        checkBlendsAlone(check, *projector);
    }
    checkEyePoints(check);
    if (!check.layout.isComplete()) return addNotLookedAt(check);
    checkRows(check);
    checkPairs(check);
    checkBlends(check);
    checkCoverage(check);
}

}  // namespace XMLConfig::detail
