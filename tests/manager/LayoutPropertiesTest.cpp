#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "manager/Layout.h"
#include "manager/layout/Image.h"
#include "tests/support/Matrices.h"
#include "tests/support/Rig.h"

namespace {

using XMLConfig::Layout;
using XMLConfig::Overlap;
using XMLConfig::detail::degree;
using XMLConfig::detail::dot;
using XMLConfig::detail::overlapOn;
using XMLConfig::detail::Vector;

Matrix3 rotationOf(double yaw, double pitch, double roll) {
    return Viewport({}, {yaw * degree, pitch * degree, roll * degree}, 0.0, 0.0, 0.0, 0.0, 1, 1).RotationMatrix;
}

/// The channel as it lies when the ground under the whole rig is turned.
RigChannel turned(RigChannel channel, const Matrix3& turn) {
    const Matrix3 m = product(turn, rotationOf(channel.yaw, channel.pitch, channel.roll));
    channel.yaw = std::atan2(m[1], m[4]) / degree;
    channel.pitch = std::asin(m[7]) / degree;
    channel.roll = std::atan2(-m[6], m[8]) / degree;
    return channel;
}

/// Channels of many sizes in all directions, the same with every run.
std::vector<RigChannel> randomRig(unsigned seed, int size) {
    std::mt19937 random(seed);
    const auto between = [&random](double low, double high) {
        return low + (high - low) * static_cast<double>(random() % 100000) / 100000.0;
    };
    std::vector<RigChannel> rig;
    for (int i = 0; i < size; ++i)
        rig.push_back({between(-180.0, 180.0), between(-80.0, 80.0), between(-30.0, 30.0), between(-40.0, -5.0),
                       between(5.0, 40.0), between(5.0, 35.0), between(-35.0, -5.0)});
    return rig;
}

void expectSame(const Overlap& one, const Overlap& other) {
    constexpr double within = 1e-9;
    EXPECT_EQ(one.edge, other.edge);
    EXPECT_NEAR(one.middle, other.middle, within);
    EXPECT_NEAR(one.least, other.least, within);
    EXPECT_NEAR(one.most, other.most, within);
    EXPECT_NEAR(one.area, other.area, within);
    EXPECT_EQ(one.isFull, other.isFull);
}

TEST(LayoutProperties, TurningTheWholeRigChangesNoOverlap) {
    const std::vector<RigChannel> rig = randomRig(1, 40);
    const Layout before = layoutOf(rig);
    ASSERT_GT(before.pairs.size(), 50u);
    for (const Matrix3& turn : {rotationOf(77.0, 0.0, 0.0), rotationOf(0.0, 25.0, 0.0), rotationOf(-140.0, 33.0, 71.0)}) {
        std::vector<RigChannel> other;
        for (const RigChannel& channel : rig) other.push_back(turned(channel, turn));
        const Layout after = layoutOf(other);
        ASSERT_EQ(after.pairs.size(), before.pairs.size());
        for (std::size_t i = 0; i < before.pairs.size(); ++i) {
            EXPECT_EQ(after.pairs[i].first, before.pairs[i].first);
            EXPECT_EQ(after.pairs[i].second, before.pairs[i].second);
            expectSame(after.pairs[i].ofFirst, before.pairs[i].ofFirst);
            expectSame(after.pairs[i].ofSecond, before.pairs[i].ofSecond);
        }
    }
}

TEST(LayoutProperties, OverlapIsMutual) {
    for (unsigned seed = 1; seed <= 5; ++seed)
        for (const XMLConfig::ChannelPair& pair : layoutOf(randomRig(seed, 60)).pairs) {
            EXPECT_GT(pair.ofFirst.area, 0.0);
            EXPECT_GT(pair.ofSecond.area, 0.0);
        }
}

TEST(LayoutProperties, SweepFindsWhatComparingAllFinds) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        const Layout layout = layoutOf(randomRig(seed, 60));
        std::size_t next = 0;
        for (std::size_t first = 0; first < layout.channels.size(); ++first)
            for (std::size_t second = first + 1; second < layout.channels.size(); ++second) {
                const XMLConfig::Channel& one = layout.channels[first];
                const XMLConfig::Channel& other = layout.channels[second];
                const double area = std::max(overlapOn(one, XMLConfig::detail::planesOf(other)).area,
                                             overlapOn(other, XMLConfig::detail::planesOf(one)).area);
                if (area < XMLConfig::leastArea) continue;
                ASSERT_LT(next, layout.pairs.size());
                EXPECT_EQ(layout.pairs[next].first, first);
                EXPECT_EQ(layout.pairs[next].second, second);
                ++next;
            }
        EXPECT_EQ(next, layout.pairs.size());
    }
}

