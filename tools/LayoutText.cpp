#include "tools/LayoutText.h"

#include <algorithm>

#include "tools/Colour.h"
#include "tools/Printable.h"
#include "tools/TableText.h"

namespace tool {
namespace {

using XMLConfig::Channel;
using XMLConfig::ChannelState;
using XMLConfig::EdgeValues;
using XMLConfig::ImageEdge;
using XMLConfig::Layout;
using XMLConfig::Overlap;
using XMLConfig::detail::joined;
using Rows = std::vector<std::vector<std::wstring>>;

std::wstring titled(const std::wstring& title, const std::wstring& text) {
    constexpr std::size_t width = 12;
    return title + std::wstring(width - title.size(), L' ') + printable(text) + L"\n";
}

std::wstring eyeText(const Layout& layout, const Units& units) {
    if (layout.channels.empty()) return L"";
    const Point_3Dim<double>& eye = layout.channels.front().eyePoint;
    const auto isThere = [&](const Channel& channel) { return XMLConfig::isOneEyePoint(channel.eyePoint, eye); };
    if (!std::all_of(layout.channels.begin(), layout.channels.end(), isThere)) return L", seen from different points";
    return L", seen from " + units.length(eye.x) + L", " + units.length(eye.y) + L", " + units.length(eye.z) + L" " +
           units.lengthUnit();
}

std::wstring cameraNames(const Layout& layout, const Channel& channel) {
    std::vector<std::wstring> names;
    for (const std::wstring& id : channel.cameras) {
        const auto isIt = [&](const XMLConfig::CameraPlace& camera) { return camera.id == id && !camera.name.empty(); };
        const auto found = std::find_if(layout.cameras.begin(), layout.cameras.end(), isIt);
        names.push_back(found == layout.cameras.end() ? id : found->name);
    }
    return joined(names, L", ");
}

std::wstring blendText(double percent) { return percent < 0.0 ? L"?" : numberText(percent, 2); }

std::wstring channelsText(const Layout& layout, const Units& units) {
    std::wstring text = titled(L"Channels", std::to_wstring(layout.channels.size()) + eyeText(layout, units));
    if (layout.channels.empty()) return text;
    Rows rows = {{L"#", L"Name", L"Heading", L"Field", L"Yaw", L"Pitch", L"Blends l/r/t/b", L"Cameras"}};
    for (std::size_t i = 0; i < layout.channels.size(); ++i) {
        const Channel& channel = layout.channels[i];
        const bool isUsable = channel.state == ChannelState::Usable;
        rows.push_back({std::to_wstring(i + 1), nameOf(channel), headingText(channel, units),
                        fieldText(channel.edges, units), isUsable ? spanText(channel.yawSpan, units) : L"not usable",
                        isUsable ? spanText(channel.pitchSpan, units) : L"", blendsText(channel.blends),
                        cameraNames(layout, channel)});
    }
    return text + tableText(rows, L"  ");
}

std::wstring faultsText(const Layout& layout, const Units& units, bool isColoured) {
    Rows rows;
    for (const Channel& channel : layout.channels)
        if (channel.state != ChannelState::Usable)
            rows.push_back({nameOf(channel), coloured(faultOf(channel, units), Tone::Bad, isColoured)});
    if (rows.empty()) return L"";
    return titled(L"Not usable", std::to_wstring(rows.size())) + tableText(rows, L"  ", 1);
}

/// The most that any channel overlaps on each edge of each channel: a blend is for all neighbours there.
class MostOnEdge {
public:
    explicit MostOnEdge(const Layout& layout) : m_most(layout.channels.size()) {
        for (const XMLConfig::ChannelPair& pair : layout.pairs) {
            take(pair.first, pair.ofFirst);
            take(pair.second, pair.ofSecond);
        }
    }
    [[nodiscard]] double of(std::size_t channel, ImageEdge edge) const { return m_most[channel].at(edge); }

private:
    void take(std::size_t channel, const Overlap& overlap) {
        EdgeValues& most = m_most[channel];
        double& value = overlap.edge == ImageEdge::Left    ? most.left
                        : overlap.edge == ImageEdge::Right ? most.right
                        : overlap.edge == ImageEdge::Top   ? most.top
                                                           : most.bottom;
        if (!overlap.isWhole()) value = std::max(value, overlap.most);
    }

