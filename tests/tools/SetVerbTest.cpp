#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToolRun.h"

namespace {

using testing::HasSubstr;
using Arguments = std::vector<std::string>;

/// Changes a copy of the example.
class SetVerb : public testing::Test {
protected:
    SetVerb() : original(TemporaryFolder::readFile("examples/dome.skorrax")) { folder.write(L"dome.skorrax", original); }

    std::string file() const { return (folder.path() / "dome.skorrax").string(); }
    std::string content() const { return folder.read(L"dome.skorrax"); }
    ToolRun run(const std::string& verb, const Arguments& words, const std::string& environment = "") const {
        Arguments arguments{verb, file()};
        arguments.insert(arguments.end(), words.begin(), words.end());
        return runTool(arguments, environment);
    }
    void expectRefused(const std::string& change, const std::string& message) const {
        const ToolRun refused = run("set", {change});
        EXPECT_EQ(refused.status, 1) << change;
        EXPECT_EQ(refused.output, "");
        EXPECT_EQ(refused.errors, "xmlconfig: " + message + "\n");
        EXPECT_EQ(content(), original);
    }
    std::string stored(const std::string& address) const { return run("get", {address}).output; }

    TemporaryFolder folder;
    std::string original;
};

}  // namespace

TEST_F(SetVerb, TellsWhatHasChanged) {
    const ToolRun set = run("set", {"Projector[*]/Gamma=2.4", "Projector[Dome 3]/Channel_Extents/Heading/Yaw=24deg"});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.errors, "");
    EXPECT_EQ(set.output,
              "~ Projector[Dome 1]/Gamma                        2.2 -> 2.4\n"
              "~ Projector[Dome 2]/Gamma                        2.2 -> 2.4\n"
              "~ Projector[Dome 3]/Gamma                        2.2 -> 2.4\n"
              "~ Projector[Dome 4]/Gamma                        2.2 -> 2.4\n"
              "~ Projector[Dome 3]/Channel_Extents/Heading/Yaw  22.5° -> 24°\n"
              "5 changes, 0 new findings\n");
    EXPECT_EQ(stored("Projector[Dome 3]/Channel_Extents/Heading/Yaw"), "4.188790204786391e-01\n");
    EXPECT_EQ(stored("Projector[#4]/Gamma"), "2.400000000000000e+00\n");
}

TEST_F(SetVerb, TellsWhatWasInheritedAndWhatIsNew) {
    EXPECT_EQ(
        run("set", {"Projector[Dome 4]/Box_Spacing=2", "ProjMap/Site=Planetarium"}).output,
        "~ Projector[Dome 4]/Box_Spacing  1.5 (inherited) -> 2\n"
        "+ ProjMap/Site                   Planetarium\n"
        "2 changes, 1 new finding, 1 solved (XC408)\n"
        "note[XC901] Projector[Dome 4]/Box_Spacing: has no effect now: Geometry/Enable_Automatic_Mapper_Settings is true\n");
}

