#include "store/ValueTypes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "tests/support/Matrices.h"

namespace {

static_assert(std::is_same_v<decltype(Point_2Dim<int>::x), int>);
static_assert(std::is_same_v<decltype(Point_3Dim<double>::z), double>);
static_assert(std::is_same_v<decltype(Viewport::ResolutionX), std::int32_t>);
static_assert(std::is_same_v<decltype(Viewport::ResolutionY), std::int32_t>);
static_assert(std::is_same_v<decltype(BlackLevelBlending::PondOfMirrors::Top), std::uint8_t>);
static_assert(std::is_same_v<decltype(BlackLevelBlending::PondOfMirrors::Bottom), std::uint8_t>);
static_assert(std::is_same_v<decltype(BlackLevelBlending::PondOfMirrors::Left), std::uint8_t>);
static_assert(std::is_same_v<decltype(BlackLevelBlending::PondOfMirrors::Right), std::uint8_t>);
static_assert(std::is_base_of_v<Viewport, Frustum>);
static_assert(std::has_virtual_destructor_v<Viewport>);
static_assert(std::has_virtual_destructor_v<Frustum>);
static_assert(std::is_copy_constructible_v<Frustum> && std::is_copy_assignable_v<Frustum>);

void expectNear(const Matrix3& actual, const Matrix3& expected) {
    for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-12) << "element " << i;
}

Matrix3 aboutZ(double a) { return {std::cos(a), -std::sin(a), 0, std::sin(a), std::cos(a), 0, 0, 0, 1}; }
Matrix3 aboutX(double a) { return {1, 0, 0, 0, std::cos(a), -std::sin(a), 0, std::sin(a), std::cos(a)}; }
Matrix3 aboutY(double a) { return {std::cos(a), 0, std::sin(a), 0, 1, 0, -std::sin(a), 0, std::cos(a)}; }

Viewport turned(double yaw, double pitch, double roll) {
    return Viewport({1, 2, 3}, {yaw, pitch, roll}, -0.1, 0.2, -0.3, 0.4, 1920, 1080);
}

constexpr Matrix3 identity{1, 0, 0, 0, 1, 0, 0, 0, 1};

}  // namespace

TEST(Points, AreZeroWhenNew) {
    const Point_2Dim<int> whole;
    const Point_2Dim<double> flat;
    const Point_3Dim<double> solid;
    EXPECT_EQ(whole.x, 0);
    EXPECT_EQ(whole.y, 0);
    EXPECT_EQ(flat.x, 0.0);
    EXPECT_EQ(flat.y, 0.0);
    EXPECT_EQ(solid.x, 0.0);
    EXPECT_EQ(solid.y, 0.0);
    EXPECT_EQ(solid.z, 0.0);
}

TEST(Points, KeepTheOrderOfTheirFields) {
    const Point_2Dim<int> flat(3, -4);
    EXPECT_EQ(flat.x, 3);
    EXPECT_EQ(flat.y, -4);
    const Point_3Dim<double> solid(1.5, 2.5, 3.5);
    EXPECT_EQ(solid.x, 1.5);
    EXPECT_EQ(solid.y, 2.5);
    EXPECT_EQ(solid.z, 3.5);
}

TEST(Points, CompareByEveryField) {
    EXPECT_TRUE(Point_2Dim<int>(1, 2) == Point_2Dim<int>(1, 2));
    EXPECT_TRUE(Point_2Dim<int>(1, 2) != Point_2Dim<int>(2, 2));
    EXPECT_TRUE(Point_2Dim<int>(1, 2) != Point_2Dim<int>(1, 3));
    EXPECT_FALSE(Point_2Dim<int>(1, 2) != Point_2Dim<int>(1, 2));
    EXPECT_TRUE(Point_3Dim<double>(1, 2, 3) == Point_3Dim<double>(1, 2, 3));
    EXPECT_TRUE(Point_3Dim<double>(1, 2, 3) != Point_3Dim<double>(0, 2, 3));
    EXPECT_TRUE(Point_3Dim<double>(1, 2, 3) != Point_3Dim<double>(1, 0, 3));
    EXPECT_TRUE(Point_3Dim<double>(1, 2, 3) != Point_3Dim<double>(1, 2, 0));
}

TEST(MatrixType, IsZeroWhenNewAndHasAnIdentity) {
    const Matrix<double, 4> zero;
    const auto one = Matrix<double, 4>::identity();
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(zero.m[row][column], 0.0);
            EXPECT_EQ(one.m[row][column], row == column ? 1.0 : 0.0);
        }
    }
    EXPECT_FALSE(zero == one);
    Matrix<double, 4> copy = one;
    EXPECT_TRUE(copy == one);
    copy.m[3][1] = 7;
    EXPECT_FALSE(copy == one);
}

TEST(ViewportType, IsAllZerosWhenNew) {
    const Viewport viewport;
    EXPECT_EQ(viewport.Offset, Point_3Dim<double>());
    EXPECT_EQ(viewport.RotationYPR, Point_3Dim<double>());
    EXPECT_EQ(viewport.FOVLeft, 0.0);
    EXPECT_EQ(viewport.FOVRight, 0.0);
    EXPECT_EQ(viewport.FOVTop, 0.0);
    EXPECT_EQ(viewport.FOVBottom, 0.0);
    EXPECT_EQ(viewport.ResolutionX, 0);
    EXPECT_EQ(viewport.ResolutionY, 0);
    EXPECT_EQ(viewport.RotationMatrix, Matrix3{});
    EXPECT_EQ(viewport.InverseRotationMatrix, Matrix3{});
}

