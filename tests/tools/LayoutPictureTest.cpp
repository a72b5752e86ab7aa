#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <nlohmann/json.hpp>
#include <set>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "store/ConfigInfo.h"
#include "tests/support/Example.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/Outline.h"
#include "tests/support/Rig.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using XMLConfig::tests::OutlineNode;

class LayoutPicture : public ToolFiles {
protected:
    std::string exampleWithAGap() const { return example("<Yaw>3.926990816987241e-01", "<Yaw>7.417649320975901e-01"); }
    std::string pictureOf(const std::string& file) const {
        const ToolRun run = runTool({"layout", "--svg", path("picture.svg"), file});
        EXPECT_EQ(run.status, 0) << run.errors;
        return folder.read(L"picture.svg");
    }
};

/// The shapes of a picture that have this class among theirs. Throws where the picture is not well-formed.
std::vector<OutlineNode> shapesOf(const std::string& picture, const std::wstring& className) {
    std::vector<OutlineNode> found;
    std::vector<OutlineNode> waiting = XMLConfig::tests::outline(*ConfigInfo::fromText(picture, L"picture"));
    while (!waiting.empty()) {
        const OutlineNode node = waiting.back();
        waiting.pop_back();
        waiting.insert(waiting.end(), node.children.begin(), node.children.end());
        for (const auto& [name, value] : node.attributes)
            if (name == L"class" && (L" " + value + L" ").find(L" " + className + L" ") != std::wstring::npos)
                found.push_back(node);
    }
    return found;
}

std::wstring titleOf(const OutlineNode& shape) {
    for (const OutlineNode& child : shape.children)
        if (child.name == L"title") return child.text;
    return L"";
}

TEST_F(LayoutPicture, OfASoundDomeIsThatOfTheDocuments) {
    EXPECT_TRUE(matchesGolden("docs/pictures/dome.svg", pictureOf(example())));
}

TEST_F(LayoutPicture, OfADomeWithAGapIsThatOfTheDocuments) {
    EXPECT_TRUE(matchesGolden("docs/pictures/dome-with-a-gap.svg", pictureOf(exampleWithAGap())));
}

TEST_F(LayoutPicture, GoesToStandardOutputAlone) {
    const std::string picture = pictureOf(example());
    expectRun(runTool({"layout", "--svg", "-", example()}), 0, picture, "");
    expectRun(runToolReading(exampleText(), {"layout", "--svg", "-", "-"}), 0, picture, "");
    const ToolRun both = runTool({"layout", "--svg", "-", "--json", example()});
    EXPECT_EQ(both.status, 2);
    EXPECT_EQ(nlohmann::json::parse(both.output)["error"], "--svg - and --json exclude each other on standard output");
}