TEST_F(SetVerb, UnitsAreConverted) {
    // Feet and inches as the application reckons them, so that it shows what was typed.
    const std::pair<const char*, const char*> lengths[] = {
        {"5.2m", "5.200000000000000e+00"},  {"17ft", "5.181599992123968e+00"},      {"340mm", "3.400000000000000e-01"},
        {"12in", "3.048000003108960e-01"},  {"250cm", "2.500000000000000e+00"},     {"7", "7.000000000000000e+00"},
        {"5.2 m", "5.200000000000000e+00"}, {" 340  mm ", "3.400000000000000e-01"},
    };
    for (const auto& [written, text] : lengths) {
        EXPECT_EQ(run("set", {std::string("Screen/Screen_Radius=") + written}).status, 0) << written;
        EXPECT_EQ(stored("Screen/Screen_Radius"), std::string(text) + "\n");
    }
    const std::string yaw = "Projector[#1]/Channel_Extents/Heading/Yaw";
    const std::pair<const char*, const char*> angles[] = {
        {"-67.5deg", "-1.178097245096172e+00"}, {"1.2rad", "1.200000000000000e+00"},     {"+90°", "1.570796326794897e+00"},
        {"-.5", "-5.000000000000000e-01"},      {"-67.5 deg", "-1.178097245096172e+00"}, {"90 °", "1.570796326794897e+00"},
    };
    for (const auto& [written, text] : angles) {
        EXPECT_EQ(run("set", {yaw + "=" + written}).status, 0) << written;
        EXPECT_EQ(stored(yaw), std::string(text) + "\n");
    }
    EXPECT_EQ(run("set", {"Projector[#1]/Channel_Extents/Eye_Point=0, 10cm, 1.7m", "Projector[#1]/Blend_Right=20%"}).status,
              0);
    EXPECT_EQ(stored("Projector[#1]/Channel_Extents/Eye_Point"), "0, 1.000000000000000e-01, 1.700000000000000e+00\n");
    EXPECT_EQ(stored("Projector[#1]/Blend_Right"), "2.000000000000000e+01\n");
    EXPECT_EQ(
        run("set", {"Projector[#1]/Channel_Extents/Eye_Point=0 m, 1, 165 cm", "Projector[#1]/Blend_Right=25 %"}).status, 0);
    EXPECT_EQ(stored("Projector[#1]/Channel_Extents/Eye_Point"), "0.000000000000000e+00, 1, 1.650000000000000e+00\n");
    EXPECT_EQ(stored("Projector[#1]/Blend_Right"), "2.500000000000000e+01\n");
}

TEST_F(SetVerb, UnitsOfOtherKindsAreRefused) {
    expectRefused("Projector[#1]/Gamma=2deg",
                  "Projector[Dome 1]/Gamma: \"2deg\" is not of type double; 'xmlconfig describe Projector/Gamma' tells what "
                  "fits; --force stores it all the same");
    const std::string lengths =
        " is not of type double; it takes m, cm, mm, ft, in after a number; 'xmlconfig describe Screen/Screen_Radius' tells "
        "what fits; --force stores it all the same";
    expectRefused("Screen/Screen_Radius=90deg", "Screen/Screen_Radius: \"90deg\"" + lengths);
    expectRefused("Screen/Screen_Radius=1m 2m", "Screen/Screen_Radius: \"1m 2m\"" + lengths);
    expectRefused("Screen/Screen_Radius=1 m m", "Screen/Screen_Radius: \"1 m m\"" + lengths);
    expectRefused("Projector[#1]/Gamma=2 m",
                  "Projector[Dome 1]/Gamma: \"2 m\" is not of type double; 'xmlconfig describe Projector/Gamma' tells what "
                  "fits; --force stores it all the same");
}

TEST_F(SetVerb, PercentsOfASettingInSharesAreRefusedWithTheShare) {
    expectRefused("TargetLocator/Horizontal_Overlap=25%",
                  "TargetLocator/Horizontal_Overlap: \"25%\" is not of type double; did you mean \"0.25\"? "
                  "--force stores it all the same");
    expectRefused("TargetLocator/Horizontal_Overlap=250%",
                  "TargetLocator/Horizontal_Overlap: \"250%\" is not of type double; 'xmlconfig describe "
                  "TargetLocator/Horizontal_Overlap' tells what fits; --force stores it all the same");
}

TEST_F(SetVerb, UnitsInCapitalsAreRefusedWithTheOneThatIsMeant) {
    expectRefused("Screen/Screen_Radius=5.2M",
                  "Screen/Screen_Radius: \"5.2M\" is not of type double; did you mean \"5.2m\"? "
                  "--force stores it all the same");
    expectRefused(
        "Projector[#1]/Channel_Extents/Heading/Yaw=24 DEG",
        "Projector[Dome 1]/Channel_Extents/Heading/Yaw: \"24 DEG\" is not of type double; did you mean \"24 deg\"? "
        "--force stores it all the same");
}

TEST_F(SetVerb, NumbersThatAreNotFiniteAreRefused) {
    expectRefused("Projector[#1]/Channel_Extents/Heading/Yaw=1e400",
                  "Projector[Dome 1]/Channel_Extents/Heading/Yaw: 1e400 is no finite number (XC113); 'xmlconfig describe "
                  "Projector/Channel_Extents/Heading/Yaw' tells what fits; --force stores it all the same");
    expectRefused(
        "Projector[#1]/Gamma=nan",
        "Projector[Dome 1]/Gamma: nan is no finite number (XC113); 'xmlconfig describe Projector/Gamma' tells what "
        "fits; --force stores it all the same");
}

