#pragma once

#include <unordered_map>

#include "manager/Layout.h"
#include "manager/check/Findings.h"

namespace XMLConfig::detail {

inline constexpr ImageEdge imageEdges[] = {ImageEdge::Left, ImageEdge::Right, ImageEdge::Top, ImageEdge::Bottom};

/// What stands for an edge of a projector's image.
struct EdgeNames {
    const wchar_t* name;  ///< in messages

    // The keys of its settings.

    const wchar_t* field;   ///< the angle from the line of sight
    const wchar_t* blend;   ///< the blend there
    const wchar_t* mirror;  ///< the pond of mirrors there
};
EdgeNames namesOf(ImageEdge edge);

/// What the rules on channels share.
class ChannelCheck {
public:
    explicit ChannelCheck(Findings& findings);

    Findings& findings;
    const Layout layout;

    [[nodiscard]] const Channel& channel(const CheckedSection& projector) const;
    [[nodiscard]] const CheckedSection& projector(std::size_t channel) const;  ///< by the channel's index
    [[nodiscard]] std::wstring title(std::size_t channel) const;
    [[nodiscard]] std::wstring angle(double radians) const { return findings.units.angle(radians); }

private:
    std::unordered_map<std::wstring, std::size_t> m_indices;  // of the channels, by ID
};

/// The value of an edge of a projector's part of the screen that is not known.
constexpr double unknownArea = -1000.0;
/// Whether the edges of a projector's part of the screen are in order and on the screen, as far as they are known.
[[nodiscard]] bool isPartOfScreen(double low, double high);

/// What XMLConfig::layout gives, without the cameras, from what has been read already.
Layout layoutOf(const Findings& findings);

void checkBlendsAlone(ChannelCheck& check, const CheckedSection& projector);

// These rules compare neighbours and are asked only where every channel is usable.

void checkRows(ChannelCheck& check);
void checkPairs(ChannelCheck& check);
void checkBlends(ChannelCheck& check);
void checkCoverage(ChannelCheck& check);

}  // namespace XMLConfig::detail
