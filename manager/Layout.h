#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ValueTypes.h"

class ConfigInfo;

/// Where the projectors' channels lie: what each shows, which overlap by how much, and what of the screen none reaches.
///
/// Directions have x to the right, y forward, z up, as seen from the eye point. Angles are in radians, lengths in meters,
/// shares from 0 to 1, blends in percent of the image as stored.
namespace XMLConfig {

/// An edge of an image.
enum class ImageEdge { Left, Right, Top, Bottom };

/// A value for each edge of an image.
struct EdgeValues {
    double left = 0.0;
    double right = 0.0;
    double top = 0.0;
    double bottom = 0.0;

    /// The value for that edge, in the unit of the whole.
    [[nodiscard]] double at(ImageEdge edge) const {
        return edge == ImageEdge::Left ? left : edge == ImageEdge::Right ? right : edge == ImageEdge::Top ? top : bottom;
    }
};

/// What lies between one angle or height and a larger one.
struct Interval {
    double from = 0.0;
    double to = 0.0;
};

/// Whether the angles of a channel make sense. Of several faults the first of this list counts.
enum class ChannelState {
    Usable,
    NotANumber,        ///< an angle or the eye point is not finite
    Missing,           ///< all four edges are 0
    LooksLikeDegrees,  ///< an angle is beyond a full turn
    EdgesSwapped,      ///< Left is not left of Right, or Bottom not below Top
    FieldTooWide       ///< an edge lies 89 degrees or more off the line of sight
};

/// A projector's channel: the plane image whose points are the directions sight + x * right + y * up, with x from the
/// tangent of the left edge to that of the right one, and y from that of the bottom edge to that of the top one.
struct Channel {
    std::wstring id;    ///< of the projector's section
    std::wstring name;  ///< as stored; may be empty
    ChannelState state = ChannelState::Missing;
    double yaw = 0.0;
    double pitch = 0.0;
    double roll = 0.0;
    EdgeValues edges;  ///< angles off the line of sight; left and bottom are negative as a rule
    Point_3Dim<double> eyePoint;

    // These are known of a usable channel only; of others they are zeros.

    Point_3Dim<double> sight;  ///< the line of sight, of length 1 as the next two
    Point_3Dim<double> right;
    Point_3Dim<double> up;
    EdgeValues tangents;  ///< of the edges
    /// What the image's true outline reaches; the yaw goes on beyond half a turn rather than jump, and spans a full turn
    /// where the channel holds the zenith or the nadir.
    Interval yawSpan;
    Interval pitchSpan;
    /// How far the image reaches left and right of the line of sight, on the level line through its middle, and down and up,
    /// on the upright one: its edges where the channel is not rolled.
    Interval levelField;
    Interval uprightField;
    /// How much of the image meets the screen nowhere; none where there is no coverage.
    std::optional<double> offScreen;
    /// It overlaps as many others as are looked for at most (`mostNeighbours`): `Layout::pairs` may leave some out.
    bool isCrowded = false;

    EdgeValues blends;                        ///< as stored; -1 where nothing is
    EdgeValues screenArea;                    ///< on the unit square, top above bottom; -1000 where nothing is stored
    BlackLevelBlending::PondOfMirrors ponds;  ///< as stored
    std::vector<std::wstring> cameras;        ///< IDs, as stored: the first and the second
};

/// A camera and, where it is stored, its position.
struct CameraPlace {
    std::wstring id;
    std::wstring name;
    std::optional<Point_3Dim<double>> position;
};

/// How much of a channel's image another channel shows as well. Exact: lines of the image are clipped against the planes
/// through the other's edges.
struct Overlap {
    /// On whose side the common area's centre lies.
    ImageEdge edge = ImageEdge::Left;
    // Shares of the lines that run from that edge to the opposite one.
    double middle = 0.0;  ///< on the line through the image's middle
    double least = 0.0;   ///< over the lines from 5 % to 95 % of the image
    double most = 0.0;
    bool isFull = false;  ///< more than 90 % of these lines meet the other channel
    double area = 0.0;    ///< share of the image's area
    double level = 0.0;   ///< share of the level line through the image's middle: of that across where it is not rolled