    std::vector<EdgeValues> m_most;
};

std::wstring verdictText(const Overlap& overlap, double blend, double most, bool isColoured) {
    if (overlap.isWhole() || blend < 0.0) return L"";
    if (XMLConfig::isBlendTooWide(blend, most)) return coloured(L"too wide", Tone::Doubtful, isColoured);
    if (XMLConfig::isBlendTooNarrow(blend, overlap)) return coloured(L"too narrow", Tone::Doubtful, isColoured);
    return coloured(L"ok", Tone::Good, isColoured);
}

std::vector<std::wstring> overlapRow(const Channel& channel, const Channel& over, const Overlap& overlap, double most,
                                     bool isColoured) {
    const double blend = channel.blends.at(overlap.edge);
    const bool isBlended = !overlap.isWhole() && blend >= 0.0;
    return {nameOf(over) + L" over " + nameOf(channel), edgeText(overlap), rangeText(overlap),
            isBlended ? numberText(blend, 2) + L" %" : L"-", verdictText(overlap, blend, most, isColoured)};
}

std::wstring wantedText(const Layout& layout) {
    std::wstring text;
    const bool isSame = layout.wantedAcross == layout.wantedUpright;
    if (layout.wantedAcross > 0.0) text += L", wanted " + percentText(layout.wantedAcross);
    if (layout.wantedUpright > 0.0 && !isSame) text += L", wanted one above the other " + percentText(layout.wantedUpright);
    return text;
}

std::wstring overlapsText(const Layout& layout, bool isColoured) {
    const std::size_t count = layout.pairs.size();
    std::wstring text =
        titled(L"Overlaps", std::to_wstring(count) + (count == 1 ? L" pair" : L" pairs") + wantedText(layout));
    if (count == 0) return text;
    Rows rows = {{L"Pair", L"Edge", L"Overlap of the image", L"Blend", L""}};
    const MostOnEdge most(layout);
    for (const XMLConfig::ChannelPair& pair : layout.pairs) {
        const Channel& first = layout.channels[pair.first];
        const Channel& second = layout.channels[pair.second];
        rows.push_back(overlapRow(first, second, pair.ofFirst, most.of(pair.first, pair.ofFirst.edge), isColoured));
        rows.push_back(overlapRow(second, first, pair.ofSecond, most.of(pair.second, pair.ofSecond.edge), isColoured));
    }
    return text + tableText(rows, L"  ", 4);
}

std::wstring gapsText(const Layout& layout, const Units& units, bool isColoured) {
    Rows rows;
    for (const XMLConfig::ChannelRow& row : layout.rows)
        for (const XMLConfig::ChannelGap& gap : row.gaps)
            rows.push_back({nameOf(layout.channels[gap.left]) + L" to " + nameOf(layout.channels[gap.right]),
                            coloured(units.angle(gap.width), Tone::Bad, isColoured)});
    if (rows.empty()) return L"";
    return titled(L"Gaps", std::to_wstring(rows.size())) + tableText(rows, L"  ", 1);
}

std::wstring holesText(const XMLConfig::Coverage& coverage, const Units& units, bool isColoured) {
    Rows rows;
    for (const XMLConfig::UncoveredPart& part : coverage.uncovered) {
        if (!part.isHole) continue;
        const auto range = [&](const XMLConfig::Interval& span) {
            return units.angle(span.from, 1) + L" to " + units.angle(span.to, 1);
        };
        rows.push_back({coloured(
            percentText(part.share) + L" of the screen, " + range(part.theta) + L" around, " + range(part.phi) + L" up",
            Tone::Bad, isColoured)});
    }
    if (rows.empty()) return L"";
    return titled(L"Holes", std::to_wstring(rows.size())) + tableText(rows, L"  ", 0);
}

std::wstring screenText(const Layout& layout, const Units& units, bool isColoured) {
    if (!layout.coverage) return titled(L"Screen", layout.screen.shape + L", coverage not known");
    const XMLConfig::Coverage& coverage = *layout.coverage;
    return titled(L"Screen", percentText(coverage.inOne) + L" in one channel, " + percentText(coverage.inTwo) +
                                 L" in two, " + percentText(coverage.inMore) + L" in more, " + percentText(coverage.inNone) +
                                 L" in none") +
           holesText(coverage, units, isColoured);
}

}  // namespace

const wchar_t* edgeText(const Overlap& overlap) {
    if (overlap.isWhole()) return L"all";
    switch (overlap.edge) {
        case ImageEdge::Left:
            return L"left";
        case ImageEdge::Right:
            return L"right";
        case ImageEdge::Top:
            return L"top";
        case ImageEdge::Bottom:
            break;
    }
    return L"bottom";
}

const std::wstring& nameOf(const Channel& channel) { return channel.name.empty() ? channel.id : channel.name; }

std::wstring spanText(const XMLConfig::Interval& span, const Units& units) {
    return units.angle(span.from, 1) + L" .. " + units.angle(span.to, 1);
}

std::wstring blendsText(const EdgeValues& blends) {
    return joined({blendText(blends.left), blendText(blends.right), blendText(blends.top), blendText(blends.bottom)},
                  L" / ");
}

std::wstring headingText(const Channel& channel, const Units& units) {
    const std::wstring roll = channel.roll == 0.0 ? L"" : L" / " + units.angle(channel.roll);
    return units.angle(channel.yaw) + L" / " + units.angle(channel.pitch) + roll;
}

std::wstring fieldText(const EdgeValues& edges, const Units& units) {
    return units.angle(edges.right - edges.left) + L" x " + units.angle(edges.top - edges.bottom);
}

std::wstring rangeText(const Overlap& overlap) {
    return percentText(overlap.middle) + L" in the middle, " + numberText(100.0 * overlap.least, 0) + L" to " +
           percentText(overlap.most);
}

std::wstring faultOf(const Channel& channel, const Units& units) {
    const EdgeValues& edges = channel.edges;
    switch (channel.state) {
        case ChannelState::NotANumber:
            return L"an angle or the eye point is not a number";
        case ChannelState::Missing:
            return L"has no channel yet";
        case ChannelState::LooksLikeDegrees:
            return L"an angle is beyond a full turn; it looks like degrees stored as radians";
        case ChannelState::EdgesSwapped:
            return edges.left >= edges.right
                       ? L"Left (" + units.angle(edges.left) + L") is not left of Right (" + units.angle(edges.right) + L")"
                       : L"Bottom (" + units.angle(edges.bottom) + L") is not below Top (" + units.angle(edges.top) + L")";
        case ChannelState::FieldTooWide: {
            const double furthest =
                std::max({std::abs(edges.left), std::abs(edges.right), std::abs(edges.top), std::abs(edges.bottom)});
            return L"an edge " + units.angle(furthest) + L" off the line of sight";
        }
        case ChannelState::Usable:
            break;
    }
    return L"";
}

std::wstring layoutText(const Layout& layout, const Units& units, bool isColoured) {
    return channelsText(layout, units) + faultsText(layout, units, isColoured) + overlapsText(layout, isColoured) +
           gapsText(layout, units, isColoured) + screenText(layout, units, isColoured);
}

}  // namespace tool
