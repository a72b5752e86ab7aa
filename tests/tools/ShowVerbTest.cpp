#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>

#include "tests/support/CurrentFile.h"
#include "tests/support/Example.h"
#include "tests/support/ToolFiles.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Json = nlohmann::json;

const char* const dome = exampleFile;
const std::string first = "Projector[VELDAR***00:0a:0b:0c:0d:01]";

}  // namespace

TEST(ShowVerb, SummaryTellsTheExample) {
    expectRun(
        runTool({"show", dome}), 0,
        "File        examples/dome.skorrax, version 9.000, build 2.1.1.14 of Mar 11 2019\n"
        "Check       0 errors, 0 warnings, 12 notes (xmlconfig check examples/dome.skorrax)\n"
        "Projectors  4 (4 x 1)\n"
        "  #  Name    Heading       Field      Pixels       Blends l/r/t/b   Cameras                Connection          "
        "ID\n"
        "  1  Dome 1  -67.5° / 22°  60° x 50°  1920 x 1200  0 / 25 / 0 / 0   Dome left              192.168.10.11:3002  "
        "VELDAR***00:0a:0b:0c:0d:01\n"
        "  2  Dome 2  -22.5° / 22°  60° x 50°  1920 x 1200  25 / 25 / 0 / 0  Dome left, Dome right  192.168.10.12:3002  "
        "VELDAR***00:0a:0b:0c:0d:02\n"
        "  3  Dome 3  22.5° / 22°   60° x 50°  1920 x 1200  25 / 25 / 0 / 0  Dome right, Dome left  192.168.10.13:3002  "
        "VELDAR***00:0a:0b:0c:0d:03\n"
        "  4  Dome 4  67.5° / 22°   60° x 50°  1920 x 1200  25 / 0 / 0 / 0   Dome right             COM4 19200          "
        "VELDAR***00:0a:0b:0c:0d:1f\n"
        "Cameras     2\n"
        "  #  Name        Exposure  Gain  Connection     ID\n"
        "  1  Dome left   120000    3     192.168.10.41  PGR***02:1c:00:51:00:a0\n"
        "  2  Dome right  120000    3     192.168.10.42  PGR***02:1c:00:51:00:a4\n"
        "Screen      Sphere, radius 5.2 m, -90° to 90° around, -10° to 60° up\n"
        "Target      Spherical\n"
        "Runs        27 succeeded, 2 failed, the last one at 2019-03-11 14:05:09 UTC\n"
        "Slots       2 approved: 1 \"Opening show\", 2 \"Sternenhimmel für Kinder\"; current slot 3\n");
}

TEST(ShowVerb, NamesNoCommandForStandardInput) {
    EXPECT_THAT(runToolReading(exampleText(), {"show", "-"}).output,
                StartsWith("File        standard input, version 9.000, build 2.1.1.14 of Mar 11 2019\n"
                           "Check       0 errors, 0 warnings, 11 notes\nProjectors  4 (4 x 1)\n"));
}

TEST(ShowVerb, SummaryIsInTheDocumentsUnits) {
    const TemporaryFolder folder;
    folder.write(L"hall.skorrax", currentFile("<System><Length_Unit>Centimeters</Length_Unit></System>"
                                              "<Screen><Screen_Width>2.5</Screen_Width></Screen>"));
    const std::string file = (folder.path() / "hall.skorrax").string();
    const ToolRun run = runTool({"show", file});
    EXPECT_THAT(run.output,
                StartsWith("File        " + file +
                           ", version 9.000\nCheck       1 error, 0 warnings, 0 notes (xmlconfig check " + inCommand(file) +
                           ")\nProjectors  0\nCameras     0\n"
                           "Screen      Flat, 250 x ? cm\n"));
}

TEST(ShowVerb, TimesMayLieBefore1970) {
    const TemporaryFolder folder;
    const auto shownTimeOf = [&folder](const std::string& seconds) {
        folder.write(L"hall.skorrax",
                     currentFile("<SiteAnalytics><LastRunTimestamp>" + seconds + "</LastRunTimestamp></SiteAnalytics>"));
        const std::string output = runTool({"show", (folder.path() / "hall.skorrax").string()}).output;
        const std::size_t at = output.find("the last one at ");
        return at == std::string::npos ? output : output.substr(at + 16, 23);
    };
    EXPECT_EQ(shownTimeOf("-5"), "1969-12-31 23:59:55 UTC");
    EXPECT_EQ(shownTimeOf("-2147483648"), "1901-12-13 20:45:52 UTC");
    EXPECT_EQ(shownTimeOf("2147483647"), "2038-01-19 03:14:07 UTC");
    EXPECT_EQ(shownTimeOf("951782400"), "2000-02-29 00:00:00 UTC");
}