TEST_F(SetVerb, DegreesInRadiansAreRefused) {
    expectRefused("Projector[Dome 1]/Channel_Extents/Heading/Yaw=-67.5",
                  "Projector[Dome 1]/Channel_Extents/Heading/Yaw: -67.5 radians are 10.7 turns (XC305); -67.5deg? --force "
                  "stores it all the same");
    EXPECT_EQ(run("set", {"Projector[Dome 1]/Channel_Extents/Heading/Yaw=6.28"}).status, 0);
}

TEST_F(SetVerb, FaultsNameWhatWasTyped) {
    const std::string yaw = "Projector[Dome 1]/Channel_Extents/Heading/Yaw";
    const std::string fits =
        "; 'xmlconfig describe Projector/Channel_Extents/Heading/Yaw' tells what fits; --force stores it all the same";
    const std::pair<std::string, std::string> faults[] = {
        {yaw + "=400deg", "400deg are 1.1 turns, and one is the most (XC305)" + fits},
        {yaw + "=-400 \xC2\xB0", "-400\xC2\xB0 are 1.1 turns, and one is the most (XC305)" + fits},
        {yaw + "=21700arcmin", "21700arcmin are more than one turn, and one is the most (XC305)" + fits},
        {yaw + "=7rad", "7rad are 1.1 turns, and one is the most (XC305)" + fits},
        {yaw + "=6.29", "6.29 radians are more than one turn (XC305); 6.29deg? --force stores it all the same"},
        {yaw + "=-360", "-360 radians are 57.3 turns (XC305); -360deg? --force stores it all the same"},
        {yaw + "=1e3", "1e3 radians are 159.2 turns (XC305)" + fits},
    };
    for (const auto& [written, message] : faults) expectRefused(written, yaw + ": " + message);
    expectRefused(
        "Projector[#1]/Channel_Extents/Eye_Point=0, 10cm, x",
        "Projector[Dome 1]/Channel_Extents/Eye_Point: \"0, 10cm, x\" is not of type 3-D point; it takes m, cm, mm, ft, "
        "in after a number; 'xmlconfig describe Projector/Channel_Extents/Eye_Point' tells what fits; --force stores it "
        "all the same");
    expectRefused(
        "Camera[#1]/Marked_Surface_Opacity=25.5%",
        "Camera[Dome left]/Marked_Surface_Opacity: \"25.5%\" is not of type int; it takes % after a number; 'xmlconfig "
        "describe Camera/Marked_Surface_Opacity' tells what fits; --force stores it all the same");
    expectRefused("Projector[#1]/Pond_Of_Mirrors/Left=256",
                  "Projector[Dome 1]/Pond_Of_Mirrors/Left: 256 is outside 0 to 255 (XC114); 'xmlconfig describe "
                  "Projector/Pond_Of_Mirrors/Left' tells what fits; --force stores it all the same");
    expectRefused(
        "TargetLocator/Data_Type=Projector Pose",
        "TargetLocator/Data_Type: \"Projector Pose\" is the older name of \"Projector Centric\" (XC112); did you mean "
        "\"Projector Centric\"?");
    EXPECT_EQ(run("set", {"Projector[#1]/Lamp_Power=120 %"}).errors,
              "xmlconfig: warning: Projector[Dome 1]/Lamp_Power: 120% is outside 0 to 100, which is usual (XC114)\n");
}

TEST_F(SetVerb, WholeNumbersTakeAUnit) {
    EXPECT_EQ(run("set", {"Camera[#1]/Marked_Surface_Opacity=25%"}).status, 0);
    EXPECT_EQ(stored("Camera[#1]/Marked_Surface_Opacity"), "25\n");
}

