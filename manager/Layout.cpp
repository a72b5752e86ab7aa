#include "manager/Layout.h"

#include <algorithm>

#include "manager/layout/Parts.h"

namespace XMLConfig {

bool Layout::isComplete() const {
    return std::all_of(channels.begin(), channels.end(),
                       [](const Channel& channel) { return channel.state == ChannelState::Usable; });
}

Layout layout(const ConfigInfo& document) {
    Layout result;
    result.channels = detail::readChannels(document);
    result.cameras = detail::readCameras(document);
    result.screen = detail::readScreen(document);
    detail::readWanted(result, document);
    result.pairs = detail::findPairs(result.channels);
    result.rows = detail::findRows(result.channels, result.pairs);
    result.coverage = detail::findCoverage(result.channels, result.screen);
    return result;
}

}  // namespace XMLConfig
