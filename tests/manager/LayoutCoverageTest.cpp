#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "manager/Layout.h"
#include "manager/layout/Grid.h"
#include "manager/layout/Image.h"
#include "manager/layout/Parts.h"
#include "tests/support/Rig.h"

namespace {

using XMLConfig::Coverage;
using XMLConfig::Layout;
using XMLConfig::detail::degree;
using XMLConfig::detail::dot;
using XMLConfig::detail::minus;

double sumOf(const Coverage& coverage) { return coverage.inNone + coverage.inOne + coverage.inTwo + coverage.inMore; }

TEST(Coverage, TiledSphereIsWhole) {
    ConfigInfo document;
    put(document, cube());
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    const Layout layout = XMLConfig::layout(document);
    ASSERT_TRUE(layout.coverage);
    EXPECT_EQ(layout.coverage->inNone, 0.0);
    EXPECT_NEAR(sumOf(*layout.coverage), 1.0, 1e-9);
    EXPECT_TRUE(layout.coverage->uncovered.empty());
    EXPECT_TRUE(layout.coverage->uncoveredBands.empty());
    for (const XMLConfig::Channel& channel : layout.channels) EXPECT_EQ(channel.offScreen, 0.0);
}

TEST(Coverage, TiledSphereIsWholeFromAnyEyePoint) {
    ConfigInfo document;
    const std::vector<RigChannel> sides = cube();
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const std::wstring id = std::to_wstring(i + 1);
        ProjectorConfig(&document, id).setEyePoint({1.5, -2.0, 0.7});
        put(document, id, sides[i]);
    }
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    EXPECT_EQ(XMLConfig::layout(document).coverage->inNone, 0.0);
}

using XMLConfig::detail::Surface;

/// How many of rays spread evenly over the image miss the surface.
int countMisses(const XMLConfig::Channel& channel, const Surface::Rays& rays) {
    constexpr int points = 16;
    const XMLConfig::EdgeValues& edge = channel.tangents;
    int misses = 0;
    for (int row = 0; row < points; ++row)
        for (int column = 0; column < points; ++column) {
            const double x = edge.left + (edge.right - edge.left) * (column + 0.5) / points;
            const double y = edge.bottom + (edge.top - edge.bottom) * (row + 0.5) / points;
            if (!rays.meetIt(XMLConfig::detail::directionAt(channel, x, y))) ++misses;
        }
    return misses;
}

TEST(Coverage, RaysSaidToBeAlikeAllMeetOrAllMiss) {
    std::mt19937 random(20);
    const auto number = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    int all = 0;
    int none = 0;
    for (int i = 0; i < 4000; ++i) {
        XMLConfig::LayoutScreen screen;
        screen.shape = i % 2 == 0 ? BaseConfig::SHAPE_SPHERE : BaseConfig::SHAPE_CYLINDER;
        screen.radius = number(1.0, 9.0);
        screen.centre = {number(-2.0, 2.0), number(-2.0, 2.0), number(-2.0, 2.0)};
        screen.theta = {-180.0 * degree, (i % 5 == 0 ? 90.0 : 180.0) * degree};
        screen.phi = {i % 3 == 0 ? -90.0 * degree : number(-60.0, 0.0) * degree, number(10.0, 90.0) * degree};
        XMLConfig::Channel channel;
        channel.yaw = number(-180.0, 180.0) * degree;
        channel.pitch = number(-90.0, 90.0) * degree;
        channel.roll = number(-180.0, 180.0) * degree;
        const double half = number(1.0, 40.0) * degree;
        channel.edges = {-half, half, half, -half};
        const double reach = screen.radius * (i % 7 == 0 ? 0.9 : 0.3);
        channel.eyePoint = {screen.centre.x + number(-reach, reach), screen.centre.y + number(-reach, reach),
                            screen.centre.z + number(-reach, reach)};
        XMLConfig::detail::completeChannel(channel);
        const auto surface = Surface::of(screen);
        ASSERT_TRUE(surface);
        const Surface::Rays rays(*surface, channel.eyePoint);
        const std::optional<bool> areAlike = rays.meetItAlike(channel.pitchSpan);
        if (!areAlike) continue;
        ASSERT_EQ(countMisses(channel, rays), *areAlike ? 0 : 256) << i;
        ++(*areAlike ? all : none);
    }
    EXPECT_GT(all, 200);
    EXPECT_GT(none, 200);
}

TEST(Coverage, EachSideOfACubeIsASixth) {
    for (const RigChannel& side : cube()) {
        ConfigInfo document;
        put(document, {side});
        putSphere(document, -180.0, 180.0, -90.0, 90.0);
        const Coverage coverage = *XMLConfig::layout(document).coverage;
        EXPECT_NEAR(coverage.inOne, 1.0 / 6.0, 0.001);
        EXPECT_NEAR(coverage.inNone, 5.0 / 6.0, 0.001);
    }
}

