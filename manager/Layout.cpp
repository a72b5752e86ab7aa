#include "manager/Layout.h"

#include <algorithm>
#include <cmath>

#include "manager/layout/Parts.h"

namespace XMLConfig {

bool Layout::isComplete() const {
    return std::all_of(channels.begin(), channels.end(),
                       [](const Channel& channel) { return channel.state == ChannelState::Usable; });
}

bool isBlendTooWide(double blend, double mostOverlap) { return blend > 100.0 * mostOverlap + overlapTolerance; }

bool isBlendTooNarrow(double blend, const Overlap& overlap) {
    return overlap.isFull && blend < 100.0 * overlap.least - overlapTolerance;
}

bool isOneEyePoint(const Point_3Dim<double>& one, const Point_3Dim<double>& other) {
    constexpr double millimeter = 0.001;
    return std::hypot(one.x - other.x, one.y - other.y, one.z - other.z) <= millimeter;
}

Layout layout(const ConfigInfo& document) {
    Layout result;
    result.channels = detail::readChannels(document);
    result.cameras = detail::readCameras(document);
    result.screen = detail::readScreen(document);
    detail::readWanted(result, document);
    detail::reckon(result);
    return result;
}

void detail::reckon(Layout& layout) {
    layout.pairs = findPairs(layout.channels);
    layout.rows = findRows(layout.channels, layout.pairs);
    layout.coverage = findCoverage(layout.channels, layout.screen);
}

}  // namespace XMLConfig