    /// The other channel shows 90 % and more of the image: it lies over no edge in particular.
    [[nodiscard]] bool isWhole() const { return area >= 0.9; }
};

/// Two channels that overlap.
struct ChannelPair {
    std::size_t first = 0;  ///< indices in Layout::channels, the smaller one first
    std::size_t second = 0;
    Overlap ofFirst;   ///< how the second lies over the first's image
    Overlap ofSecond;  ///< how the first lies over the second's image
};

/// Two neighbours in a row without any overlap on the line through their images' middles.
struct ChannelGap {
    std::size_t left = 0;  ///< indices in Layout::channels
    std::size_t right = 0;
    double width = 0.0;  ///< from the left one's right edge to the right one's left edge, in yaw; above 0
};

/// Channels side by side, from left to right: their pitches differ by less than half of the smaller vertical field.
/// A row that goes all the way round begins after its widest gap.
struct ChannelRow {
    std::vector<std::size_t> channels;  ///< indices in Layout::channels
    bool isClosed = false;              ///< whether the last one and the first one are neighbours, too
    std::vector<ChannelGap> gaps;
};

/// The projection surface as stored.
struct LayoutScreen {
    std::wstring shape;
    Point_3Dim<double> centre;
    double radius = -1.0;
    double height = -1.0;  ///< of a cylinder
    Interval theta;        ///< around, 0 forward and positive to the right
    Interval phi;          ///< up
};

/// A piece of the screen.
struct ScreenPatch {
    Interval theta;
    Interval phi;
};

/// A connected part of the screen that no channel reaches.
struct UncoveredPart {
    double share = 0.0;  ///< of the screen's area
    Interval theta;      ///< what it reaches
    Interval phi;
    bool isHole = false;               ///< whether it touches no edge of the screen
    std::vector<ScreenPatch> patches;  ///< of a hole: what it is made of, row by row; empty otherwise
};

/// How much of a sphere or cylinder the channels reach, by points every half degree, weighted by their area.
struct Coverage {
    // Shares of the screen's area by the number of channels there. Their sum is 1.
    double inNone = 0.0;
    double inOne = 0.0;
    double inTwo = 0.0;
    double inMore = 0.0;
    std::vector<Interval> uncoveredBands;  ///< of phi: where all around is in no channel; upwards
    std::vector<UncoveredPart> uncovered;  ///< connected parts, the largest first
};

struct Layout {
    std::vector<Channel> channels;  ///< of every projector that has an ID of its own, in document order
    std::vector<CameraPlace> cameras;
    std::vector<ChannelPair> pairs;  ///< by first, then second; only usable channels, as in rows
    std::vector<ChannelRow> rows;    ///< from the lowest up; within, one after the other
    LayoutScreen screen;
    /// None where the screen is no sphere or cylinder, where its size is not stored or makes no sense, or where there is
    /// no usable channel.
    std::optional<Coverage> coverage;

    double wantedAcross = 0.0;          ///< wanted overlap of channels side by side, as a share; 0 where none is stored
    double wantedUpright = 0.0;         ///< of channels one above the other
    int stackHeight = 0;                ///< how many projectors a user says show the same area; as stored
    bool hasBlackLevel = false;         ///< whether black-level blending is used
    Point_3Dim<double> targetEyePoint;  ///< from where the target is seen

    /// Whether every channel is usable: only then are rows, pairs and coverage those of the whole installation.
    [[nodiscard]] XMLCONFIG_API bool isComplete() const;
};

/// The search for a channel's overlaps ends after so many, so that thousands of equal channels take no time without end.
inline constexpr std::size_t mostNeighbours = 64;

/// Less of an image's area than this counts as no overlap.
inline constexpr double leastArea = 0.002;

/// By how many percent of an image a blend, or a wanted overlap, may miss the overlap that there is.
inline constexpr double overlapTolerance = 2.0;

/// Whether a blend takes more of the image than the most that any channel overlaps at that edge (a share): a dark band.
XMLCONFIG_API bool isBlendTooWide(double blend, double mostOverlap);
/// Whether a blend takes less of the image than a channel overlaps all along that edge: a bright band.
XMLCONFIG_API bool isBlendTooNarrow(double blend, const Overlap& overlap);
/// Whether two eye points count as one: no more than a millimeter lies between them.
XMLCONFIG_API bool isOneEyePoint(const Point_3Dim<double>& one, const Point_3Dim<double>& other);

/// The layout of a document of the latest version, which stays as it is. Values that cannot be read count as missing;
/// nothing is thrown for them. Takes time in proportion to the number of projectors.
XMLCONFIG_API Layout layout(const ConfigInfo& document);

/// The outline of a part of a usable channel's image as directions, which have no unit of length: `points` to an edge, from
/// the bottom left to the right and round. The part is given by shares of the image from its left and bottom: {0, 1, 1, 0}
/// is the whole.
XMLCONFIG_API std::vector<Point_3Dim<double>> outlineOf(const Channel& channel, const EdgeValues& part, int points);

/// The outline of a part of the screen as directions, which have no unit of length, seen from a point: `points` to an edge.
/// Empty where the screen is no sphere or cylinder. A screen that goes all the way round, or up to a pole, has no edge
/// there, but is drawn with one.
XMLCONFIG_API std::vector<Point_3Dim<double>> outlineOf(const LayoutScreen& screen, const Point_3Dim<double>& from,
                                                        const ScreenPatch& part, int points);
/// The whole of such a screen; none where it is no sphere or cylinder, or its size is not stored or makes no sense.
XMLCONFIG_API std::optional<ScreenPatch> limitsOf(const LayoutScreen& screen);

/// Yaw and pitch.
struct Heading {
    double yaw = 0.0;
    double pitch = 0.0;
};
/// Where a direction leads; of all yaws the one that is nearest to `beside`.
XMLCONFIG_API Heading headingOf(const Point_3Dim<double>& direction, double beside = 0.0);

}  // namespace XMLConfig