TEST_F(SetVerb, WordsAndNumbersMustBeKnown) {
    expectRefused("Screen/Shape=Dome",
                  "Screen/Shape: \"Dome\" is none of Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test (XC109)");
    for (const char* const word : {"Sphare", "sphere", " Sphere"})
        expectRefused(
            std::string("Screen/Shape=") + word,
            std::string("Screen/Shape: \"") + word +
                "\" is none of Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test (XC109); did you mean \"Sphere\"?");
    expectRefused(
        "Geometry/Fit_Solver=3",
        "Geometry/Fit_Solver: 3 is none of 0 linear, 1 polynomial, 2 default, 5 spline, 7 perspective, 8 hybrid; "
        "counts as 2 (XC110); 'xmlconfig describe Geometry/Fit_Solver' tells what fits; --force stores it all the same");
    expectRefused("Projector[#1]/Lamp_Mode=lamp",
                  "Projector[Dome 1]/Lamp_Mode: \"lamp\" is none of Single1, Single2, Dual; counts as empty (XC109)");
    EXPECT_EQ(run("set", {"--force", "Screen/Shape=Dome", "Geometry/Fit_Solver=3"}).status, 0);
    EXPECT_EQ(stored("Screen/Shape"), "Dome\n");
}

TEST_F(SetVerb, WhatIsMeantByWordsAndLongNumbersIsSaid) {
    const std::string solver = "Geometry/Fit_Solver";
    for (const char* const word : {"spline", "SPLINE"})
        expectRefused(solver + "=" + word,
                      solver + ": \"" + word + "\" is not of type int; did you mean \"5\"? --force stores it all the same");
    const std::string count = "Geometry/Projector_Count";
    const std::string fits = "; 'xmlconfig describe " + count + "' tells what fits; --force stores it all the same";
    for (const char* const number : {"99999999999", "-2147483649", "+2147483648"})
        expectRefused(count + "=" + number,
                      count + ": \"" + number + "\" is not of type int, which goes from -2147483648 to 2147483647" + fits);
    for (const char* const other : {"4.0", "-", "", "--4", "4 4", "0x10"})
        expectRefused(count + "=" + other, count + ": \"" + other + "\" is not of type int" + fits);
}

TEST_F(SetVerb, OutOfRangeIsRefused) {
    expectRefused(
        "Geometry/Projector_Count=-5",
        "Geometry/Projector_Count: -5 is outside 0 and more (XC114); 'xmlconfig describe Geometry/Projector_Count' "
        "tells what fits; --force stores it all the same");
    EXPECT_EQ(run("set", {"--force", "Geometry/Projector_Count=-5"}).status, 0);
}

TEST_F(SetVerb, NumbersGetTheirCanonicalForm) {
    EXPECT_EQ(run("set", {"Geometry/Box_Spacing=17.5e-1", "Geometry/Fit_Order= 4"}).status, 0);
    EXPECT_EQ(stored("Geometry/Box_Spacing"), "1.750000000000000e+00\n");
    EXPECT_EQ(stored("Geometry/Fit_Order"), "4\n");
}

