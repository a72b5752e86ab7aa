#pragma once

#include <string>

#include "manager/Layout.h"
#include "tools/NumberTexts.h"

/// A layout for people and for programs.
namespace tool {

/// Tables of the channels, overlaps, gaps and the screen.
std::wstring layoutText(const XMLConfig::Layout& layout, const Units& units, bool isColoured);
/// One JSON object, with angles in degrees and shares in percent.
std::wstring layoutJson(const XMLConfig::Layout& layout, const std::string& file);

/// The channel's name, or its ID where it has none.
const std::wstring& nameOf(const XMLConfig::Channel& channel);
std::wstring headingText(const XMLConfig::Channel& channel, const Units& units);
std::wstring fieldText(const XMLConfig::EdgeValues& edges, const Units& units);
std::wstring spanText(const XMLConfig::Interval& span, const Units& units);
std::wstring blendsText(const XMLConfig::EdgeValues& blends);  ///< left / right / top / bottom
std::wstring rangeText(const XMLConfig::Overlap& overlap);     ///< in the middle, and from the least to the most
/// "left", "right", "top" or "bottom"; "all" where the overlap is the whole image.
const wchar_t* edgeText(const XMLConfig::Overlap& overlap);
/// What is wrong with the angles of a channel; "" for a usable one.
std::wstring faultOf(const XMLConfig::Channel& channel, const Units& units);

}  // namespace tool