TEST(ViewportType, KeepsItsEightFields) {
    const Viewport viewport({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10, 11, 12);
    EXPECT_EQ(viewport.Offset, Point_3Dim<double>(1, 2, 3));
    EXPECT_EQ(viewport.RotationYPR, Point_3Dim<double>(4, 5, 6));
    EXPECT_EQ(viewport.FOVLeft, 7);
    EXPECT_EQ(viewport.FOVRight, 8);
    EXPECT_EQ(viewport.FOVTop, 9);
    EXPECT_EQ(viewport.FOVBottom, 10);
    EXPECT_EQ(viewport.ResolutionX, 11);
    EXPECT_EQ(viewport.ResolutionY, 12);
}

TEST(ViewportType, HasIdentityMatricesWithoutRotation) {
    expectNear(turned(0, 0, 0).RotationMatrix, identity);
    expectNear(turned(0, 0, 0).InverseRotationMatrix, identity);
}

TEST(ViewportType, TurnsAboutZByMinusTheYaw) {
    expectNear(turned(0.3, 0, 0).RotationMatrix,
               {std::cos(0.3), std::sin(0.3), 0, -std::sin(0.3), std::cos(0.3), 0, 0, 0, 1});
}

TEST(ViewportType, TurnsAboutXByThePitch) {
    expectNear(turned(0, 0.3, 0).RotationMatrix,
               {1, 0, 0, 0, std::cos(0.3), -std::sin(0.3), 0, std::sin(0.3), std::cos(0.3)});
}

TEST(ViewportType, TurnsAboutYByTheRoll) {
    expectNear(turned(0, 0, 0.3).RotationMatrix,
               {std::cos(0.3), 0, std::sin(0.3), 0, 1, 0, -std::sin(0.3), 0, std::cos(0.3)});
}

TEST(ViewportType, AppliesTheYawLast) {
    for (const auto& angles : {Matrix3{0.1, 0.2, 0.3}, Matrix3{-1.2, 2.5, 0.7}, Matrix3{3.1, -0.4, -2.2}}) {
        const Viewport viewport = turned(angles[0], angles[1], angles[2]);
        expectNear(viewport.RotationMatrix, product(product(aboutZ(-angles[0]), aboutX(angles[1])), aboutY(angles[2])));
        expectNear(product(viewport.RotationMatrix, viewport.InverseRotationMatrix), identity);
        expectNear(product(viewport.InverseRotationMatrix, viewport.RotationMatrix), identity);
    }
}

TEST(ViewportType, InvertsARotationThatNeedsPivoting) {
    const double quarter = std::acos(0.0);
    const Viewport viewport = turned(quarter, quarter, 0);
    expectNear(product(viewport.RotationMatrix, viewport.InverseRotationMatrix), identity);
}

TEST(FrustumType, IsAllZerosWhenNew) {
    const Frustum frustum;
    EXPECT_EQ(frustum.TanLeft, 0.0);
    EXPECT_EQ(frustum.TanTop, 0.0);
    EXPECT_EQ(frustum.Width, 0.0);
    EXPECT_EQ(frustum.Height, 0.0);
    EXPECT_EQ(frustum.RotationMatrix, Matrix3{});
    EXPECT_EQ(frustum.InverseRotationMatrix, Matrix3{});
}

TEST(FrustumType, DerivesItsExtentsFromTheAngles) {
    const Frustum frustum({0, 0, 0}, {0, 0, 0}, -0.5, 0.5, -0.25, 0.75, 100, 200);
    EXPECT_DOUBLE_EQ(frustum.TanLeft, std::tan(-0.5));
    EXPECT_DOUBLE_EQ(frustum.TanTop, std::tan(-0.25));
    EXPECT_DOUBLE_EQ(frustum.Width, 2 * std::tan(0.5));
    EXPECT_DOUBLE_EQ(frustum.Height, std::tan(0.75) - std::tan(-0.25));
}

TEST(FrustumType, KeepsItsDerivedValuesWhenCopied) {
    const Frustum original({1, 2, 3}, {0.1, 0.2, 0.3}, -0.5, 0.4, -0.3, 0.2, 100, 200);
    const Frustum copy(original);
    const Frustum rebuilt(original.Offset, original.RotationYPR, original.FOVLeft, original.FOVRight, original.FOVTop,
                          original.FOVBottom, original.ResolutionX, original.ResolutionY);
    for (const Frustum& other : {copy, rebuilt}) {
        EXPECT_EQ(other.TanLeft, original.TanLeft);
        EXPECT_EQ(other.TanTop, original.TanTop);
        EXPECT_EQ(other.Width, original.Width);
        EXPECT_EQ(other.Height, original.Height);
        EXPECT_EQ(other.RotationMatrix, original.RotationMatrix);
        EXPECT_EQ(other.InverseRotationMatrix, original.InverseRotationMatrix);
    }
}

TEST(PondOfMirrorsType, HoldsEveryEightBitValue) {
    BlackLevelBlending::PondOfMirrors pond;
    EXPECT_EQ(pond.Top + pond.Bottom + pond.Left + pond.Right, 0);
    for (int value = 0; value <= 255; ++value) {
        const auto byte = static_cast<std::uint8_t>(value);
        pond = {byte, 1, 2, 3};
        EXPECT_EQ(pond.Top, value);
    }
    EXPECT_EQ(pond.Bottom, 1);
    EXPECT_EQ(pond.Left, 2);
    EXPECT_EQ(pond.Right, 3);
}