TEST(LayoutProperties, EqualChannelsOverlapWholly) {
    for (const RigChannel& channel : randomRig(3, 30)) {
        const Layout layout = layoutOf({channel, channel});
        ASSERT_EQ(layout.pairs.size(), 1u);
        for (const Overlap& overlap : {layout.pairs[0].ofFirst, layout.pairs[0].ofSecond}) {
            EXPECT_NEAR(overlap.area, 1.0, 1e-9);
            EXPECT_NEAR(overlap.middle, 1.0, 1e-9);
            EXPECT_NEAR(overlap.least, 1.0, 1e-9);
            EXPECT_NEAR(overlap.most, 1.0, 1e-9);
            EXPECT_TRUE(overlap.isFull);
            EXPECT_TRUE(overlap.isWhole());
        }
    }
}

/// Half the field, in radians, of n channels around the eye that overlap by this share on the line through their middles.
double halfFieldFor(int n, double share) {
    const double spacing = 2.0 * XMLConfig::detail::pi / n;
    double low = spacing / 2.0;
    double high = std::min(spacing, 88.0 * degree);
    for (int i = 0; i < 100; ++i) {
        const double half = (low + high) / 2.0;
        const double overlap = (std::tan(half) - std::tan(spacing - half)) / (2.0 * std::tan(half));
        (overlap < share ? low : high) = half;
    }
    return low;
}

TEST(LayoutProperties, RingHasTheOverlapItWasMadeWith) {
    for (const int n : {3, 4, 7, 12, 40, 360})
        for (const double share : {0.05, 0.25, 0.4}) {
            const double half = halfFieldFor(n, share) / degree;
            std::vector<RigChannel> ring;
            for (int i = 0; i < n; ++i) ring.push_back({360.0 / n * i, 0.0, 0.0, -half, half, 15.0, -15.0});
            const Layout layout = layoutOf(ring);
            ASSERT_EQ(layout.pairs.size(), static_cast<std::size_t>(n));
            for (const XMLConfig::ChannelPair& pair : layout.pairs) {
                EXPECT_NEAR(pair.ofFirst.middle, share, 1e-9) << n;
                EXPECT_NEAR(pair.ofSecond.middle, share, 1e-9) << n;
                EXPECT_TRUE(pair.ofFirst.isFull);
            }
            ASSERT_EQ(layout.rows.size(), 1u);
            EXPECT_TRUE(layout.rows[0].isClosed);
            EXPECT_TRUE(layout.rows[0].gaps.empty());
        }
}

bool shows(const XMLConfig::Channel& channel, const Vector& direction) {
    const double depth = dot(direction, channel.sight);
    const double x = dot(direction, channel.right) / depth;
    const double y = dot(direction, channel.up) / depth;
    const XMLConfig::EdgeValues& edge = channel.tangents;
    return depth > 0.0 && x >= edge.left && x <= edge.right && y >= edge.bottom && y <= edge.top;
}

/// The share of a line of the image, by asking for many points of it whether the other shows them.
double sampledShare(const XMLConfig::Channel& channel, const XMLConfig::Channel& other, bool isHorizontal, double place) {
    constexpr int points = 2000;
    const XMLConfig::EdgeValues& edge = channel.tangents;
    int shown = 0;
    for (int i = 0; i < points; ++i) {
        const double along = (i + 0.5) / points;
        const double x = edge.left + (edge.right - edge.left) * (isHorizontal ? along : place);
        const double y = edge.bottom + (edge.top - edge.bottom) * (isHorizontal ? place : along);
        if (shows(other, XMLConfig::detail::directionAt(channel, x, y))) ++shown;
    }
    return static_cast<double>(shown) / points;
}