TEST_F(SetVerb, SeveralDevicesAreRefused) {
    const ToolRun refused = run("set", {"Projector/Gamma=2.4"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("Projector/Gamma: means one of 4 devices: Projector[Dome 1], "));
}

TEST_F(SetVerb, WhatIsMistypedIsAnsweredWithWhatIsNearest) {
    const std::string held = "; the file holds Projector[Dome 1], Projector[Dome 2], Projector[Dome 3], Projector[Dome 4]";
    const std::pair<std::string, std::string> faults[] = {
        {"Projector[dom 3]/Gamma", "there is no such section; did you mean \"Dome 3\"?"},
        {"Projector[Dome 5]/Gamma",
         "there is no such section; did you mean \"Dome 1\", \"Dome 2\", \"Dome 3\" or \"Dome 4\"?"},
        {"Projector[VELDAR***00:0a:0b:0c:0d:2f]/Gamma",
         "there is no such section; did you mean "
         "\"VELDAR***00:0a:0b:0c:0d:1f\"?"},
        {"Projector[00:0a:0b:0c:0d:2f]/Gamma", "there is no such section; did you mean \"00:0a:0b:0c:0d:1f\"?"},
        {"Projector[Lobby]/Gamma", "there is no such section" + held + "; --force adds it"},
        {"Projector[#5]/Gamma", "there is no such section" + held},
        {"Projektor[Dome 3]/Gamma", "there is no such section; did you mean \"Projector\"?"},
        {"Projector[Dome 3]/Gama", "there is no such setting; did you mean \"Gamma\"?"},
        {"Screen/Shap", "there is no such setting; did you mean \"Shape\"?"},
        {"Screen/Radius", "there is no such setting; did you mean \"Screen_Radius\"?"},
        {"Projector[Dome 3]/yaw", "there is no such setting; did you mean \"Channel_Extents/Heading/Yaw\"?"},
        {"Screen/Colour_Of_The_Wall",
         "there is no such setting; 'xmlconfig describe Screen' lists what there is; --force "
         "stores it all the same"},
        {"Elsewhere/Colour",
         "there is no such setting; 'xmlconfig describe' lists what there is; --force stores it all the "
         "same"},
    };
    for (const auto& [address, message] : faults) {
        expectRefused(address + "=2", address + ": " + message);
    }
}

TEST_F(SetVerb, ForceIsNeverTheFirstAdvice) {
    for (const char* change : {"Projector[Lobby]/Gamma=2", "Screen/Colour_Of_The_Wall=2", "Elsewhere/Colour=2",
                               "Projector[#1]/Gamma=x", "Geometry/Projector_Count=-5", "Geometry/Fit_Solver=3",
                               "Screen/Screen_Radius=0", "Projector[#1]/Channel_Extents/Heading/Yaw=45"}) {
        const std::string errors = run("set", {change}).errors;
        const std::size_t force = errors.find("--force");
        ASSERT_NE(force, std::string::npos) << errors;
        const std::string before = errors.substr(0, force);
        EXPECT_TRUE(before.find("'xmlconfig describe") != std::string::npos ||
                    before.find("the file holds") != std::string::npos || before.find("45deg?") != std::string::npos)
            << errors;
    }
}

TEST_F(SetVerb, OfOneSettingTwiceTheLastCounts) {
    EXPECT_EQ(run("set", {"Projector[*]/Gamma=2.4", "Projector[Dome 1]/Gamma=2.2", "Projector[Dome 2]/Gamma=2.6"}).output,
              "~ Projector[Dome 2]/Gamma  2.2 -> 2.6\n"
              "~ Projector[Dome 3]/Gamma  2.2 -> 2.4\n"
              "~ Projector[Dome 4]/Gamma  2.2 -> 2.4\n"
              "3 changes, 0 new findings\n");
    EXPECT_EQ(stored("Projector[Dome 2]/Gamma"), "2.600000000000000e+00\n");
}

TEST_F(SetVerb, LinesAreReadWholeOrNotAtAll) {
    const auto refused = [&](const std::string& lines, int status, const std::string& message) {
        folder.write(L"lines.txt", lines);
        const std::string name = (folder.path() / "lines.txt").string();
        expectRun(run("set", {"--from", name}), status, "", "xmlconfig: " + name + message + "\n");
        EXPECT_EQ(content(), original);
    };
    refused("ProjMap/Site=x\ngarbage\n", 2,
            " line 2: Error parseAddress: \"garbage\", character 8: \"=\" and a value are missing");
    refused("ProjMap/Site=x\n\nProjMap/Other=\xFF\n", 2, " line 3: is not UTF-8");
    const std::string directory = folder.path().string();
    expectRun(run("set", {"--from", directory}), 3, "", "xmlconfig: " + directory + ": cannot be read; it is a folder\n");
}

TEST_F(SetVerb, UnsetTakesAPlaceThatIsNamedTwiceOnce) {
    const ToolRun once = run("unset", {"--dry-run", "Projector[#2]/Box_Spacing"});
    const ToolRun twice = run("unset", {"--dry-run", "Projector[#2]/Box_Spacing", "Projector[#2]/Box_Spacing"});
    expectRun(twice, 0, once.output);
    const ToolRun all = run("unset", {"--dry-run", "Projector[*]/Gamma"});
    EXPECT_THAT(all.output, HasSubstr("\n4 changes, 0 new findings"));
    expectRun(run("unset", {"--dry-run", "Projector[*]/Gamma", "Projector[#2]/Gamma", "Projector[Dome 1]/Gamma"}), 0,
              all.output);
    EXPECT_EQ(run("unset", {"--dry-run", "Projector[#2]/Gamma", "Projector[*]/Gamma"}).status, 0);
}

TEST_F(SetVerb, StandardInputIsNoFileToChange) {
    const std::string message = "xmlconfig: a file is changed here; standard input cannot be\n";
    expectRun(runTool({"set", "-", "ProjMap/Site=x"}), 2, "", message);
    expectRun(runTool({"unset", "-", "ProjMap/Site"}), 2, "", message);
    expectRun(runTool({"upgrade", "-"}), 2, "", "xmlconfig: a file is converted here; standard input cannot be\n");
}

TEST_F(SetVerb, DryRunAndQuietAreNeitherWrittenNorTold) {
    EXPECT_EQ(run("set", {"--dry-run", "Projector[#1]/Gamma=2.4"}).output,
              "~ Projector[Dome 1]/Gamma  2.2 -> 2.4\n1 change, 1 new finding (dry run, nothing written)\n"
              "note[XC408] Projector[Dome 1]/Gamma: 2.4, the other 3 projectors have 2.2\n");
    EXPECT_EQ(content(), original);
    EXPECT_EQ(folder.entries(), 1u);
    const ToolRun quiet = run("set", {"--quiet", "Projector[#1]/Gamma=2.4"});
    EXPECT_EQ(quiet.output + quiet.errors, "");
    EXPECT_EQ(stored("Projector[#1]/Gamma"), "2.400000000000000e+00\n");
}

TEST_F(SetVerb, JsonListsTheChanges) {
    const auto json = nlohmann::json::parse(run("set", {"--json", "Projector[#1]/Gamma=2.4", "ProjMap/Site=x"}).output);
    EXPECT_EQ(json, nlohmann::json::parse(R"({"format":1,"verb":"set","file":)" + nlohmann::json(file()).dump() +
                                          R"(,"written":true,"changes":[
        {"address":"Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma","kind":"changed","old":"2.200000000000000e+00",
         "new":"2.400000000000000e+00"},
        {"address":"ProjMap/Site","kind":"added","old":null,"new":"x"}],"newFindings":[
        {"rule":"XC408","name":"odd-one-out","severity":"note","address":"Projector[VELDAR***00:0a:0b:0c:0d:01]/Gamma",
         "message":"2.4, the other 3 projectors have 2.2"}],"solved":[],"exit":0})"));
}