TEST(ShowVerb, OlderFileIsShownAsUpgraded) {
    const std::string file = "examples/history/dome-8.000.skorrax";
    const ToolRun run = runTool({"show", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("File        " + file + ", version 8.000"));
    EXPECT_EQ(Json::parse(runTool({"show", "--json", file}).output)["version"], 8.0);
    EXPECT_THAT(run.errors,
                HasSubstr(file + ": is of file version 8.000; read as it would be after the upgrade, which drops 1 device"));
}

TEST(ShowVerb, CountsWhatCheckFinds) {
    for (const auto& entry : std::filesystem::directory_iterator("examples/history")) {
        const std::string file = entry.path().u8string();
        const std::string check = runTool({"check", file}).output;
        std::smatch counts;
        ASSERT_TRUE(std::regex_search(check, counts, std::regex(": (\\d+ errors?, \\d+ warnings?, \\d+ notes?)")));
        EXPECT_THAT(runTool({"show", file}).output, HasSubstr("\nCheck       " + counts[1].str() + " (xmlconfig check "));
        const Json answer = Json::parse(runTool({"check", "--json", file}).output)["files"][0];
        const Json shown = Json::parse(runTool({"show", "--json", file}).output);
        EXPECT_EQ(shown["version"], answer["version"]) << file;
        for (const char* kind : {"errors", "warnings", "notes"}) EXPECT_EQ(shown["check"][kind], answer[kind]) << file;
    }
}

TEST(ShowVerb, OlderWordIsShownAsItIsReadAndCounted) {
    const ToolRun run = runToolReading(exampleText("<Data_Type>Spherical", "<Data_Type>Projector Pose"), {"show", "-"});
    EXPECT_THAT(run.output, HasSubstr("\nTarget      Projector Centric\n"));
    EXPECT_THAT(run.output, HasSubstr("0 errors, 0 warnings, 12 notes"));
}

TEST(ShowVerb, NumbersOfDevicesAreThoseOfAddresses) {
    const std::string text = currentFile(
        "<Projector ID=\"a\"><Name>First</Name></Projector><Projector ID=\"a\"><Name>Hidden</Name></Projector>"
        "<Projector><Name>Nobody</Name></Projector><Projector ID=\"b\"><Name>Second</Name></Projector>");
    const std::string shown = runToolReading(text, {"show", "-"}).output;
    EXPECT_THAT(shown, HasSubstr("\nProjectors  2 ("));
    EXPECT_THAT(shown, HasSubstr("\n  1  First "));
    EXPECT_THAT(shown, HasSubstr("\n  2  Second "));
    EXPECT_EQ(runToolReading(text, {"get", "-", "Projector[#2]/Name"}).output, "Second\n");
    EXPECT_THAT(runToolReading(text, {"layout", "-"}).output, HasSubstr("\n  2  Second "));
    EXPECT_THAT(runToolReading(text, {"get", "-", "Projector[x]/Name"}).errors,
                HasSubstr("; the file holds Projector[First], Projector[Second]\n"));
}

TEST(ShowVerb, StandardInputIsShown) {
    EXPECT_EQ(runToolReading(exampleText(), {"show", "-", "Screen/Shape"}).output, "Shape = Sphere\n");
    EXPECT_EQ(runToolReading("<a>\n", {"show", "-"}).status, 3);
}

TEST(ShowVerb, AddressesShowTheirPartsOnly) {
    expectRun(runTool({"show", dome, "Projector[Dome 1]/Channel_Extents/HFOV", "System/Nothing", "Screen/Shape"}), 1,
              "HFOV\n  Left = -30°\n  Right = 30°\n\nShape = Sphere\n",
              "xmlconfig: examples/dome.skorrax: holds no System/Nothing\n");
}

TEST(ShowVerb, TreesShowNumbersInTheUnitsOfTheDocument) {
    const std::string text = exampleText("<Length_Unit>Meters", "<Length_Unit>Centimeters");
    EXPECT_EQ(runToolReading(text, {"show", "-", "Screen/Checkerboard_Calibration", "Projector[Dome 2]/Blend_Left"}).output,
              "Checkerboard_Calibration\n  Box_Dimension = 8 cm\n  Grid_Size\n    Columns = 9\n    Rows = 6\n\n"
              "Blend_Left = 25 %\n");
    const std::string whole = runToolReading(text, {"show", "--all", "-"}).output;
    for (const char* line : {"\n  Center_Point = 0 cm, 0 cm, 210 cm\n", "\n  Colour_Tolerance = 0.001\n",
                             "\n    5, 2099.500000, 1480.125000\n", "\n      Yaw = 67.5°\n"})
        EXPECT_THAT(whole, HasSubstr(line));
    const std::string devices = runToolReading(text, {"show", "-", "Projector[*]", "Camera[*]", "Screen"}).output;
    for (const char* exponent : {"e+0", "e-0"}) EXPECT_THAT(devices, testing::Not(HasSubstr(exponent)));
}

TEST(ShowVerb, TreesShowAsItStandsWhatIsNoNumber) {
    const std::string text =
        currentFile("<Projector ID=\"a\"><Gamma>much</Gamma><Blend_Left/><Mine>1.500000000000000e+00</Mine></Projector>");
    EXPECT_EQ(runToolReading(text, {"show", "-", "Projector"}).output,
              "Projector [a]\n  Gamma = much\n  Blend_Left = \n  Mine = 1.500000000000000e+00\n");
}

TEST(ShowVerb, FlatIsOneLineAValue) {
    const ToolRun run = runTool({"show", "--flat", dome});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("Color/MaxIterationsColor=25\nColor/MinCameraExposureDeltaInMS=1000\n"));
    EXPECT_THAT(run.output, HasSubstr("\n" + first + "/DeviceSnippet/device@UID=VELDAR***00:0a:0b:0c:0d:01\n"));
    EXPECT_THAT(run.output, HasSubstr("\n" + first + "/Channel_Extents/Heading/Yaw=-1.178097245096172e+00\n"));
    EXPECT_THAT(run.output, HasSubstr("/Camera_Calibration_Points=\\n\\t\\t1, 310.500000, 1480.125000,\\n\\t\\t2, "));
    expectRun(runTool({"show", "--flat", dome, "Projector[#1]/Channel_Extents/HFOV"}), 0,
              first + "/Channel_Extents/HFOV/Left=-5.235987755982988e-01\n" + first +
                  "/Channel_Extents/HFOV/Right=5.235987755982988e-01\n");
}