/// The same of the line through the middle that is level where the channel is headed.
double sampledLevel(const XMLConfig::Channel& channel, const XMLConfig::Channel& other) {
    constexpr int points = 2000;
    const XMLConfig::EdgeValues& edge = channel.tangents;
    const double x = (edge.left + edge.right) / 2.0;
    const double y = (edge.bottom + edge.top) / 2.0;
    int inImage = 0;
    int shown = 0;
    for (int i = -points; i <= points; ++i) {
        const double alongX = x + 2.0 * i / points * std::cos(channel.roll);
        const double alongY = y + 2.0 * i / points * std::sin(channel.roll);
        const auto direction = XMLConfig::detail::directionAt(channel, alongX, alongY);
        if (!shows(channel, direction)) continue;
        ++inImage;
        if (shows(other, direction)) ++shown;
    }
    return static_cast<double>(shown) / inImage;
}

void expectAsSampled(const Overlap& overlap, const XMLConfig::Channel& channel, const XMLConfig::Channel& other) {
    constexpr int lines = 90;
    const bool isHorizontal = overlap.edge == XMLConfig::ImageEdge::Left || overlap.edge == XMLConfig::ImageEdge::Right;
    double least = 1.0;
    double most = 0.0;
    int met = 0;
    for (int i = 0; i <= lines; ++i) {
        const double share = sampledShare(channel, other, isHorizontal, 0.05 + 0.9 * i / lines);
        least = std::min(least, share);
        most = std::max(most, share);
        met += share > 0.0 ? 1 : 0;
    }
    EXPECT_NEAR(overlap.middle, sampledShare(channel, other, isHorizontal, 0.5), 0.002);
    EXPECT_NEAR(overlap.level, sampledLevel(channel, other), 0.005);
    EXPECT_NEAR(overlap.least, least, 0.002);
    EXPECT_NEAR(overlap.most, most, 0.03);  // a corner may lie between two lines
    EXPECT_GE(overlap.most, most - 0.002);
    if (std::abs(met - 0.9 * lines) > 2) {
        EXPECT_EQ(overlap.isFull, met > 0.9 * lines);
    }
}

TEST(LayoutProperties, ClippingAgreesWithAskingPointByPoint) {
    const Layout layout = layoutOf(randomRig(7, 25));
    ASSERT_GT(layout.pairs.size(), 15u);
    for (const XMLConfig::ChannelPair& pair : layout.pairs) {
        expectAsSampled(pair.ofFirst, layout.channels[pair.first], layout.channels[pair.second]);
        expectAsSampled(pair.ofSecond, layout.channels[pair.second], layout.channels[pair.first]);
    }
}

TEST(LayoutProperties, SpansReachWhatTheOutlineReaches) {
    for (const XMLConfig::Channel& channel : layoutOf(randomRig(11, 200)).channels) {
        XMLConfig::Interval pitch{10.0, -10.0};
        XMLConfig::Interval yaw{100.0, -100.0};
        double before = (channel.yawSpan.from + channel.yawSpan.to) / 2.0;
        for (const Vector& direction : outlineOf(channel, {0.0, 1.0, 1.0, 0.0}, 2000)) {
            const XMLConfig::Heading heading = XMLConfig::headingOf(direction, before);
            before = heading.yaw;
            pitch = {std::min(pitch.from, heading.pitch), std::max(pitch.to, heading.pitch)};
            yaw = {std::min(yaw.from, heading.yaw), std::max(yaw.to, heading.yaw)};
        }
        if (channel.yawSpan.to - channel.yawSpan.from > 6.28) continue;  // holds a pole
        EXPECT_NEAR(channel.pitchSpan.from, pitch.from, 1e-4);
        EXPECT_NEAR(channel.pitchSpan.to, pitch.to, 1e-4);
        EXPECT_NEAR(channel.yawSpan.from, yaw.from, 1e-9);
        EXPECT_NEAR(channel.yawSpan.to, yaw.to, 1e-9);
    }
}

}  // namespace