TEST_F(SetVerb, PartsOfADeviceSnippetAreSet) {
    EXPECT_EQ(run("set",
                  {"Projector[#1]/DeviceSnippet/device/connection/port=3003", "Projector[#1]/DeviceSnippet/device@name=x&y"})
                  .output,
              "~ Projector[Dome 1]/DeviceSnippet/device/connection/port  3002 -> 3003\n"
              "~ Projector[Dome 1]/DeviceSnippet/device@name             PRJ-1 -> x&y\n"
              "2 changes, 0 new findings\n");
    std::string expected = original;
    expected.replace(expected.find("PRJ-1"), 5, "x&amp;y");
    expected.replace(expected.find("<port>3002"), 10, "<port>3003");
    EXPECT_EQ(content(), expected);
    const ToolRun refused = run("set", {"Projector[#1]/DeviceSnippet/device/nothing=1"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors,
              "xmlconfig: Projector[VELDAR***00:0a:0b:0c:0d:01]/DeviceSnippet/device/nothing: there is no such part in the "
              "snippet\n");
    EXPECT_EQ(run("set", {"Projector[#1]/DeviceSnippet/device/connection=1"}).errors,
              "xmlconfig: Projector[VELDAR***00:0a:0b:0c:0d:01]/DeviceSnippet/device/connection: holds other parts and no "
              "value\n");
}

TEST_F(SetVerb, DevicesMayHaveSignsOfAddressesInTheirIDs) {
    const std::string snippet = "<DeviceSnippet><device UID=\"a\"/></DeviceSnippet></Projector>";
    folder.write(L"dome.skorrax", "<ConfigInfo><Version>9.000</Version><Projector ID=\"a]=b\"><Name>1</Name>" + snippet +
                                      "<Projector ID=\"c]/d[\"><Name>2</Name>" + snippet + "</ConfigInfo>");
    for (const std::string device : {"Projector[a]]=b]", "Projector[c]]/d[]"}) {
        EXPECT_EQ(run("set", {device + "/DeviceSnippet/device@UID=x=y", device + "/Name=z"}).status, 0) << device;
        EXPECT_EQ(stored(device + "/DeviceSnippet/device@UID"), "x=y\n");
        EXPECT_EQ(stored(device + "/Name"), "z\n");
    }
    const std::string lines = runTool({"show", "--flat", file()}).output;
    expectRun(runToolReading(lines, {"set", "--dry-run", file(), "--from", "-"}), 0,
              "0 changes, 0 new findings (dry run, nothing written)\n");
}

TEST_F(SetVerb, LinesComeFromAFileOrStandardInput) {
    folder.write(L"lines", "ProjMap/Site=a\\nb\\\\c\\td\r\n\nProjector[Dome 1]/Gamma=2.4\n");
    EXPECT_EQ(run("set", {"--from", (folder.path() / "lines").string()}).status, 0);
    EXPECT_EQ(stored("ProjMap/Site"), "a\nb\\c\td\n");
    EXPECT_EQ(stored("Projector[#1]/Gamma"), "2.400000000000000e+00\n");
    EXPECT_EQ(runToolReading("ProjMap/Site=x\n", {"set", file(), "--from", "-"}).output,
              "~ ProjMap/Site  a b\\c d -> x\n1 change, 0 new findings\n");
    const std::string none = (folder.path() / "none").string();
    expectRun(run("set", {"--from", none}), 3, "", "xmlconfig: " + none + ": cannot be read; there is no such file\n");
    EXPECT_EQ(run("set", {}).status, 2);
}

TEST_F(SetVerb, LinesMayBeginWithAByteOrderMark) {
    folder.write(L"lines.txt", "\xEF\xBB\xBFSystem/RunType=CinemaRun\r\n");
    const std::string lines = (folder.path() / "lines.txt").string();
    EXPECT_EQ(runTool({"set", "--from", lines, "--quiet", file()}).status, 0);
    EXPECT_EQ(runTool({"get", file(), "System/RunType"}).output, "CinemaRun\n");
}

TEST_F(SetVerb, UnsetTellsWhatCountsNow) {
    const ToolRun unset = run("unset", {"Projector[Dome 2]/Box_Spacing", "Geometry/Fit_Solver"});
    EXPECT_EQ(unset.status, 0);
    EXPECT_EQ(unset.errors, "");
    EXPECT_EQ(unset.output,
              "- Projector[Dome 2]/Box_Spacing  2 -> 1.5 (inherited from Geometry)\n"
              "- Geometry/Fit_Solver            5 -> 2 (default)\n"
              "2 changes, 0 new findings, 2 solved (XC408, XC901)\n");
    std::string expected = original;
    for (const std::string line :
         {"    <Box_Spacing>2.000000000000000e+00</Box_Spacing>\n", "    <Fit_Solver>5</Fit_Solver>\n"})
        expected.erase(expected.find(line), line.size());
    EXPECT_EQ(content(), expected);
}

TEST_F(SetVerb, UnsetTakesGroupsAndSubsections) {
    EXPECT_EQ(run("unset", {"Projector[#1]/Channel_Extents/HFOV"}).errors,
              "xmlconfig: Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents/HFOV: can be unset with all of "
              "Projector[VELDAR***00:0a:0b:0c:0d:01]/Channel_Extents only\n");
    EXPECT_EQ(run("unset", {"ProjectorApprovedSlots/Slot[1]/Name"}).status, 1);
    EXPECT_EQ(content(), original);
    const auto json = nlohmann::json::parse(run("unset", {"--json", "--dry-run", "Projector[#1]/Channel_Extents"}).output);
    EXPECT_EQ(json["changes"].size(), 8u);
    EXPECT_EQ(json["changes"][0]["kind"], "removed");
    EXPECT_FALSE(json["written"]);
    EXPECT_EQ(run("unset", {"ProjectorApprovedSlots/Slot[1]", "Projector[*]/DeviceSnippet"}).status, 0);
    EXPECT_EQ(run("get", {"ProjectorApprovedSlots/Slot[1]"}).status, 1);
    EXPECT_EQ(run("get", {"Projector[#4]/DeviceSnippet"}).status, 1);
}

TEST_F(SetVerb, WarnsOfWhatIsUnusualInOurJudgementAndStoresIt) {
    const ToolRun set = run("set", {"Color/UserLampPowerCap=1.5", "Geometry/Max_Grid_Width=1"});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.errors,
              "xmlconfig: warning: Color/UserLampPowerCap: 1.5 is outside above 0 to 1, which is usual (XC114)\n"
              "xmlconfig: warning: Geometry/Max_Grid_Width: 1 is outside 2 and more, which is usual (XC114)\n");
    EXPECT_THAT(set.output, HasSubstr("~ Color/UserLampPowerCap   0.9 -> 1.5\n"));
    EXPECT_THAT(set.output, HasSubstr("\nwarning[XC114] Color/UserLampPowerCap: 1.5 is outside above 0 to 1"));
    EXPECT_EQ(stored("Geometry/Max_Grid_Width"), "1\n");
    EXPECT_EQ(run("check", {"--only", "XC114"}).status, 1);
}

