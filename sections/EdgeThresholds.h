#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The text form of a camera's edge thresholds: four integers between commas, or one integer in documents of older releases.
namespace XMLConfig::detail {

inline constexpr std::size_t edgeThresholdCount = 4;

struct EdgeThresholds {
    std::size_t pieces = 0;      ///< how many there are between the commas
    std::vector<int> values;     ///< four, or none where the text holds neither four numbers nor one
    bool isOfOlderForm = false;  ///< whether one number stands for all four
};
EdgeThresholds edgeThresholdsFromText(const std::wstring& text);
/// The first four values; "" for an empty list.
std::wstring edgeThresholdsText(const std::vector<int>& values);

}  // namespace XMLConfig::detail
