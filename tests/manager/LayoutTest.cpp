#include "manager/Layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "manager/layout/Image.h"
#include "sections/CameraConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"
#include "tests/support/Example.h"
#include "tests/support/Rig.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using XMLConfig::ChannelState;
using XMLConfig::ImageEdge;
using XMLConfig::Layout;
using XMLConfig::detail::degree;

Layout layoutOfExample(const std::string& from = "", const std::string& to = "") {
    const TemporaryFolder folder;
    return XMLConfig::layout(ConfigInfo(folder.write(L"dome.skorrax", exampleText(from, to))));
}

int percent(double share) { return static_cast<int>(std::lround(100.0 * share)); }

void expectRange(const XMLConfig::Interval& range, double from, double to, double within) {
    EXPECT_NEAR(range.from / degree, from, within);
    EXPECT_NEAR(range.to / degree, to, within);
}

TEST(Layout, ExampleHasItsFigures) {
    const Layout layout = layoutOfExample();
    ASSERT_EQ(layout.channels.size(), 4u);
    EXPECT_TRUE(layout.isComplete());
    expectRange(layout.channels[0].yawSpan, -105.3, -29.7, 0.05);
    expectRange(layout.channels[3].yawSpan, 29.7, 105.3, 0.05);
    for (const XMLConfig::Channel& channel : layout.channels) expectRange(channel.pitchSpan, -2.0, 48.0, 1e-9);
    ASSERT_EQ(layout.pairs.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        const XMLConfig::ChannelPair& pair = layout.pairs[i];
        EXPECT_EQ(pair.first, i);
        EXPECT_EQ(pair.second, i + 1);
        EXPECT_EQ(pair.ofFirst.edge, ImageEdge::Right);
        EXPECT_EQ(pair.ofSecond.edge, ImageEdge::Left);
        for (const XMLConfig::Overlap& overlap : {pair.ofFirst, pair.ofSecond}) {
            EXPECT_EQ(percent(overlap.middle), 33);
            EXPECT_EQ(percent(overlap.least), 22);
            EXPECT_EQ(percent(overlap.most), 41);
            EXPECT_TRUE(overlap.isFull);
            EXPECT_FALSE(overlap.isWhole());
        }
    }
}

TEST(Layout, ExampleCoversItsScreenByHalf) {
    const Layout layout = layoutOfExample();
    ASSERT_TRUE(layout.coverage);
    EXPECT_EQ(percent(layout.coverage->inNone), 22);
    EXPECT_EQ(percent(layout.coverage->inOne), 54);
    EXPECT_EQ(percent(layout.coverage->inTwo), 24);
    EXPECT_EQ(percent(layout.coverage->inMore), 0);
    ASSERT_EQ(layout.coverage->uncoveredBands.size(), 2u);
    expectRange(layout.coverage->uncoveredBands[0], -10.0, -7.0, 1e-6);
    expectRange(layout.coverage->uncoveredBands[1], 44.5, 60.0, 1e-6);
    for (const XMLConfig::UncoveredPart& part : layout.coverage->uncovered) EXPECT_FALSE(part.isHole);
    EXPECT_NEAR(*layout.channels[0].offScreen, 0.17, 0.01);
    EXPECT_EQ(layout.channels[1].offScreen, 0.0);
}

TEST(Layout, ExampleCarriesWhatTheChannelsAreHeldTo) {
    const Layout layout = layoutOfExample();
    const XMLConfig::Channel& second = layout.channels[1];
    EXPECT_EQ(second.id, L"VELDAR***00:0a:0b:0c:0d:02");
    EXPECT_EQ(second.name, L"Dome 2");
    EXPECT_EQ(second.cameras, (std::vector<std::wstring>{L"PGR***02:1c:00:51:00:a0", L"PGR***02:1c:00:51:00:a4"}));
    EXPECT_EQ(second.blends.at(ImageEdge::Left), 25.0);
    EXPECT_EQ(second.blends.at(ImageEdge::Right), 25.0);
    EXPECT_EQ(second.blends.at(ImageEdge::Top), 0.0);
    EXPECT_EQ(second.blends.at(ImageEdge::Bottom), 0.0);
    EXPECT_EQ(second.screenArea.left, 0.22);
    EXPECT_EQ(second.screenArea.right, 0.53);
    EXPECT_EQ(second.screenArea.top, 0.0);
    EXPECT_EQ(second.screenArea.bottom, 1.0);
    EXPECT_EQ(second.ponds.Left, 1);
    EXPECT_EQ(second.ponds.Top, 0);
    EXPECT_EQ(second.eyePoint, Point_3Dim<double>(0.0, 0.0, 1.65));
    EXPECT_EQ(layout.targetEyePoint, Point_3Dim<double>(0.0, 0.0, 1.65));
    EXPECT_EQ(layout.wantedAcross, 0.25);
    EXPECT_EQ(layout.wantedUpright, 0.0);
    ASSERT_EQ(layout.cameras.size(), 2u);
    EXPECT_EQ(layout.cameras[0].name, L"Dome left");
    EXPECT_EQ(layout.cameras[0].position, (Point_3Dim<double>(-1.8, -0.6, 1.2)));
}

