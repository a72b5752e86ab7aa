#pragma once

#include "base/Angles.h"
#include "manager/Layout.h"

/// The steps by which a layout is made. Each uses what the steps before it have found.
namespace XMLConfig::detail {

/// From there on an edge is too far off the line of sight: 89 degrees, but for the rounding of what is stored.
inline constexpr double widestEdge = 89.0 * degree - 1e-9;

/// Every projector's channel as stored, with the directions and spans of the usable ones.
std::vector<Channel> readChannels(const ConfigInfo& document);
Channel readChannel(const ConfigInfo& document, const std::wstring& id);
/// Adds the state to a channel as stored, and to a usable one its directions and spans.
void completeChannel(Channel& channel);
std::vector<CameraPlace> readCameras(const ConfigInfo& document);
LayoutScreen readScreen(const ConfigInfo& document);
/// What is wanted, and how the target is seen.
void readWanted(Layout& layout, const ConfigInfo& document);

/// Pairs, rows and coverage of the channels that have been read.
void reckon(Layout& layout);

/// Which usable channels overlap. Marks those that are crowded.
std::vector<ChannelPair> findPairs(std::vector<Channel>& channels);
std::vector<ChannelRow> findRows(const std::vector<Channel>& channels, const std::vector<ChannelPair>& pairs);
/// Says of each usable channel how much of it is off the screen.
std::optional<Coverage> findCoverage(std::vector<Channel>& channels, const LayoutScreen& screen);

}  // namespace XMLConfig::detail
