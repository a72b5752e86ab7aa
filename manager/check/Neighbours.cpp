#include <algorithm>
#include <array>
#include <cmath>

#include "base/Angles.h"
#include "manager/check/Channels.h"

/// Rules on channels that lie side by side, and on the whole screen.
namespace XMLConfig::detail {
namespace {

std::wstring percent(double value) { return shortNumber(value, 0) + L" %"; }
std::wstring percentOf(double share) { return percent(100.0 * share); }

bool isPossible(double blend) { return blend >= 0.0 && blend <= 100.0; }

// What overlaps an edge of a channel.

struct Neighbour {
    std::size_t channel;
    const Overlap* overlap;
};

/// The neighbours at each edge of each channel.
class Neighbours {
public:
    explicit Neighbours(const Layout& layout) : m_atEdges(layout.channels.size()), m_isCovered(layout.channels.size()) {
        for (const ChannelPair& pair : layout.pairs) {
            add(pair.first, pair.second, pair.ofFirst);
            add(pair.second, pair.first, pair.ofSecond);
        }
    }
    [[nodiscard]] const std::vector<Neighbour>& at(std::size_t channel, ImageEdge edge) const {
        return m_atEdges[channel][static_cast<std::size_t>(edge)];
    }
    /// Whether another channel shows nearly all that this one shows.
    [[nodiscard]] bool isCovered(std::size_t channel) const { return m_isCovered[channel]; }

private:
    void add(std::size_t channel, std::size_t other, const Overlap& overlap) {
        if (overlap.isWhole()) m_isCovered[channel] = true;
        else m_atEdges[channel][static_cast<std::size_t>(overlap.edge)].push_back({other, &overlap});
    }