TEST(Layout, ChannelTurnedAwayLeavesAGap) {
    const Layout layout = layoutOfExample("<Yaw>3.926990816987241e-01", "<Yaw>7.417649320975901e-01");  // by 20 degrees
    ASSERT_EQ(layout.rows.size(), 1u);
    ASSERT_EQ(layout.rows[0].gaps.size(), 1u);
    EXPECT_EQ(layout.rows[0].gaps[0].left, 1u);
    EXPECT_EQ(layout.rows[0].gaps[0].right, 2u);
    EXPECT_NEAR(layout.rows[0].gaps[0].width / degree, 5.0, 1e-9);
    EXPECT_EQ(layout.pairs[1].ofFirst.middle, 0.0);
    EXPECT_FALSE(layout.pairs[1].ofFirst.isFull);
    EXPECT_EQ(percent(layout.pairs[1].ofFirst.most), 16);
}

TEST(Layout, ChannelBesideTheScreenIsOffIt) {
    const Layout layout = layoutOfExample("<Yaw>1.178097245096172e+00", "<Yaw>1.963495408493621e+00");  // 112.5 degrees
    EXPECT_EQ(percent(*layout.channels[3].offScreen), 83);
}

TEST(Layout, NewDocumentHasNone) {
    const Layout layout = XMLConfig::layout(ConfigInfo());
    EXPECT_TRUE(layout.channels.empty());
    EXPECT_TRUE(layout.isComplete());
    EXPECT_TRUE(layout.pairs.empty());
    EXPECT_TRUE(layout.rows.empty());
    EXPECT_FALSE(layout.coverage);
}

TEST(Layout, LeavesTheDocumentAlone) {
    ConfigInfo document;
    put(document, {{}, {40.0}});
    document.setDirty(false);
    XMLConfig::layout(document);
    EXPECT_FALSE(document.isDirty());
    EXPECT_FALSE(document.doesSectionExist(L"Screen", L""));
}

TEST(Layout, ReadsWhatIsWanted) {
    ConfigInfo document;
    TargetLocatorConfig target(&document, L"");
    target.setHorizontalOverlap(0.1);
    target.setVerticalOverlap(0.2);
    SystemConfig(&document, nullptr, L"").setIsBlbUsed(true);
    document.setIntegerItem(L"Geometry", L"UserStackHeightOverride", 2, L"");
    const Layout layout = XMLConfig::layout(document);
    EXPECT_EQ(layout.wantedAcross, 0.1);
    EXPECT_EQ(layout.wantedUpright, 0.2);
    EXPECT_TRUE(layout.hasBlackLevel);
    EXPECT_EQ(layout.stackHeight, 2);
}

ChannelState stateOf(const RigChannel& channel) { return layoutOf({channel}).channels[0].state; }