TEST(ShowVerb, FlatLinesAreWhatSetReads) {
    const TemporaryFolder folder;
    const std::string original = TemporaryFolder::readFile(dome);
    folder.write(L"dome.skorrax", original);
    folder.write(L"lines", runTool({"show", "--flat", dome}).output);
    const std::string file = (folder.path() / "dome.skorrax").string();
    const std::string lines = (folder.path() / "lines").string();
    expectRun(runTool({"set", "--force", file, "--from", lines}), 0, "0 changes, 0 new findings\n");
    EXPECT_EQ(runTool({"set", "--force", file, "Projector[*]/Gamma=3", "Color/CameraOrder=x",
                       "Camera[#2]/DeviceSnippet/device/ipAddress=192.168.10.99"})
                  .status,
              0);
    EXPECT_EQ(runTool({"set", "--force", file, "--from", lines}).status, 0);
    EXPECT_EQ(folder.read(L"dome.skorrax"), original);
}

TEST(ShowVerb, JsonHoldsTheSummary) {
    const auto json = nlohmann::json::parse(runTool({"show", "--json", dome}).output);
    EXPECT_EQ(json["projectors"].size(), 4u);
    auto projector = json["projectors"][0];
    EXPECT_DOUBLE_EQ(projector["yaw"], -1.178097245096172);
    EXPECT_DOUBLE_EQ(projector["pitch"], 0.3839724354387525);
    projector.erase("yaw");
    projector.erase("pitch");
    EXPECT_EQ(projector, nlohmann::json::parse(R"({"number":1,"id":"VELDAR***00:0a:0b:0c:0d:01","name":"Dome 1","line":230,
        "pixels":[1920,1200],"roll":0.0,"connection":{"type":"ETHERNET","address":"192.168.10.11","port":3002},
        "cameras":["PGR***02:1c:00:51:00:a0"]})"));
    EXPECT_EQ(json["projectors"][3]["connection"],
              nlohmann::json::parse(R"({"type":"SERIAL","address":null,"port":"COM4","baud":19200})"));
    EXPECT_EQ(json["cameras"][0], nlohmann::json::parse(R"({"number":1,"id":"PGR***02:1c:00:51:00:a0","name":"Dome left",
        "address":"192.168.10.41","serialNumber":"17182096"})"));
    EXPECT_EQ(json["screen"], nlohmann::json::parse(R"({"shape":"Sphere","radius":5.2})"));
    EXPECT_EQ(json["runs"], nlohmann::json::parse(R"({"succeeded":27,"failed":2,"last":1552313109})"));
    EXPECT_EQ(json["slots"][0], nlohmann::json::parse(R"({"id":"1","name":"Opening show"})"));
    EXPECT_EQ(json["currentSlot"], 3);
    EXPECT_EQ(json["check"], nlohmann::json::parse(R"({"errors":0,"warnings":0,"notes":12})"));
    EXPECT_EQ(json["version"], 9.0);
    EXPECT_EQ(json["exit"], 0);
    EXPECT_FALSE(json.contains("sections"));
}

TEST(ShowVerb, JsonOfAllHoldsEveryText) {
    const auto json = nlohmann::json::parse(runTool({"show", "--all", "--json", dome}).output);
    const std::string flat = runTool({"show", "--flat", dome}).output;
    EXPECT_EQ(json["sections"].size(), static_cast<std::size_t>(std::count(flat.begin(), flat.end(), '\n')));
    EXPECT_EQ(json["sections"][0], nlohmann::json::parse(R"({"address":"Color/MaxIterationsColor","text":"25","value":25,
        "unit":"","line":8})"));
}