    std::vector<std::array<std::vector<Neighbour>, 4>> m_atEdges;
    std::vector<bool> m_isCovered;
};

// Blends.

ImageEdge opposite(ImageEdge edge) {
    switch (edge) {
        case ImageEdge::Left:
            return ImageEdge::Right;
        case ImageEdge::Right:
            return ImageEdge::Left;
        case ImageEdge::Top:
            return ImageEdge::Bottom;
        case ImageEdge::Bottom:
            break;
    }
    return ImageEdge::Top;
}

/// None where the blend would take more than the one at the opposite edge leaves.
Mend middleOf(const Place& place, const Neighbour& neighbour, double oppositeBlend) {
    const double middle = 100.0 * neighbour.overlap->middle;
    constexpr double rounding = 0.05;  // of one decimal
    if (middle + rounding + std::max(oppositeBlend, 0.0) > 100.0) return {};
    return mendBy(MendSafety::Asked, setCommand(place, shortNumber(middle, 1)));
}

void checkBlend(ChannelCheck& check, const Neighbours& neighbours, std::size_t index, ImageEdge edge) {
    const CheckedSection& projector = check.projector(index);
    const double blend = check.layout.channels[index].blends.at(edge);
    if (!isPossible(blend)) return;
    const double oppositeBlend = check.layout.channels[index].blends.at(opposite(edge));
    const auto place = [&] { return placeOf(projector, namesOf(edge).blend); };
    const std::vector<Neighbour>& there = neighbours.at(index, edge);
    if (there.empty()) {
        if (blend > 0.0 && !neighbours.isCovered(index))
            check.findings
                .add(L"XC313", Severity::Warning, place(),
                     percent(blend) + L" blend at the " + lowerAscii(namesOf(edge).name) +
                         L" edge, where no channel overlaps")
                .mend = mendBy(MendSafety::Asked, setCommand(place(), L"0"));
        return;
    }
    const auto isLess = [](const Neighbour& a, const Neighbour& b) { return a.overlap->most < b.overlap->most; };
    const Neighbour& widest = *std::max_element(there.begin(), there.end(), isLess);
    const auto takes = [&] { return L"blend takes " + percent(blend) + L", but "; };
    if (isBlendTooWide(blend, widest.overlap->most))
        check.findings
            .add(L"XC311", Severity::Warning, place(),
                 takes() + check.title(widest.channel) + L" overlaps " + percentOf(widest.overlap->most) + L" at most")
            .mend = middleOf(place(), widest, oppositeBlend);
    for (const Neighbour& neighbour : there) {
        if (!isBlendTooNarrow(blend, *neighbour.overlap)) continue;
        check.findings
            .add(L"XC312", Severity::Warning, place(),
                 takes() + check.title(neighbour.channel) + L" overlaps " + percentOf(neighbour.overlap->least) +
                     L" at least")
            .mend = middleOf(place(), neighbour, oppositeBlend);
        break;
    }
}

void checkMirror(ChannelCheck& check, const Neighbours& neighbours, std::size_t index, ImageEdge edge) {
    if (!check.layout.hasBlackLevel || neighbours.isCovered(index)) return;
    const BlackLevelBlending::PondOfMirrors& ponds = check.layout.channels[index].ponds;
    const auto flag = edge == ImageEdge::Left    ? ponds.Left
                      : edge == ImageEdge::Right ? ponds.Right
                      : edge == ImageEdge::Top   ? ponds.Top
                                                 : ponds.Bottom;
    const std::vector<Neighbour>& there = neighbours.at(index, edge);
    if ((flag != 0) == !there.empty()) return;
    const Place place = placeOf(check.projector(index), namesOf(edge).mirror);
    check.findings
        .add(L"XC319", Severity::Note, place,
             std::wstring(namesOf(edge).name) + L" is " + std::to_wstring(flag) + L", but " +
                 (there.empty() ? L"no channel overlaps" : check.title(there[0].channel) + L" overlaps") + L" that edge")
        .mend = mendBy(MendSafety::Asked, setCommand(place, flag != 0 ? L"0" : L"1"));
}

// Pairs.

void checkSameArea(ChannelCheck& check, const ChannelPair& pair) {
    if (check.layout.stackHeight >= 2 || !pair.ofFirst.isWhole() || !pair.ofSecond.isWhole()) return;
    check.findings
        .add(L"XC308", Severity::Warning, placeOf(check.projector(pair.second)),
             L"shows the same area as " + check.title(pair.first) + L" (" +
                 percentOf(std::min(pair.ofFirst.area, pair.ofSecond.area)) + L")")
        .places = {otherPlace(placeOf(check.projector(pair.first)))};
}

bool isWanted(const Overlap& overlap, double wanted) {
    return 100.0 * wanted >= 100.0 * overlap.least - overlapTolerance &&
           100.0 * wanted <= 100.0 * overlap.most + overlapTolerance;
}

/// Whether the channel is rolled so that the edges of its image which are named left and right lie below and above.
bool isOnItsSide(const Channel& channel) { return std::abs(std::sin(channel.roll)) > std::abs(std::cos(channel.roll)); }

/// True when it has added a finding.
bool checkWanted(ChannelCheck& check, std::size_t channel, std::size_t other, const Overlap& overlap) {
    const bool isAtASide = overlap.edge == ImageEdge::Left || overlap.edge == ImageEdge::Right;
    const bool isBeside = isAtASide != isOnItsSide(check.layout.channels[channel]);
    const double wanted = isBeside ? check.layout.wantedAcross : check.layout.wantedUpright;
    if (wanted <= 0.0 || !overlap.isFull || overlap.isWhole() || isWanted(overlap, wanted)) return false;
    check.findings.add(L"XC315", Severity::Note, placeOf(check.projector(channel)),
                       L"overlap with " + check.title(other) + L" is " + shortNumber(100.0 * overlap.least, 0) + L" to " +
                           percentOf(overlap.most) + L", wanted " + percentOf(wanted));
    return true;
}

// Rows.

void checkGaps(ChannelCheck& check, const ChannelRow& row) {
    for (const ChannelGap& gap : row.gaps)
        check.findings
            .add(L"XC301", Severity::Warning, placeOf(check.projector(gap.right), L"Channel_Extents|Heading|Yaw"),
                 check.angle(gap.width) + L" gap between " + check.title(gap.left) + L" and " + check.title(gap.right))
            .places = {otherPlace(placeOf(check.projector(gap.left), L"Channel_Extents|Heading|Yaw"))};
}

/// Whether both look the same way around, so that none is left of the other.
bool isOneHeading(const Channel& one, const Channel& other) {
    constexpr double rounding = 1e-9;
    return std::abs(std::remainder(one.yaw - other.yaw, fullTurn)) < rounding;
}

void checkAreas(ChannelCheck& check, std::size_t before, std::size_t index) {
    constexpr double least = 1e-6;
    const EdgeValues& left = check.layout.channels[before].screenArea;
    const EdgeValues& right = check.layout.channels[index].screenArea;
    if (left.left == unknownArea || right.left == unknownArea) return;
    if (!isPartOfScreen(left.left, left.right) || !isPartOfScreen(right.left, right.right)) return;  // has a finding already
    const Place place = placeOf(check.projector(index), L"Screen_Area_Left");
    if (right.left < left.left && !isOneHeading(check.layout.channels[before], check.layout.channels[index]))
        check.findings.add(L"XC317", Severity::Warning, place,
                           L"lies left of " + check.title(before) + L", its channel right of it");
    else if (left.right != unknownArea && right.left > left.right + least)
        check.findings.add(
            L"XC318", Severity::Warning, place,
            L"starts at " + shortNumber(right.left) + L", " + check.title(before) + L" ends at " + shortNumber(left.right));
}

// Coverage.

/// Whole degrees, as the screen is looked at every half of one; finer for what is smaller.
std::wstring spanText(const ChannelCheck& check, double from, double to) {
    constexpr double nearlyOneDegree = 0.01745;  // so that whole degrees stay whole, however they were rounded
    const int decimals = to - from < nearlyOneDegree ? 1 : 0;
    return check.findings.units.angle(from, decimals) + L" to " + check.findings.units.angle(to, decimals);
}

std::wstring uncoveredText(const ChannelCheck& check, const Coverage& coverage) {
    std::vector<std::wstring> bands;
    for (const auto& band : coverage.uncoveredBands) bands.push_back(spanText(check, band.from, band.to));
    std::wstring text = bands.empty() ? L"" : L"; all of " + joined(bands, L" and ") + L" up";
    for (const UncoveredPart& part : coverage.uncovered) {
        if (!part.isHole) continue;
        text += L"; a hole at " + spanText(check, part.theta.from, part.theta.to) + L" around, " +
                spanText(check, part.phi.from, part.phi.to) + L" up";
        break;
    }
    return text;
}

void checkOffScreen(ChannelCheck& check, std::size_t index) {
    const Channel& channel = check.layout.channels[index];
    if (!channel.offScreen || *channel.offScreen <= 0.5) return;
    check.findings.add(L"XC322", Severity::Warning, placeOf(check.projector(index)),
                       percentOf(*channel.offScreen) + L" of " + check.title(index) + L" is beside the screen");
}

}  // namespace

void checkBlendsAlone(ChannelCheck& check, const CheckedSection& projector) {
    constexpr double unknown = -1.0;
    const EdgeValues& blends = check.channel(projector).blends;
    bool isPossibleEverywhere = true;
    for (const ImageEdge edge : imageEdges) {
        const double blend = blends.at(edge);
        if (blend == unknown || isPossible(blend) || !std::isfinite(blend)) continue;  // XC113 is about that
        isPossibleEverywhere = false;
        check.findings.add(L"XC314", Severity::Error, placeOf(projector, namesOf(edge).blend),
                           numberBeyond(blend, {0.0, 100.0}) + L" % is no part of the image");
    }
    if (!isPossibleEverywhere) return;
    const auto checkTogether = [&](ImageEdge first, ImageEdge second) {
        const double together = std::max(blends.at(first), 0.0) + std::max(blends.at(second), 0.0);
        constexpr double rounding = 1e-9;
        if (together > 100.0 + rounding)
            check.findings.add(L"XC314", Severity::Error, placeOf(projector, namesOf(first).blend),
                               std::wstring(namesOf(first).name) + L" and " + namesOf(second).name + L" blends take " +
                                   numberBeyond(together, {100.0}, 0) + L" % together");
    };
    checkTogether(ImageEdge::Left, ImageEdge::Right);
    checkTogether(ImageEdge::Top, ImageEdge::Bottom);
}

void checkRows(ChannelCheck& check) {
    for (const ChannelRow& row : check.layout.rows) {
        checkGaps(check, row);
        for (std::size_t i = 1; i < row.channels.size(); ++i) checkAreas(check, row.channels[i - 1], row.channels[i]);
    }
}

void checkPairs(ChannelCheck& check) {
    for (const ChannelPair& pair : check.layout.pairs) {
        checkSameArea(check, pair);
        if (!checkWanted(check, pair.first, pair.second, pair.ofFirst))
            checkWanted(check, pair.second, pair.first, pair.ofSecond);
    }
}

void checkBlends(ChannelCheck& check) {
    const Neighbours neighbours(check.layout);
    for (std::size_t index = 0; index < check.layout.channels.size(); ++index) {
        if (check.layout.channels[index].isCrowded) continue;  // not all its neighbours are known
        for (const ImageEdge edge : imageEdges) {
            checkBlend(check, neighbours, index, edge);
            checkMirror(check, neighbours, index, edge);
        }
    }
}

void checkCoverage(ChannelCheck& check) {
    for (std::size_t index = 0; index < check.layout.channels.size(); ++index) checkOffScreen(check, index);
    if (!check.layout.coverage || check.layout.coverage->inNone <= 0.01) return;
    const Coverage& coverage = *check.layout.coverage;
    const auto isHole = [](const UncoveredPart& part) { return part.isHole; };
    const bool hasHole = std::any_of(coverage.uncovered.begin(), coverage.uncovered.end(), isHole);
    check.findings.add(L"XC321", hasHole ? Severity::Warning : Severity::Note,
                       placeOf(check.findings.read.section(L"Screen")),
                       percentOf(coverage.inNone) + L" of the screen is in no channel" + uncoveredText(check, coverage));
}

}  // namespace XMLConfig::detail
