
#include "platform/Utf8.h"
#include "tools/Json.h"
#include "tools/LayoutText.h"

namespace tool {
namespace {

using XMLConfig::Channel;
using XMLConfig::ChannelState;
using XMLConfig::EdgeValues;
using XMLConfig::Layout;
using XMLConfig::Overlap;

/// An angle in degrees, rounded to so many decimals; null for what is no number.
Json inDegrees(double radians, int decimals = 9) {
    return rounded(UnitConversionTable::convertValue(UnitConversionTable::Radians, UnitConversionTable::Degrees, radians),
                   decimals);
}
Json percent(double share) { return rounded(100.0 * share, 1); }
Json span(const XMLConfig::Interval& range) { return Json::array({inDegrees(range.from, 1), inDegrees(range.to, 1)}); }
Json blend(double stored) { return stored < 0.0 ? Json(nullptr) : Json(stored); }

Json blends(const EdgeValues& values) {
    return {{"left", blend(values.left)},
            {"right", blend(values.right)},
            {"top", blend(values.top)},
            {"bottom", blend(values.bottom)}};
}

Json jsonOf(const Channel& channel, std::size_t number) {
    Json json = {{"number", number},
                 {"id", jsonText(channel.id)},
                 {"name", jsonText(channel.name)},
                 {"yaw", inDegrees(channel.yaw)},
                 {"pitch", inDegrees(channel.pitch)},
                 {"roll", inDegrees(channel.roll)},
                 {"left", inDegrees(channel.edges.left)},
                 {"right", inDegrees(channel.edges.right)},
                 {"top", inDegrees(channel.edges.top)},
                 {"bottom", inDegrees(channel.edges.bottom)}};
    const bool isUsable = channel.state == ChannelState::Usable;
    json["span"] = isUsable ? Json{{"yaw", span(channel.yawSpan)}, {"pitch", span(channel.pitchSpan)}} : Json(nullptr);
    json["blend"] = blends(channel.blends);
    json["cameras"] = Json::array();
    for (const std::wstring& camera : channel.cameras) json["cameras"].push_back(jsonText(camera));
    json["offScreen"] = channel.offScreen ? percent(*channel.offScreen) : Json(nullptr);
    json["fault"] = isUsable ? Json(nullptr) : jsonText(faultOf(channel, Units()));
    return json;
}

Json jsonOf(const Channel& channel, const Overlap& overlap) {
    return {{"id", jsonText(channel.id)},
            {"edge", jsonText(edgeText(overlap))},
            {"middle", percent(overlap.middle)},
            {"least", percent(overlap.least)},
            {"most", percent(overlap.most)},
            {"full", overlap.isFull},
            {"area", percent(overlap.area)},
            {"blend", overlap.isWhole() ? Json(nullptr) : blend(channel.blends.at(overlap.edge))}};
}

Json overlaps(const Layout& layout) {
    Json json = Json::array();
    for (const XMLConfig::ChannelPair& pair : layout.pairs) {
        const Channel& first = layout.channels[pair.first];
        const Channel& second = layout.channels[pair.second];
        json.push_back({{"projectors", {jsonText(first.id), jsonText(second.id)}},
                        {"of", {jsonOf(first, pair.ofFirst), jsonOf(second, pair.ofSecond)}}});
    }
    return json;
}

Json gaps(const Layout& layout) {
    Json json = Json::array();
    for (const XMLConfig::ChannelRow& row : layout.rows)
        for (const XMLConfig::ChannelGap& gap : row.gaps)
            json.push_back(
                {{"projectors", {jsonText(layout.channels[gap.left].id), jsonText(layout.channels[gap.right].id)}},
                 {"width", inDegrees(gap.width, 6)}});
    return json;
}

Json screen(const std::optional<XMLConfig::Coverage>& coverage) {
    if (!coverage) return nullptr;
    Json json = {{"inNone", percent(coverage->inNone)},
                 {"inOne", percent(coverage->inOne)},
                 {"inTwo", percent(coverage->inTwo)},
                 {"inMore", percent(coverage->inMore)}};
    json["uncoveredBands"] = Json::array();
    for (const XMLConfig::Interval& band : coverage->uncoveredBands) json["uncoveredBands"].push_back(span(band));
    json["holes"] = Json::array();
    for (const XMLConfig::UncoveredPart& part : coverage->uncovered)
        if (part.isHole)
            json["holes"].push_back({{"share", percent(part.share)}, {"theta", span(part.theta)}, {"phi", span(part.phi)}});
    return json;
}

}  // namespace

std::wstring layoutJson(const Layout& layout, const std::string& file) {
    Json json = {{"format", 1}, {"verb", "layout"}, {"file", file}, {"angles", "degrees"}};
    json["projectors"] = Json::array();
    for (std::size_t i = 0; i < layout.channels.size(); ++i) json["projectors"].push_back(jsonOf(layout.channels[i], i + 1));
    json["overlaps"] = overlaps(layout);
    json["gaps"] = gaps(layout);
    json["screen"] = screen(layout.coverage);
    json["exit"] = 0;
    return XMLConfig::wideFromUtf8(json.dump(2)) + L"\n";
}

}  // namespace tool
