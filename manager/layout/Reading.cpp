#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "manager/layout/Image.h"
#include "manager/layout/Parts.h"
#include "sections/CameraConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "store/ConfigInfo.h"

namespace XMLConfig::detail {
namespace {

/// Accessors want a document that they may change; only their getters are used here.
ConfigInfo* readable(const ConfigInfo& document) { return const_cast<ConfigInfo*>(&document); }

/// The IDs of the sections that the application finds: an empty one leads to the first section, a second time the same ID
/// to the section that had it first.
std::vector<std::wstring> devicesOf(const ConfigInfo& document, const std::wstring& tag) {
    std::vector<std::wstring> ids = document.getSectionIDs(tag);
    std::unordered_set<std::wstring> met{L""};
    const auto isNoDevice = [&](const std::wstring& id) { return !met.insert(id).second; };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isNoDevice), ids.end());
    return ids;
}

std::array<double, 7> anglesOf(const Channel& channel) {
    return {channel.yaw,         channel.pitch,     channel.roll,        channel.edges.left,
            channel.edges.right, channel.edges.top, channel.edges.bottom};
}

template <typename Test>
bool anyOf(const std::array<double, 7>& angles, std::size_t from, const Test& test) {
    return std::any_of(angles.begin() + static_cast<std::ptrdiff_t>(from), angles.end(), test);
}

ChannelState stateOf(const Channel& channel) {
    constexpr std::size_t firstEdge = 3;
    const std::array<double, 7> angles = anglesOf(channel);
    const EdgeValues& edges = channel.edges;
    if (anyOf(angles, 0, [](double angle) { return !std::isfinite(angle); }) || !isFinite(channel.eyePoint))
        return ChannelState::NotANumber;
    if (!anyOf(angles, firstEdge, [](double angle) { return angle != 0.0; })) return ChannelState::Missing;
    if (anyOf(angles, 0, [](double angle) { return std::abs(angle) > fullTurn; })) return ChannelState::LooksLikeDegrees;
    if (edges.left >= edges.right || edges.bottom >= edges.top) return ChannelState::EdgesSwapped;
    if (anyOf(angles, firstEdge, [](double angle) { return std::abs(angle) >= widestEdge; }))
        return ChannelState::FieldTooWide;
    return ChannelState::Usable;
}

/// The axes of the channel are the columns of its rotation: right, forward, up.
void turn(Channel& channel) {
    const Viewport viewport(channel.eyePoint, {channel.yaw, channel.pitch, channel.roll}, channel.edges.left,
                            channel.edges.right, channel.edges.top, channel.edges.bottom, 1, 1);
    const std::array<double, 9>& m = viewport.RotationMatrix;
    channel.right = {m[0], m[3], m[6]};
    channel.sight = {m[1], m[4], m[7]};
    channel.up = {m[2], m[5], m[8]};
    const EdgeValues& edges = channel.edges;
    channel.tangents = {std::tan(edges.left), std::tan(edges.right), std::tan(edges.top), std::tan(edges.bottom)};
    channel.yawSpan = yawSpanOf(channel);
    channel.pitchSpan = pitchSpanOf(channel);
    channel.levelField = fieldAlong(channel, channel.roll);
    channel.uprightField = fieldAlong(channel, channel.roll + pi / 2.0);
}

void readExtents(Channel& channel, const ProjectorConfig& config) {
    const Viewport viewport = config.getChannelExtentsAsViewport();
    channel.yaw = viewport.RotationYPR.x;
    channel.pitch = viewport.RotationYPR.y;
    channel.roll = viewport.RotationYPR.z;
    channel.edges = {viewport.FOVLeft, viewport.FOVRight, viewport.FOVTop, viewport.FOVBottom};
    channel.eyePoint = viewport.Offset;
    completeChannel(channel);
}

}  // namespace

void completeChannel(Channel& channel) {
    channel.state = stateOf(channel);
    if (channel.state == ChannelState::Usable) turn(channel);
}

Channel readChannel(const ConfigInfo& document, const std::wstring& id) {
    const ProjectorConfig config(readable(document), id);
    Channel channel;
    channel.id = id;
    channel.name = config.getName();
    readExtents(channel, config);
    channel.blends = {config.getBlendPercentLeft(), config.getBlendPercentRight(), config.getBlendPercentTop(),
                      config.getBlendPercentBottom()};
    channel.screenArea = {config.getScreenAreaLeft(), config.getScreenAreaRight(), config.getScreenAreaTop(),
                          config.getScreenAreaBottom()};
    channel.ponds = config.getPondOfMirrors();
    for (const std::wstring& camera : {config.getAssociatedCameraId1(), config.getAssociatedCameraId2()})
        if (!camera.empty()) channel.cameras.push_back(camera);
    return channel;
}

std::vector<Channel> readChannels(const ConfigInfo& document) {
    std::vector<Channel> channels;
    for (const std::wstring& id : devicesOf(document, L"Projector")) channels.push_back(readChannel(document, id));
    return channels;
}

std::vector<CameraPlace> readCameras(const ConfigInfo& document) {
    std::vector<CameraPlace> cameras;
    for (const std::wstring& id : devicesOf(document, L"Camera")) {
        const CameraConfig config(readable(document), id);
        Vector position;
        Vector rotation;
        CameraPlace place{id, config.getName(), std::nullopt};
        if (config.getExplicitExtrinsics(position, rotation) && isFinite(position)) place.position = position;
        cameras.push_back(std::move(place));
    }
    return cameras;
}

LayoutScreen readScreen(const ConfigInfo& document) {
    ScreenConfig config(readable(document), nullptr, L"");
    LayoutScreen screen;
    screen.shape = config.getShape();
    screen.centre = config.getCenterPoint();
    screen.radius = config.getRadius();
    screen.height = config.getHeight();
    screen.theta = {config.getMinTheta(), config.getMaxTheta()};
    screen.phi = {config.getMinPhi(), config.getMaxPhi()};
    return screen;
}

void readWanted(Layout& layout, const ConfigInfo& document) {
    TargetLocatorConfig target(readable(document), L"");
    layout.wantedAcross = target.getHorizontalOverlap();
    layout.wantedUpright = target.getVerticalOverlap();
    layout.targetEyePoint = target.getEyePoint();
    layout.stackHeight = GeometryConfig(readable(document), L"").getUserStackHeightOverride();
    layout.hasBlackLevel = SystemConfig(readable(document), nullptr, L"").getIsBlbUsed();
}

}  // namespace XMLConfig::detail