TEST(Layout, TellsWhyAChannelIsNotUsable) {
    EXPECT_EQ(stateOf({}), ChannelState::Usable);
    EXPECT_EQ(stateOf({10.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0}), ChannelState::Missing);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, 30.0, -30.0, 20.0, -20.0}), ChannelState::EdgesSwapped);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -30.0, 30.0, -20.0, 20.0}), ChannelState::EdgesSwapped);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -30.0, 30.0, 20.0, 20.0}), ChannelState::EdgesSwapped);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -30.0, 89.0, 20.0, -20.0}), ChannelState::FieldTooWide);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -30.0, 88.9, 20.0, -20.0}), ChannelState::Usable);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -30.0, 30.0, 20.0, -95.0}), ChannelState::FieldTooWide);
    EXPECT_EQ(stateOf({361.0}), ChannelState::LooksLikeDegrees);
    EXPECT_EQ(stateOf({0.0, -67.5 / degree}), ChannelState::LooksLikeDegrees);
    EXPECT_EQ(stateOf({-360.0}), ChannelState::Usable);
    EXPECT_EQ(stateOf({std::numeric_limits<double>::quiet_NaN()}), ChannelState::NotANumber);
    EXPECT_EQ(stateOf({0.0, 0.0, 0.0, -std::numeric_limits<double>::infinity()}), ChannelState::NotANumber);
}

TEST(Layout, OnlyUsableChannelsAreCompared) {
    ConfigInfo document;
    put(document, {{}, {0.0, 0.0, 0.0, 30.0, -30.0, 20.0, -20.0}, {40.0}});
    putSphere(document, -90.0, 90.0, -30.0, 30.0);
    const Layout layout = XMLConfig::layout(document);
    EXPECT_FALSE(layout.isComplete());
    ASSERT_EQ(layout.pairs.size(), 1u);
    EXPECT_EQ(layout.pairs[0].first, 0u);
    EXPECT_EQ(layout.pairs[0].second, 2u);
    ASSERT_EQ(layout.rows.size(), 1u);
    EXPECT_EQ(layout.rows[0].channels, (std::vector<std::size_t>{0, 2}));
    EXPECT_FALSE(layout.channels[1].offScreen);
    EXPECT_TRUE(layout.channels[0].offScreen);
}

TEST(Layout, NeighboursLieInRowsFromLeftToRight) {
    const Layout layout = layoutOf({{40.0}, {0.0, 35.0}, {-40.0}, {0.0, 5.0}, {45.0, 35.0}});
    ASSERT_EQ(layout.rows.size(), 2u);
    EXPECT_EQ(layout.rows[0].channels, (std::vector<std::size_t>{2, 3, 0}));
    EXPECT_EQ(layout.rows[1].channels, (std::vector<std::size_t>{1, 4}));
    EXPECT_FALSE(layout.rows[0].isClosed);
    EXPECT_TRUE(layout.rows[0].gaps.empty());
}

TEST(Layout, RowsGoOnBehindTheViewer) {
    const Layout layout = layoutOf({{-170.0}, {170.0}, {120.0}});
    ASSERT_EQ(layout.rows.size(), 1u);
    EXPECT_EQ(layout.rows[0].channels, (std::vector<std::size_t>{2, 1, 0}));
    EXPECT_EQ(layout.pairs.size(), 2u);
}

TEST(Layout, RingWithAGapBeginsAfterIt) {
    std::vector<RigChannel> ring;
    for (int i = 0; i < 8; ++i) ring.push_back({45.0 * i, 0.0, 0.0, -25.0, 25.0, 20.0, -20.0});
    ring[3].right = 18.0;
    const Layout layout = layoutOf(ring);
    ASSERT_EQ(layout.rows.size(), 1u);
    EXPECT_TRUE(layout.rows[0].isClosed);
    EXPECT_EQ(layout.rows[0].channels.front(), 4u);
    EXPECT_EQ(layout.rows[0].channels.back(), 3u);
    ASSERT_EQ(layout.rows[0].gaps.size(), 1u);
    EXPECT_EQ(layout.rows[0].gaps[0].left, 3u);
    EXPECT_EQ(layout.rows[0].gaps[0].right, 4u);
    EXPECT_NEAR(layout.rows[0].gaps[0].width / degree, 2.0, 1e-9);
}

TEST(Layout, ChannelOverTheZenithSpansAFullTurn) {
    const XMLConfig::Channel channel = layoutOf({{30.0, 85.0}}).channels[0];
    expectRange(channel.yawSpan, -150.0, 210.0, 1e-9);
    EXPECT_NEAR(channel.pitchSpan.to / degree, 90.0, 1e-9);
    const XMLConfig::Channel below = layoutOf({{30.0, -85.0}}).channels[0];
    expectRange(below.yawSpan, -150.0, 210.0, 1e-9);
    EXPECT_NEAR(below.pitchSpan.from / degree, -90.0, 1e-9);
}