TEST(Coverage, CountsHowManyChannelsMeet) {
    ConfigInfo document;
    const RigChannel half{0.0, 0.0, 0.0, -45.0, 45.0, 45.0, -45.0};
    put(document, {half, half, half, half});
    putSphere(document, -20.0, 20.0, -20.0, 20.0);
    const Layout layout = XMLConfig::layout(document);
    EXPECT_NEAR(layout.coverage->inMore, 1.0, 1e-9);
    ConfigInfo two;
    put(two, {half, half});
    putSphere(two, -20.0, 20.0, -20.0, 20.0);
    EXPECT_NEAR(XMLConfig::layout(two).coverage->inTwo, 1.0, 1e-9);
}

TEST(Coverage, SideThatIsMissingIsAHole) {
    ConfigInfo document;
    std::vector<RigChannel> sides = cube();
    sides.erase(sides.begin());  // ahead
    put(document, sides);
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    const Coverage coverage = *XMLConfig::layout(document).coverage;
    ASSERT_EQ(coverage.uncovered.size(), 1u);
    const XMLConfig::UncoveredPart& hole = coverage.uncovered[0];
    EXPECT_TRUE(hole.isHole);
    EXPECT_NEAR(hole.share, coverage.inNone, 1e-12);
    EXPECT_NEAR(hole.theta.from / degree, -45.0, 0.5);
    EXPECT_NEAR(hole.theta.to / degree, 45.0, 0.5);
    EXPECT_NEAR(hole.phi.from / degree, -45.0, 0.5);
    EXPECT_NEAR(hole.phi.to / degree, 45.0, 0.5);
    EXPECT_EQ(hole.patches.size(), static_cast<std::size_t>(std::lround((hole.phi.to - hole.phi.from) / degree * 2.0)));
    EXPECT_TRUE(coverage.uncoveredBands.empty());
}

TEST(Coverage, HoleBehindTheViewerIsOnePart) {
    ConfigInfo document;
    std::vector<RigChannel> sides = cube();
    sides.erase(sides.begin() + 2);  // behind
    put(document, sides);
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    const Coverage coverage = *XMLConfig::layout(document).coverage;
    ASSERT_EQ(coverage.uncovered.size(), 1u);
    EXPECT_TRUE(coverage.uncovered[0].isHole);
}

TEST(Coverage, HoleAtThePoleIsAHole) {
    ConfigInfo document;
    std::vector<RigChannel> sides = cube();
    sides.erase(sides.begin() + 4);  // above
    put(document, sides);
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    const Coverage whole = *XMLConfig::layout(document).coverage;
    ASSERT_EQ(whole.uncovered.size(), 1u);
    EXPECT_TRUE(whole.uncovered[0].isHole);
    putSphere(document, -180.0, 180.0, -90.0, 80.0);
    const Coverage cut = *XMLConfig::layout(document).coverage;
    ASSERT_EQ(cut.uncovered.size(), 1u);
    EXPECT_FALSE(cut.uncovered[0].isHole);
    EXPECT_TRUE(cut.uncovered[0].patches.empty());
    ASSERT_EQ(cut.uncoveredBands.size(), 1u);
    EXPECT_NEAR(cut.uncoveredBands[0].to / degree, 80.0, 1e-9);
}

TEST(Coverage, CylinderIsCoveredAllTheWayUp) {
    ConfigInfo document;
    put(document, {{0.0, 0.0, 0.0, -30.0, 30.0, 60.0, -60.0}});
    putSphere(document, -90.0, 90.0, -90.0, 90.0);
    ScreenConfig screen(&document, nullptr, L"");
    screen.setShape(BaseConfig::SHAPE_CYLINDER);
    screen.setHeight(4.0);
    const Layout layout = XMLConfig::layout(document);
    ASSERT_TRUE(layout.coverage);
    EXPECT_NEAR(layout.coverage->inOne, 1.0 / 3.0, 1e-9);
    // Above and below the cylinder: atan(2 / 5) of the field of 60 degrees, in its middle.
    EXPECT_NEAR(*layout.channels[0].offScreen, 1.0 - 0.4 * 1.1 / std::tan(60.0 * degree), 0.05);
    EXPECT_NEAR(limitsOf(layout.screen)->phi.to, std::atan(0.4), 1e-12);
}

TEST(Coverage, CylinderWithoutHeightHasTheAnglesOfASphere) {
    ConfigInfo document;
    put(document, {{}});
    putSphere(document, -90.0, 90.0, -10.0, 20.0);
    ScreenConfig(&document, nullptr, L"").setShape(BaseConfig::SHAPE_CYLINDER);
    const Layout layout = XMLConfig::layout(document);
    ASSERT_TRUE(layout.coverage);
    EXPECT_NEAR(limitsOf(layout.screen)->phi.to / degree, 20.0, 1e-9);
    EXPECT_NEAR(limitsOf(layout.screen)->phi.from / degree, -10.0, 1e-9);
}