TEST_F(SetVerb, UnsetIsAllOrNothing) {
    const ToolRun unset = run("unset", {"Projector[Dome 2]/Box_Spacing", "System/Nothing"});
    EXPECT_EQ(unset.status, 1);
    EXPECT_EQ(unset.errors, "xmlconfig: " + file() + ": holds no System/Nothing\n");
    EXPECT_EQ(run("unset", {"System"}).errors, "xmlconfig: System: is a whole section; unset takes settings\n");
    EXPECT_EQ(content(), original);
}

TEST_F(SetVerb, UnsetOfAllTakesWhereStored) {
    EXPECT_EQ(run("unset", {"Projector[*]/Box_Spacing"}).output,
              "- Projector[Dome 2]/Box_Spacing  2 -> 1.5 (inherited from Geometry)\n"
              "1 change, 0 new findings, 2 solved (XC408, XC901)\n");
    EXPECT_EQ(run("unset", {"Projector[*]/Box_Spacing"}).status, 1);
}

TEST_F(SetVerb, NewErrorsAreRefusedWithoutForce) {
    const std::string error = "error[XC501] Screen/Screen_Radius: a Sphere needs it (0)\n";
    const ToolRun refused = run("set", {"Screen/Screen_Radius=0"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(refused.errors, "xmlconfig: nothing was written, for the change makes errors\n" + error +
                                  "'xmlconfig describe XC501' tells what is asked for; --force writes it all the same\n");
    const ToolRun json = run("set", {"--json", "Screen/Screen_Radius=0"});
    EXPECT_EQ(json.status, 1);
    const auto answer = nlohmann::json::parse(json.output);
    EXPECT_FALSE(answer["written"]);
    EXPECT_EQ(answer["exit"], 1);
    EXPECT_EQ(answer["newFindings"][0]["rule"], "XC501");
    EXPECT_EQ(content(), original);
    const ToolRun forced = run("set", {"--force", "Screen/Screen_Radius=0"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.output, testing::HasSubstr(error));
    EXPECT_NE(content(), original);
    EXPECT_EQ(run("set", {"ProjMap/Site=x"}).output, "+ ProjMap/Site  x\n1 change, 0 new findings\n");
    EXPECT_EQ(nlohmann::json::parse(run("set", {"--json", "Screen/Screen_Radius=5.2"}).output)["solved"][0]["rule"],
              "XC501");
}

TEST_F(SetVerb, ShowsTheLineOfAFaultInTheXml) {
    folder.write(L"dome.skorrax", "<a>\n <b></c>\n</a>\n");
    for (const char* verb : {"set", "unset"}) {
        const ToolRun set = run(verb, {verb == std::string("set") ? "ProjMap/Site=x" : "ProjMap/Site"});
        EXPECT_EQ(set.status, 3);
        EXPECT_THAT(set.errors, testing::HasSubstr("\n   <b></c>\n"));
        EXPECT_THAT(set.errors, testing::EndsWith("^\n"));
    }
}