TEST(Layout, SpansGoOnBeyondHalfATurn) {
    expectRange(layoutOf({{170.0}}).channels[0].yawSpan, 140.0, 200.0, 1e-9);
    expectRange(layoutOf({{-190.0}}).channels[0].yawSpan, -220.0, -160.0, 1e-9);
}

TEST(Layout, SpansReachWhatTheEdgesReachBetweenTheCorners) {
    // Level, the upper edge bulges upwards; tilted up, the lower one does not bulge downwards.
    expectRange(layoutOf({{0.0, 0.0}}).channels[0].pitchSpan, -20.0, 20.0, 1e-9);
    const XMLConfig::Channel high = layoutOf({{0.0, 50.0}}).channels[0];
    EXPECT_NEAR(high.pitchSpan.to / degree, 70.0, 1e-9);
    EXPECT_LT(high.pitchSpan.from / degree, 30.0);
}

TEST(Layout, TouchOfCornersIsNoOverlap) {
    int touching = 0;
    for (double yaw = 50.0; yaw < 65.0; yaw += 0.25) {
        const Layout layout = layoutOf({{}, {yaw, 30.0}});
        const auto planes = XMLConfig::detail::planesOf(layout.channels[1]);
        const double area = XMLConfig::detail::overlapOn(layout.channels[0], planes).area;
        EXPECT_EQ(layout.pairs.empty(), area < XMLConfig::leastArea) << yaw;
        touching += area > 0.0 && area < XMLConfig::leastArea ? 1 : 0;
    }
    EXPECT_GT(touching, 0);
}

TEST(Layout, SmallChannelInsideALargeOneOverlaps) {
    const Layout layout = layoutOf({{}, {0.0, 0.0, 0.0, -1.0, 1.0, 0.5, -0.5}});
    ASSERT_EQ(layout.pairs.size(), 1u);
    EXPECT_LT(layout.pairs[0].ofFirst.area, XMLConfig::leastArea);
    EXPECT_NEAR(layout.pairs[0].ofSecond.area, 1.0, 1e-9);
    EXPECT_TRUE(layout.pairs[0].ofSecond.isWhole());
    EXPECT_FALSE(layout.pairs[0].ofFirst.isFull);
}

TEST(Layout, ThousandsOfEqualChannelsAreComparedWithFew) {
    const Layout layout = layoutOf(std::vector<RigChannel>(2000));
    EXPECT_LE(layout.pairs.size(), 2000 * XMLConfig::mostNeighbours / 2);
    EXPECT_TRUE(layout.channels[0].isCrowded);
    for (const XMLConfig::ChannelRow& row : layout.rows) EXPECT_TRUE(row.gaps.empty());
    EXPECT_FALSE(layoutOf({{}, {}}).channels[0].isCrowded);
}

TEST(Layout, DirectionsHaveAYawAndAPitch) {
    const XMLConfig::Heading ahead = XMLConfig::headingOf({0.0, 2.0, 0.0});
    EXPECT_EQ(ahead.yaw, 0.0);
    EXPECT_EQ(ahead.pitch, 0.0);
    EXPECT_NEAR(XMLConfig::headingOf({1.0, 1.0, 0.0}).yaw / degree, 45.0, 1e-9);
    EXPECT_NEAR(XMLConfig::headingOf({0.0, 1.0, 1.0}).pitch / degree, 45.0, 1e-9);
    EXPECT_NEAR(XMLConfig::headingOf({-1.0, -1.0, 0.0}, 200.0 * degree).yaw / degree, 225.0, 1e-9);
}

TEST(Layout, OutlineGoesRoundTheImage) {
    const XMLConfig::Channel channel = layoutOf({{}}).channels[0];
    const auto outline = XMLConfig::outlineOf(channel, {0.0, 1.0, 1.0, 0.0}, 24);
    ASSERT_EQ(outline.size(), 96u);
    EXPECT_NEAR(XMLConfig::headingOf(outline[0]).yaw / degree, -30.0, 1e-9);
    EXPECT_LT(outline[0].z, 0.0);
    EXPECT_NEAR(XMLConfig::headingOf(outline[24]).yaw / degree, 30.0, 1e-9);
    EXPECT_GT(outline[48].z, 0.0);
    EXPECT_NEAR(XMLConfig::headingOf(outline[60]).pitch / degree, 20.0, 1e-9);
}

}  // namespace