TEST_F(LayoutPicture, ReachesAFileOfALongName) {
    const std::string picture = pictureOf(example());
    std::filesystem::path below = folder.path();
    for (int i = 0; i < 5; ++i) below /= std::string(60, 'f');
    ASSERT_TRUE(XMLConfig::detail::makeFolders(wideOf(below)));
    const std::filesystem::path file = below / "dome.skorrax";
    const std::filesystem::path drawn = below / "dome.svg";
    XMLConfig::detail::replaceFile(wideOf(file), exampleText());
    const ToolRun run = runTool({"layout", "--json", "--svg", drawn.u8string(), file.u8string()});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(nlohmann::json::parse(run.output)["file"], file.u8string());
    EXPECT_EQ(XMLConfig::detail::readWholeFile(wideOf(drawn)), picture);
    const ToolRun refused = runTool({"layout", "--svg", file.u8string(), file.u8string()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("is the configuration; the picture would replace it"));
    EXPECT_EQ(XMLConfig::detail::readWholeFile(wideOf(file)), exampleText());
    EXPECT_TRUE(XMLConfig::detail::removeFile(wideOf(drawn)));
    EXPECT_TRUE(XMLConfig::detail::removeFile(wideOf(file)));
}

TEST_F(LayoutPicture, HasOneShapeAChannelWithItsTitle) {
    const std::string picture = pictureOf(example());
    const auto channels = shapesOf(picture, L"channel");
    ASSERT_EQ(channels.size(), 4u);
    for (const OutlineNode& channel : channels) {
        EXPECT_EQ(channel.name, L"path");
        EXPECT_EQ(titleOf(channel).rfind(L"Dome ", 0), 0u);
        EXPECT_NE(titleOf(channel).find(L"VELDAR***00:0a:0b:0c:0d:"), std::wstring::npos);
    }
    EXPECT_EQ(shapesOf(picture, L"blend").size(), 6u);
    EXPECT_EQ(shapesOf(picture, L"screen").size(), 1u);
    EXPECT_EQ(shapesOf(picture, L"overlap").size(), 3u);
    EXPECT_EQ(shapesOf(picture, L"camera").size(), 2u);
    EXPECT_EQ(shapesOf(picture, L"link").size(), 6u);
    EXPECT_EQ(shapesOf(picture, L"finding").size(), 0u);
    EXPECT_EQ(titleOf(shapesOf(picture, L"screen")[0]), L"Sphere, radius 5.2 m, 22 % in no channel");
}

TEST_F(LayoutPicture, NamesTheDevicesOfEachShapeByTheirIDs) {
    const std::string picture = pictureOf(example());
    const auto holdsID = [](const std::wstring& title, const std::wstring& beginning) {
        return title.find(L"\n" + beginning) != std::wstring::npos;
    };
    for (const wchar_t* shape : {L"channel", L"blend", L"sight", L"overlap", L"link"})
        for (const OutlineNode& node : shapesOf(picture, shape))
            EXPECT_TRUE(holdsID(titleOf(node), L"VELDAR***00:0a:0b:0c:0d:")) << shape << titleOf(node);
    for (const wchar_t* shape : {L"camera", L"link"})
        for (const OutlineNode& node : shapesOf(picture, shape))
            EXPECT_TRUE(holdsID(titleOf(node), L"PGR***02:1c:00:51:00:a")) << shape << titleOf(node);
    EXPECT_EQ(shapesOf(picture, L"sight").size(), 8u);
}

TEST_F(LayoutPicture, CanBeReadWhereNamesHoldControls) {
    const std::string file = fileOf(
        replaced(replaced(exampleText(), "version=\"1.0\"", "version=\"1.1\""), "<Name>Dome 1<", "<Name>D&#1;&#27;1<"));
    const std::string picture = pictureOf(file);
    EXPECT_EQ(shapesOf(picture, L"channel").size(), 4u);
    EXPECT_THAT(picture, HasSubstr("D\\u0001\\u001b1"));
}

TEST_F(LayoutPicture, HoldsNoScriptNorAnythingFromOutside) {
    const std::string picture = pictureOf(example());
    EXPECT_EQ(picture.find("<script"), std::string::npos);
    EXPECT_EQ(picture.find("href"), std::string::npos);
    EXPECT_EQ(picture.find("@import"), std::string::npos);
    EXPECT_EQ(picture.find(" width=\"100"), std::string::npos);
    EXPECT_THAT(picture, HasSubstr("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox="));
    EXPECT_THAT(picture, HasSubstr("@media(prefers-color-scheme:dark)"));
}

TEST_F(LayoutPicture, ShowsAGap) {
    const auto gaps = shapesOf(pictureOf(exampleWithAGap()), L"gap");
    ASSERT_EQ(gaps.size(), 1u);
    EXPECT_EQ(titleOf(gaps[0]), L"5° gap between Dome 2 and Dome 3\nVELDAR***00:0a:0b:0c:0d:02\nVELDAR***00:0a:0b:0c:0d:03");
}

TEST_F(LayoutPicture, ShowsAGapBetweenTheEdgesThatFaceIt) {
    const auto beginOfGap = [this](double roll) {
        ConfigInfo document;
        put(document, {{-40.0, 0.0, roll, -25.0, 25.0, 25.0, -25.0}, {40.0, 0.0, roll, -25.0, 25.0, 25.0, -25.0}});
        const auto gaps = shapesOf(pictureOf(fileOf(document)), L"gap");
        if (gaps.size() != 1) return Point_2Dim<int>(0, 0);
        std::wstring path;
        for (const auto& [name, value] : gaps[0].attributes)
            if (name == L"d") path = value;  // "M-1500 2500l..."
        return Point_2Dim<int>(std::stoi(path.substr(1)), std::stoi(path.substr(path.find(L' ') + 1)));
    };
    const Point_2Dim<int> upright = beginOfGap(0.0);
    EXPECT_LT(upright.x, 0);
    for (const double roll : {90.0, 180.0, -90.0, 270.0, -180.0}) {
        EXPECT_NEAR(beginOfGap(roll).x, upright.x, 1) << roll;
        EXPECT_NEAR(beginOfGap(roll).y, upright.y, 1) << roll;
    }
}

TEST_F(LayoutPicture, HatchesAHole) {
    ConfigInfo document;
    std::vector<RigChannel> sides = cube();
    sides.erase(sides.begin());
    put(document, sides);
    putSphere(document, -180.0, 180.0, -90.0, 90.0);
    const std::string picture = pictureOf(fileOf(document));
    const auto holes = shapesOf(picture, L"hole");
    ASSERT_EQ(holes.size(), 1u);
    EXPECT_EQ(titleOf(holes[0]), L"17 % of the screen, in no channel");
    EXPECT_EQ(shapesOf(picture, L"channel").size(), 5u);
}

TEST_F(LayoutPicture, ShowsThePartsOfAScreenWithoutAngles) {
    ConfigInfo document;
    put(document, {{-20.0}, {20.0}});
    ProjectorConfig first(&document, L"1");
    first.setScreenAreaLeft(0.0);
    first.setScreenAreaRight(0.5);
    first.setScreenAreaTop(0.0);
    first.setScreenAreaBottom(1.0);
    const std::string picture = pictureOf(fileOf(document));
    const auto areas = shapesOf(picture, L"area");
    ASSERT_EQ(areas.size(), 1u);
    EXPECT_EQ(titleOf(areas[0]), L"P1\n1\n0 to 0.5 across, 0 to 1 down");
    EXPECT_EQ(shapesOf(picture, L"screen").size(), 1u);
    EXPECT_TRUE(shapesOf(pictureOf(example()), L"area").empty());
}

TEST_F(LayoutPicture, ShowsNoPartsOfAScreenWhereThereAreNone) {
    ConfigInfo document;
    put(document, {{}, {30.0}});
    const std::string picture = pictureOf(fileOf(document));
    EXPECT_EQ(shapesOf(picture, L"channel").size(), 2u);
    EXPECT_TRUE(shapesOf(picture, L"screen").empty());
    EXPECT_EQ(picture.find("Parts of the screen"), std::string::npos);
}

TEST_F(LayoutPicture, SaysWhatCannotBeDrawn) {
    ConfigInfo document;
    put(document, {{}, {0.0, 0.0, 0.0, 30.0, -30.0}});
    ProjectorConfig(&document, L"2").setName(L"A & <B>");
    const std::string picture = pictureOf(fileOf(document));
    EXPECT_EQ(shapesOf(picture, L"channel").size(), 1u);
    const auto alarms = shapesOf(picture, L"alarm");
    ASSERT_EQ(alarms.size(), 1u);
    EXPECT_EQ(alarms[0].text, L"Not drawn: A & <B>: Left (30°) is not left of Right (-30°)");
}

TEST_F(LayoutPicture, SaysWhatCannotBeDrawnALineEach) {
    ConfigInfo document;
    put(document, {{0.0, 0.0, 0.0, 30.0, -30.0}, {0.0, 0.0, 0.0, 20.0, -20.0}, {0.0, 0.0, 0.0, 10.0, -10.0}});
    std::set<double> heights;
    for (const OutlineNode& alarm : shapesOf(pictureOf(fileOf(document)), L"alarm"))
        for (const auto& [name, value] : alarm.attributes)
            if (name == L"y") heights.insert(XMLConfig::detail::leadingDouble(value));
    ASSERT_EQ(heights.size(), 3u);
    const double first = *heights.begin();
    const double second = *std::next(heights.begin());
    EXPECT_GT(second - first, 8.0) << "as high as a letter at least";
    EXPECT_NEAR(*heights.rbegin() - second, second - first, 0.1);
}

TEST_F(LayoutPicture, OfNothingIsAPictureToo) {
    ConfigInfo document;
    EXPECT_TRUE(shapesOf(pictureOf(fileOf(document)), L"channel").empty());
}

TEST_F(LayoutPicture, GrowsByAFewKilobytesAProjector) {
    ConfigInfo document;
    std::vector<RigChannel> ring;
    for (int i = 0; i < 40; ++i) ring.push_back({9.0 * i, 0.0, 0.0, -6.0, 6.0, 20.0, -20.0});
    put(document, ring);
    const std::string picture = pictureOf(fileOf(document));
    EXPECT_EQ(shapesOf(picture, L"channel").size(), 40u);
    EXPECT_LT(picture.size(), 40u * 4096u);
}

TEST_F(LayoutPicture, OfAChannelOverTheZenithReachesRound) {
    ConfigInfo document;
    put(document, {{30.0, 90.0}});
    const auto channels = shapesOf(pictureOf(fileOf(document)), L"channel");
    ASSERT_EQ(channels.size(), 1u);
    std::wstring data;
    for (const auto& [name, value] : channels[0].attributes)
        if (name == L"d") data = value;
    EXPECT_EQ(data.rfind(L"M-18000 -9000l", 0), 0u) << XMLConfig::detail::toUtf8(data);
}

}  // namespace