TEST(Coverage, ScreenWithoutAnglesOrSizeHasNone) {
    ConfigInfo document;
    put(document, {{}});
    ScreenConfig screen(&document, nullptr, L"");
    EXPECT_FALSE(XMLConfig::layout(document).coverage);
    putSphere(document, -90.0, 90.0, -10.0, 20.0);
    EXPECT_TRUE(XMLConfig::layout(document).coverage);
    for (const wchar_t* shape : {L"Flat", L"VRML", L"Toroid"}) {
        screen.setShape(shape);
        EXPECT_FALSE(XMLConfig::layout(document).coverage) << shape;
        EXPECT_FALSE(XMLConfig::layout(document).channels[0].offScreen);
        EXPECT_FALSE(limitsOf(XMLConfig::layout(document).screen));
    }
    screen.setShape(BaseConfig::SHAPE_SPHERE);
    screen.setRadius(0.0);
    EXPECT_FALSE(XMLConfig::layout(document).coverage);
    putSphere(document, 90.0, -90.0, -10.0, 20.0);
    EXPECT_FALSE(XMLConfig::layout(document).coverage);
    putSphere(document, -90.0 / degree, 90.0 / degree, -10.0, 20.0);  // degrees in place of radians
    EXPECT_FALSE(XMLConfig::layout(document).coverage);
}

TEST(Coverage, MoreThanASphereIsASphere) {
    ConfigInfo document;
    put(document, cube());
    putSphere(document, -200.0, 200.0, -100.0, 100.0);
    const Layout layout = XMLConfig::layout(document);
    ASSERT_TRUE(layout.coverage);
    EXPECT_EQ(layout.coverage->inNone, 0.0);
    EXPECT_NEAR(limitsOf(layout.screen)->phi.to / degree, 90.0, 1e-9);
}

/// How many of the channels show each point, one after the other.
std::vector<int> countedOneByOne(const XMLConfig::detail::Surface& surface, const XMLConfig::detail::Grid& grid,
                                 const std::vector<XMLConfig::Channel>& channels) {
    std::vector<int> counts;
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column) {
            const double around = (grid.around(column) + grid.around(column + 1)) / 2.0;
            const double height = (surface.heightOf(grid.phi(row)) + surface.heightOf(grid.phi(row + 1))) / 2.0;
            int count = 0;
            for (const XMLConfig::Channel& channel : channels) {
                const auto planes = XMLConfig::detail::planesOf(channel);
                const auto direction = minus(surface.pointAt(around, height), channel.eyePoint);
                const auto isInside = [&](const auto& normal) { return dot(normal, direction) >= 0.0; };
                count += std::all_of(planes.begin(), planes.end(), isInside) ? 1 : 0;
            }
            counts.push_back(std::min(count, 3));
        }
    return counts;
}

TEST(Coverage, BlocksGiveWhatPointsOneByOneGive) {
    for (const wchar_t* shape : {L"Sphere", L"Cylinder"}) {
        ConfigInfo document;
        put(document, {{10.0, 20.0, 30.0}, {-170.0, 0.0, 5.0}, {50.0, 80.0}, {12.0, 24.0, 0.0, -30.0, 20.0, 25.0, -35.0}});
        ProjectorConfig(&document, L"1").setEyePoint({1.0, 2.0, -1.5});
        putSphere(document, -180.0, 180.0, -70.0, 90.0);
        ScreenConfig screen(&document, nullptr, L"");
        screen.setShape(shape);
        screen.setHeight(6.3);
        const Layout layout = XMLConfig::layout(document);
        const auto surface = *XMLConfig::detail::Surface::of(layout.screen);
        XMLConfig::detail::Grid grid(surface);
        for (const XMLConfig::Channel& channel : layout.channels) grid.add(channel);
        const std::vector<int> expected = countedOneByOne(surface, grid, layout.channels);
        int different = 0;
        for (int row = 0; row < grid.rows(); ++row)
            for (int column = 0; column < grid.columns(); ++column)
                different +=
                    grid.countAt(column, row) == expected[static_cast<std::size_t>(row * grid.columns() + column)] ? 0 : 1;
        EXPECT_LE(different, 2) << shape;  // points that the rounding puts on one side or the other
        EXPECT_GT(std::count(expected.begin(), expected.end(), 2), 0) << shape;
    }
}

TEST(Coverage, OutlineOfTheScreenIsSeenFromTheEye) {
    ConfigInfo document;
    putSphere(document, -90.0, 90.0, 0.0, 60.0);
    const XMLConfig::LayoutScreen screen = XMLConfig::layout(document).screen;
    const auto outline = outlineOf(screen, {0.0, 0.0, 0.0}, *limitsOf(screen), 10);
    ASSERT_EQ(outline.size(), 40u);
    EXPECT_NEAR(XMLConfig::headingOf(outline[0]).yaw / degree, -90.0, 1e-9);
    EXPECT_NEAR(XMLConfig::headingOf(outline[20]).pitch / degree, 60.0, 1e-9);
    const auto below = outlineOf(screen, {0.0, 0.0, -1.0}, *limitsOf(screen), 10);
    EXPECT_GT(XMLConfig::headingOf(below[0]).pitch, 0.1);
}

}  // namespace
