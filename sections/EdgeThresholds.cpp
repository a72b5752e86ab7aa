#include "sections/EdgeThresholds.h"

#include <algorithm>

#include "platform/Numbers.h"
#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

EdgeThresholds edgeThresholdsFromText(const std::wstring& text) {
    std::vector<std::wstring> pieces;
    ConfigInfo::createTokenVector(pieces, text, L",");
    if (pieces.size() == 1) return {1, std::vector<int>(edgeThresholdCount, leadingInteger(pieces[0])), true};
    EdgeThresholds thresholds;
    thresholds.pieces = pieces.size();
    if (pieces.size() == edgeThresholdCount)
        for (const std::wstring& piece : pieces) thresholds.values.push_back(leadingInteger(piece));
    return thresholds;
}

std::wstring edgeThresholdsText(const std::vector<int>& values) {
    std::wstring text;
    for (std::size_t edge = 0; edge < std::min(edgeThresholdCount, values.size()); ++edge)
        text += (edge == 0 ? L"" : L",") + formatInteger(values[edge]);
    return text;
}

}  // namespace XMLConfig::detail
