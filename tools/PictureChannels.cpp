#include "tools/LayoutText.h"
#include "tools/PictureParts.h"
#include "tools/PicturePaths.h"
#include "tools/PictureStyle.h"

namespace tool::picture {
namespace {

using svg::Point;
using XMLConfig::Channel;
using XMLConfig::EdgeValues;

constexpr int pointsPerBlendEdge = 8;

std::wstring titleOf(const Canvas& canvas, const Channel& channel) {
    const EdgeValues& edges = channel.edges;
    return identityOf(channel.name, channel.id) + L"\n" + headingText(channel, canvas.units) + L", " +
           fieldText(edges, canvas.units) + L"\nyaw " + spanText(channel.yawSpan, canvas.units) + L"\npitch " +
           spanText(channel.pitchSpan, canvas.units) + L"\nblends l/r/t/b " + blendsText(channel.blends);
}

void drawBlends(pugi::xml_node group, const Channel& channel, const std::string& colour) {
    const EdgeValues& blends = channel.blends;
    const auto draw = [&](double percent, const wchar_t* edge, const EdgeValues& part) {
        if (!(percent > 0.0 && percent <= 100.0)) return;
        const std::wstring title =
            identityOf(channel.name, channel.id) + L"\n" + edge + L" blend " + numberText(percent, 2) + L" %";
        svg::addPath(group, svg::pathData(pathOf(channel, part, pointsPerBlendEdge)), "blend " + colour, title);
    };
    draw(blends.left, L"left", {0.0, blends.left / 100.0, 1.0, 0.0});
    draw(blends.right, L"right", {1.0 - blends.right / 100.0, 1.0, 1.0, 0.0});
    draw(blends.top, L"top", {0.0, 1.0, 1.0, 1.0 - blends.top / 100.0});
    draw(blends.bottom, L"bottom", {0.0, 1.0, blends.bottom / 100.0, 0.0});
}

void drawName(const Canvas& canvas, const Channel& channel, const std::string& colour) {
    const Point at = sightOf(channel);
    const long arm = canvas.font / 3;
    const bool isAtTheTop = at.y - 2 * canvas.font < canvas.frame.top;
    const std::wstring title = identityOf(channel.name, channel.id) + L"\n" + headingText(channel, canvas.units);
    svg::addLine(canvas.root, {at.x - arm, at.y}, {at.x + arm, at.y}, "sight " + colour, title);
    svg::addLine(canvas.root, {at.x, at.y - arm}, {at.x, at.y + arm}, "sight " + colour, title);
    svg::addText(canvas.root, {at.x, isAtTheTop ? at.y + canvas.font * 5 / 4 : at.y - canvas.font * 2 / 3}, nameOf(channel),
                 "name");
    svg::addText(canvas.root, {at.x, at.y + (isAtTheTop ? canvas.font * 9 / 4 : canvas.font * 5 / 4)},
                 headingText(channel, canvas.units), "heading");
}

}  // namespace

std::wstring identityOf(const std::wstring& name, const std::wstring& id) { return name.empty() ? id : name + L"\n" + id; }

bool isUsable(const Channel& channel) { return channel.state == XMLConfig::ChannelState::Usable; }

std::string colourOf(std::size_t index) { return "c" + std::to_string(index % pictureColours); }

void drawChannels(const Canvas& canvas) {
    pugi::xml_node root = canvas.root;
    for (std::size_t i = 0; i < canvas.channels.size(); ++i) {
        if (canvas.channels[i].empty()) continue;
        const Channel& channel = canvas.layout.channels[i];
        pugi::xml_node group = root.append_child("g");
        svg::addPath(group, svg::pathData(canvas.channels[i]), "channel " + colourOf(i), titleOf(canvas, channel));
        drawBlends(group, channel, colourOf(i));
    }
    for (std::size_t i = 0; i < canvas.channels.size(); ++i)
        if (!canvas.channels[i].empty()) drawName(canvas, canvas.layout.channels[i], colourOf(i));
}

void drawOverlaps(const Canvas& canvas) {
    for (const XMLConfig::ChannelPair& pair : canvas.layout.pairs) {
        const Channel& first = canvas.layout.channels[pair.first];
        const Channel& second = canvas.layout.channels[pair.second];
        if (pair.ofFirst.isWhole() || pair.ofSecond.isWhole() || !(pair.ofFirst.isFull || pair.ofSecond.isFull)) continue;
        const std::wstring one = percentText(pair.ofFirst.middle);
        const std::wstring other = percentText(pair.ofSecond.middle);
        const Point_3Dim<double> between{first.sight.x + second.sight.x, first.sight.y + second.sight.y,
                                         first.sight.z + second.sight.z};
        const Point at = placeOf(XMLConfig::headingOf(between));
        pugi::xml_node text = svg::addText(canvas.root, at, one == other ? one : one + L" | " + other, "overlap");
        const std::wstring title = nameOf(second) + L" over " + nameOf(first) + L": " + rangeText(pair.ofFirst) + L"\n" +
                                   nameOf(first) + L" over " + nameOf(second) + L": " + rangeText(pair.ofSecond) + L"\n" +
                                   first.id + L"\n" + second.id;
        svg::addTitle(text, title);
    }
}

}  // namespace tool::picture
