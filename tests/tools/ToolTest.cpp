#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

#include "tests/support/ToolFiles.h"
#include "tests/support/ToolHelp.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

const char* const hall = R"(<?xml version="1.0" encoding="UTF-8" standalone="no" ?>
<ConfigInfo>
  <Version>9.000</Version>
  <BuildDate>Mar 11 2019</BuildDate>
  <BuildNumber>2.1.1.14</BuildNumber>
  <DevelopedBy>Somebody</DevelopedBy>
  <System>
    <RunType>ClassicRun</RunType>
    <Is_Camera_Used>true</Is_Camera_Used>
  </System>
  <Projector ID="a/b=c">
    <Name>Größe 日本</Name>
    <DeviceSnippet>
      <device UID="X***1">
        <id>1</id>
      </device>
    </DeviceSnippet>
    <Channel_Extents>
      <Heading>
        <Yaw>1.000000000000000e+00</Yaw>
      </Heading>
    </Channel_Extents>
  </Projector>
  <Camera ID="1">
    <Camera_Calibration_Points>
		1, 10.000000, 20.000000,
		2, 30.000000, 40.000000
</Camera_Calibration_Points>
  </Camera>
  <ProjectorApprovedSlots>
    <Slot ID="3">
      <Name>Lobby</Name>
    </Slot>
  </ProjectorApprovedSlots>

</ConfigInfo>
)";

class Tool : public ToolFiles {
protected:
    std::string hallFile() const { return fileOf(hall, "hall.skorrax"); }
};

TEST_F(Tool, TellsItsVersionEverywhere) {
    expectRun(runTool({"--version"}), 0, "xmlconfig 2.1.1.14 (file version 9.000)\n", "");
    for (const std::string& verb : verbNames())
        expectRun(runTool({verb, "--version"}), 0, "xmlconfig 2.1.1.14 (file version 9.000)\n", "");
}

TEST_F(Tool, HelpsEverywhere) {
    const ToolRun run = runTool({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr("only \"]\" is written twice"));
    EXPECT_THAT(run.output, HasSubstr("Exit status: 0 done, 1 not found or refused, 2 wrong usage, 3 a file cannot be\n"
                                      "read or written, or is no configuration."));
    EXPECT_THAT(verbNames(), testing::ElementsAre("new", "show", "get", "set", "unset", "describe", "check", "layout",
                                                  "diff", "upgrade"));
    for (const std::string& verb : verbNames()) {
        const ToolRun help = runTool({verb, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.output, HasSubstr("xmlconfig " + verb + " "));
        EXPECT_THAT(help.output, HasSubstr("Exit status:"));
    }
}

TEST_F(Tool, HelpIsWrittenForPeople) {
    EXPECT_THAT(runTool({"help", "set"}).output, StartsWith("Change the values at addresses, all or none\n\n"
                                                            "Usage: xmlconfig set [OPTIONS] FILE [CHANGE...]\n\n"
                                                            "Operands:\n  FILE                    The file to change\n"));
    const std::string check = runTool({"help", "check"}).output;
    for (const char* option : {"\n  --fix[=RULE,...]        Do", "\n  --wait SECONDS          How", "\n  --color WHEN  "})
        EXPECT_THAT(check, HasSubstr(option));
    EXPECT_THAT(runTool({"help", "diff"}).output, HasSubstr("Usage: xmlconfig diff [OPTIONS] OLD NEW\n"));
    for (const std::string& verb : verbNames()) {
        const std::string help = runTool({verb, "--help"}).output;
        EXPECT_THAT(help, Not(HasSubstr("REQUIRED"))) << verb;
        EXPECT_EQ(firstGroups(help, "(.{81})"), Arguments()) << verb;
    }
}

TEST_F(Tool, HelpMayBeAskedForByAWord) {
    expectRun(runTool({"help"}), 0, runTool({"--help"}).output, "");
    expectRun(runTool({"help", "set"}), 0, runTool({"set", "--help"}).output, "");
    EXPECT_EQ(runTool({"help", "shw"}).status, 2);
}

TEST_F(Tool, WrongUsageIsStatusTwo) {
    expectRun(
        runTool({"shw", "x"}), 2, "",
        "xmlconfig: there is no verb \"shw\"; did you mean \"show\"?\nxmlconfig: 'xmlconfig --help' lists the verbs\n");
    expectRun(runTool({"frobnicate"}), 2, "",
              "xmlconfig: there is no verb \"frobnicate\"\nxmlconfig: 'xmlconfig --help' lists the verbs\n");
    expectRun(runTool({"show"}), 2, "", "xmlconfig: FILE is required\nxmlconfig: see 'xmlconfig show --help'\n");
    for (const Arguments& arguments :
         {Arguments{}, Arguments{"show", "--what", "x"}, Arguments{"get", "x"}, Arguments{"set", "x"},
          Arguments{"show", "--all", "--flat", "x"}, Arguments{"--what"}}) {
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors, StartsWith("xmlconfig: "));
    }
    expectRun(runTool({"check", "-", hallFile(), "-"}), 2, "", "xmlconfig: only one of the files can be standard input\n");
    expectRun(runTool({"upgrade", "-o", "-", path("hall.skorrax")}), 2, "",
              "xmlconfig: the result goes to a file; standard output cannot take it\n");
}

TEST_F(Tool, NamesTheOptionThatIsNearest) {
    expectRun(runTool({"get", "--orign", "x", "System"}), 2, "",
              "xmlconfig: The following argument was not expected: --orign; did you mean \"--origin\"?\n"
              "xmlconfig: see 'xmlconfig get --help'\n");
    expectRun(runTool({"layout", "x", "y"}), 2, "",
              "xmlconfig: The following argument was not expected: y\nxmlconfig: see 'xmlconfig layout --help'\n");
}

TEST_F(Tool, TellsThatStandardInputIsEmpty) {
    for (const std::string verb : {"show", "check", "layout"})
        expectRun(runToolReading("", {verb, "-"}), 3, "", "xmlconfig: standard input: is empty\n");
}

TEST_F(Tool, VersionsAreSpeltInOneWay) {
    const std::string file = fileOf("<ConfigInfo><Version>9</Version></ConfigInfo>");
    EXPECT_THAT(runTool({"show", file}).output, HasSubstr(", version 9.000"));
    const std::string newer = fileOf("<ConfigInfo><Version>10</Version></ConfigInfo>", "newer.skorrax");
    const std::string told = "is of file version 10.000; this program knows 9.000\n";
    EXPECT_THAT(runTool({"check", newer}).output, HasSubstr(told));
    for (const Arguments& words :
         {Arguments{"show", newer}, Arguments{"get", newer, "System"}, Arguments{"upgrade", newer},
          Arguments{"set", newer, "ProjMap/x=1"}, Arguments{"unset", newer, "ProjMap/x"}, Arguments{"diff", newer, file},
          Arguments{"diff", "--as-stored", file, newer}, Arguments{"layout", newer}, Arguments{"check", "--fix", newer}}) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.status, 3) << words[0];
        EXPECT_THAT(run.errors, testing::EndsWith(told));
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    }
}

TEST_F(Tool, ArgumentsMustBeUtf8) {
    const ToolRun run = runTool({"show", "\xFF.skorrax"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "xmlconfig: an argument is not UTF-8: \uFFFD.skorrax\n");
}

TEST_F(Tool, UnreadableFilesAreRefused) {
    const std::string missing = path("missing.skorrax");
    const std::string message =
        "xmlconfig: Error parseDataFile: Can not open file: " + missing + "; there is no such file\n";
    expectRun(runTool({"show", missing}), 3, "", message);
    expectRun(runTool({"check", missing}), 3, "", message);
    expectRun(runTool({"get", missing, "System"}), 3, "", message);
    expectRun(runTool({"set", missing, "System/RunType=x"}), 3, "", message);
    expectRun(runTool({"unset", missing, "System/RunType"}), 3, "", message);
    const ToolRun run = runTool({"show", fileOf("<ConfigInfo><Version>")});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.errors, HasSubstr("line 1, column "));
}

TEST_F(Tool, WhatCannotBeOpenedIsToldWithTheReason) {
    const std::string directory = path("folder.skorrax");
    std::filesystem::create_directory(std::filesystem::u8path(directory));
    const std::string readOnly = hallFile();
    std::filesystem::permissions(std::filesystem::u8path(readOnly), std::filesystem::perms::owner_read);
    for (const std::string verb : {"show", "check", "layout"}) {
        const std::string start = "xmlconfig: Error parseDataFile: Can not open file: ";
        expectRun(runTool({verb, directory}), 3, "", start + directory + "; it is a folder\n");
        expectRun(runTool({verb, readOnly}), 3, "",
                  start + readOnly + "; nobody may write it, and such a file is not opened\n");
    }
    const std::string empty = fileOf("", "empty.skorrax");
    expectRun(runTool({"show", empty}), 3, "",
              "xmlconfig: Error parseDataFile: Error during parsing: " + empty +
                  " XML message is: line 1, column 1: invalid document structure; the file is empty\n");
    EXPECT_THAT(runTool({"upgrade", directory}).errors, testing::EndsWith("; it is a folder\n"));
    std::filesystem::permissions(std::filesystem::u8path(readOnly), std::filesystem::perms::owner_all);
}

TEST_F(Tool, CommandsNameFilesAsShellsTakeThem) {
    for (const std::string name : {"a b", "a#b", "~a", "it's", "plain-1.2"}) {
        const std::string file = path(name + ".skorrax");
        std::string word = name == "plain-1.2" ? inCommand(file) : "'" + file + "'";
        if (name == "it's") word.replace(word.find("it's"), 4, "it'\\''s");
        EXPECT_THAT(runTool({"new", file}).output, testing::EndsWith("next: xmlconfig check " + word + "\n"));
    }
}

TEST_F(Tool, AnEmptyFileNameIsWrongUsage) {
    for (const Arguments& words :
         {Arguments{"new", ""}, Arguments{"show", ""}, Arguments{"get", "", "System"}, Arguments{"set", "", "ProjMap/x=1"},
          Arguments{"unset", "", "ProjMap/x"}, Arguments{"check", ""}, Arguments{"layout", ""}, Arguments{"diff", "", "x"},
          Arguments{"upgrade", ""}}) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.status, 2) << words[0];
        EXPECT_THAT(run.errors, HasSubstr("the file name is empty\n"));
    }
}

TEST_F(Tool, CommandsThatItNamesCanBePasted) {
    const std::string file = fileOf("<ConfigInfo><Version>8.000</Version></ConfigInfo>", "old hall.skorrax");
    EXPECT_THAT(runTool({"set", file, "ProjMap/x=1"}).errors,
                testing::EndsWith("must be upgraded first: xmlconfig upgrade '" + file + "'\n"));
    EXPECT_THAT(runTool({"show", file}).output, HasSubstr(" (xmlconfig check '" + file + "')\n"));
}

TEST_F(Tool, OtherXmlIsNoConfiguration) {
    const std::string other = "<Other><Version>9.000</Version><System/></Other>";
    const std::string file = fileOf(other);
    const std::string message = "xmlconfig: " + file + ": is no configuration, its root element is \"Other\"\n";
    for (const Arguments& arguments :
         {Arguments{"show", file}, Arguments{"get", file, "System/RunType"}, Arguments{"set", file, "System/RunType=x"},
          Arguments{"unset", file, "System/RunType"}, Arguments{"check", file}, Arguments{"layout", file},
          Arguments{"diff", file, "examples/dome.skorrax"}, Arguments{"diff", "--as-stored", "examples/dome.skorrax", file}})
        expectRun(runTool(arguments), 3, "", message);
    const ToolRun upgrade = runTool({"upgrade", file});
    EXPECT_EQ(upgrade.status, 3);
    EXPECT_THAT(upgrade.errors, HasSubstr(file + ": not upgraded: is no configuration, its root element is \"Other\"\n"));
    EXPECT_EQ(TemporaryFolder::readFile(file), other);
}

TEST_F(Tool, VersionThatIsNoNumberIsOfNoConfiguration) {
    const std::string file = fileOf("<ConfigInfo><Version>abc</Version><System/></ConfigInfo>");
    const std::string message = "xmlconfig: " + file + ": is no configuration, its version is \"abc\"\n";
    for (const Arguments& arguments : {Arguments{"show", file}, Arguments{"set", file, "System/RunType=x"},
                                       Arguments{"check", file}, Arguments{"diff", file, "examples/dome.skorrax"}})
        expectRun(runTool(arguments), 3, "", message);
}

TEST_F(Tool, OldFilesAreToldOfInOneLine) {
    const std::string file =
        fileOf("<ConfigInfo><Version>8.000</Version><System><RunType>x</RunType></System></ConfigInfo>");
    const std::string told = "xmlconfig: " + file + ": is of file version 8.000; read as it would be after the upgrade\n";
    expectRun(runTool({"get", file, "System/RunType"}), 0, "x\n", told);
    EXPECT_EQ(runTool({"show", file}).errors, told);
    EXPECT_EQ(runTool({"layout", file}).errors, told);
}

TEST_F(Tool, NewMakesAConfigurationThatIsInOrder) {
    const std::string file = path("neu.skorrax");
    expectRun(
        runTool({"new", file}), 0,
        "made " + file + ": file version 9.000, 0 projectors, 0 cameras\nnext: xmlconfig check " + inCommand(file) + "\n",
        "");
    expectRun(runTool({"check", file}), 0, file + ": 0 errors, 0 warnings, 0 notes; all is well\n", "");
    expectRun(runTool({"get", file, "Screen/Shape", "Geometry/Box_Size"}), 0,
              "Screen/Shape\tFlat\nGeometry/Box_Size\t21, 21\n", "");
}

TEST_F(Tool, NewTellsNothingQuietly) {
    expectRun(runTool({"new", "--quiet", path("neu.skorrax")}), 0, "", "");
    EXPECT_EQ(runTool({"check", path("neu.skorrax")}).status, 0);
}

TEST_F(Tool, NewMakesProjectorsInOneRow) {
    const std::string file = path("neu.skorrax");
    expectRun(
        runTool({"new", "--projectors", "4", file}), 0,
        "made " + file + ": file version 9.000, 4 projectors, 0 cameras\nnext: xmlconfig check " + inCommand(file) + "\n",
        "");
    expectRun(runTool({"get", file, "Projector[*]/Name", "Geometry/Projector_Count", "Geometry/Projector_Layout_Width",
                       "Geometry/Projector_Layout_Height"}),
              0,
              "Projector[1]/Name\tChannel_1\nProjector[2]/Name\tChannel_2\nProjector[3]/Name\tChannel_3\n"
              "Projector[4]/Name\tChannel_4\nGeometry/Projector_Count\t4\nGeometry/Projector_Layout_Width\t4\n"
              "Geometry/Projector_Layout_Height\t1\n",
              "");
    EXPECT_EQ(runTool({"new", "--projectors", "-1", path("other.skorrax")}).status, 2);
    expectRun(runTool({"new", "--json", "--force", "--projectors", "2", file}), 0,
              "{\n  \"format\": 1,\n  \"verb\": \"new\",\n  \"file\": " + nlohmann::json(file).dump() +
                  ",\n  \"version\": 9.0,\n  \"projectors\": 2,\n  \"exit\": 0\n}\n",
              "");
}

TEST_F(Tool, NewWritesNothingInADryRun) {
    const std::string file = path("neu.skorrax");
    expectRun(runTool({"new", "--dry-run", "--projectors", "2", file}), 0,
              "would make " + file + ": file version 9.000, 2 projectors, 0 cameras (dry run, nothing written)\n", "");
    const std::string json = runTool({"new", "--dry-run", "--json", file}).output;
    EXPECT_THAT(json, HasSubstr("\"written\": false"));
    EXPECT_EQ(folder.entries(), 0u);
    const std::string held = hallFile();
    EXPECT_EQ(runTool({"new", "--dry-run", held}).status, 1);
    EXPECT_EQ(runTool({"new", "--dry-run", "--force", held}).status, 0);
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, NewReplacesAFileOnlyByForce) {
    const std::string file = hallFile();
    expectRun(runTool({"new", file}), 1, "",
              "xmlconfig: " + file + ": exists; take another name, or --force, which replaces it\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
    EXPECT_EQ(runTool({"new", "--force", file}).status, 0);
    expectRun(runTool({"get", file, "Screen/Shape"}), 0, "Flat\n", "");
}

TEST_F(Tool, NewWantsTheExtension) {
    for (const char* name : {"hall.xml", "hall", "hall.skorra", ".skorrax"}) {
        const std::string file = name[0] == '.' ? name : path(name);
        expectRun(runTool({"new", file}), 1, "",
                  "xmlconfig: " + file + ": the name of a configuration ends in \".skorrax\"\n");
    }
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(Tool, NewTellsWhenTheFolderIsMissing) {
    const std::string file = path("nowhere/hall.skorrax");
    expectRun(runTool({"new", file}), 3, "",
              "xmlconfig: Error save(): An error occurred trying to save DOM tree to file. Msg is:Can not write file " +
                  file + ": No such file or directory\n");
}

TEST_F(Tool, ShowAllPrintsTheWholeTree) {
    expectRun(runTool({"show", "--all", hallFile()}), 0,
              "Version = 9.000\n"
              "BuildDate = Mar 11 2019\n"
              "BuildNumber = 2.1.1.14\n"
              "DevelopedBy = Somebody\n"
              "\n"
              "System\n"
              "  RunType = ClassicRun\n"
              "  Is_Camera_Used = true\n"
              "\n"
              "Projector [a/b=c]\n"
              "  Name = Größe 日本\n"
              "  DeviceSnippet\n"
              "    device UID=\"X***1\"\n"
              "      id = 1\n"
              "  Channel_Extents\n"
              "    Heading\n"
              "      Yaw = 57.29578°\n"
              "\n"
              "Camera [1]\n"
              "  Camera_Calibration_Points =\n"
              "    1, 10.000000, 20.000000,\n"
              "    2, 30.000000, 40.000000\n"
              "\n"
              "ProjectorApprovedSlots\n"
              "  Slot [3]\n"
              "    Name = Lobby\n",
              "");
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, GetPrintsStoredValues) {
    expectRun(runTool({"get", hallFile(), "System/RunType", "Projector[a/b=c]/Name", "Projector/Channel_Extents/Heading/Yaw",
                       "ProjectorApprovedSlots/Slot[3]/Name"}),
              0,
              "System/RunType\tClassicRun\nProjector[a/b=c]/Name\tGröße 日本\n"
              "Projector[a/b=c]/Channel_Extents/Heading/Yaw\t1.000000000000000e+00\n"
              "ProjectorApprovedSlots/Slot[3]/Name\tLobby\n",
              "");
    expectRun(runTool({"get", path("hall.skorrax"), "Projector/Name"}), 0, "Größe 日本\n", "");
}

TEST_F(Tool, GetPrintsElementsAsXmlAndGroupsAsTrees) {
    expectRun(runTool({"get", hallFile(), "Projector/DeviceSnippet"}), 0,
              "<device UID=\"X***1\">\n  <id>1</id>\n</device>\n", "");
    expectRun(runTool({"get", path("hall.skorrax"), "Projector/Channel_Extents"}), 0,
              "Channel_Extents\n  Heading\n    Yaw = 1.000000000000000e+00\n", "");
    expectRun(runTool({"get", path("hall.skorrax"), "ProjectorApprovedSlots/Slot[3]"}), 0, "Slot [3]\n  Name = Lobby\n", "");
}

TEST_F(Tool, GetTellsWhatIsMissingAndPrintsTheRest) {
    const std::string file = hallFile();
    expectRun(runTool({"get", file, "System/Nothing", "System/RunType", "Camera[2]/Name"}), 1,
              "System/RunType\tClassicRun\n",
              "xmlconfig: " + file + ": holds no System/Nothing\nxmlconfig: " + file +
                  ": holds no Camera[2]/Name; the file holds Camera[1]\n");
}

TEST_F(Tool, GetRefusesWhatIsNoAddress) {
    expectRun(runTool({"get", hallFile(), "Projector[1/Name"}), 2, "",
              "xmlconfig: Error parseAddress: \"Projector[1/Name\", character 10: the identifier has no end\n");
}

TEST_F(Tool, SetChangesExactlyWhatIsNamed) {
    const std::string file = hallFile();
    expectRun(runTool({"set", file, "Projector[a/b=c]/Name=x=y ü", "System/RunType=CinemaRun"}), 0,
              "~ Projector[Größe 日本]/Name  Größe 日本 -> x=y ü\n"
              "~ System/RunType              ClassicRun -> CinemaRun\n"
              "2 changes, 1 new finding, 1 solved (XC300)\n"
              "note[XC300] Projector[x=y ü]/Channel_Extents: neighbours, blends and coverage are not checked before \"x=y "
              "ü\" is in order\n",
              "");
    std::string expected = hall;
    expected.replace(expected.find("Größe 日本"), std::string("Größe 日本").size(), "x=y ü");
    expected.replace(expected.find("ClassicRun"), 10, "CinemaRun");
    const std::string changed = folder.read(L"hall.skorrax");
    const auto lines = [](std::string text) {
        for (std::size_t i; (i = text.find("\n\n")) != std::string::npos;) text.erase(i, 1);
        return text;
    };
    EXPECT_EQ(lines(changed), lines(expected));
}

TEST_F(Tool, SetStoresXmlElementsAsElements) {
    const std::string file = hallFile();
    EXPECT_EQ(runTool({"set", file, "Projector/DeviceSnippet=<device UID=\"Y***2\"><id>2</id></device>"}).status, 0);
    expectRun(runTool({"get", file, "Projector/DeviceSnippet"}), 0, "<device UID=\"Y***2\">\n  <id>2</id>\n</device>\n", "");
}

TEST_F(Tool, SetAddsKnownSettings) {
    const std::string file = hallFile();
    expectRun(runTool({"set", file, "Geometry/Box_Spacing=1.75", "ProjectorApprovedSlots/Slot[4]/Name=Foyer",
                       "ProjMap/any/key=1"}),
              0,
              "+ Geometry/Box_Spacing                 1.75\n"
              "+ ProjectorApprovedSlots/Slot[4]/Name  Foyer\n"
              "+ ProjMap/any/key                      1\n"
              "3 changes, 1 new finding\n"
              "note[XC901] Geometry/Box_Spacing: has no effect now: Geometry/Enable_Automatic_Mapper_Settings is true\n",
              "");
    expectRun(runTool({"get", file, "Geometry/Box_Spacing", "ProjectorApprovedSlots/Slot[4]/Name", "ProjMap/any/key"}), 0,
              "Geometry/Box_Spacing\t1.750000000000000e+00\nProjectorApprovedSlots/Slot[4]/Name\tFoyer\n"
              "ProjMap/any/key\t1\n",
              "");
    expectRun(runTool({"check", "--only", "XC103,XC104,XC105", file}), 0,
              file + ": 0 errors, 0 warnings, 0 notes; all is well\n", "");
}

TEST_F(Tool, SetIsAllOrNothing) {
    const std::string file = hallFile();
    const std::pair<std::string, std::string> faults[] = {
        {"System/RunTipe=x", "System/RunTipe: there is no such setting; did you mean \"RunType\"?"},
        {"Sistem/RunType=x", "Sistem/RunType: there is no such setting; did you mean \"System\"?"},
        {"System/Is_Camera_Used=maybe",
         "System/Is_Camera_Used: \"maybe\" is not of type bool; 'xmlconfig describe System/Is_Camera_Used' tells what fits; "
         "--force stores it all the same"},
        {"Projector[2]/Name=x",
         "Projector[2]/Name: there is no such section; the file holds Projector[Größe 日本]; --force adds it"},
        {"System[2]/RunType=x", "System[2]/RunType: there is no such section; the file holds System; --force adds it"},
        {"System=x", "System: a section has no value; name a setting in it"},
        {"Projector/Channel_Extents=1", "Projector[a/b=c]/Channel_Extents: holds other settings and no value"},
        {"Camera[1]/DeviceSnippet/device=1", "Camera[1]/DeviceSnippet/device: there is no device snippet"},
    };
    for (const auto& [change, message] : faults) {
        const ToolRun run = runTool({"set", file, "System/RunType=CinemaRun", change});
        EXPECT_EQ(run.status, 1) << change;
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "xmlconfig: " + message + "\n");
        EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
    }
    expectRun(runTool({"set", file, "System/RunType=CinemaRun", "System/RunType"}), 2, "",
              "xmlconfig: Error parseAddress: \"System/RunType\", character 15: \"=\" and a value are missing\n");
    expectRun(runTool({"set", "--force", file, "System/RunType=CinemaRun", "Projector/Channel_Extents=1"}), 1, "",
              "xmlconfig: Projector[a/b=c]/Channel_Extents: holds other settings and no value\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, SetRefusesWhatXmlCannotHold) {
    const std::string file = hallFile();
    const ToolRun run = runTool({"set", file, "System/RunType=CinemaRun", "System/Skorra_File=a\x01z"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, StartsWith("xmlconfig: Error setItem: "));
    const ToolRun element = runTool({"set", file, "System/RunType=CinemaRun", "Projector/DeviceSnippet=<device>"});
    EXPECT_EQ(element.status, 1);
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, SetByForceStoresAnything) {
    const std::string file = hallFile();
    expectRun(
        runTool({"set", "--force", file, "System/Is_Camera_Used=maybe", "Projector[2]/Nickname=x", "Mine/Own=1"}), 0,
        "~ System/Is_Camera_Used  true -> maybe\n"
        "+ Projector[2]/Nickname  x\n"
        "+ Mine/Own               1\n"
        "3 changes, 8 new findings, 1 solved (XC300)\n"
        "error[XC103] System/Is_Camera_Used: \"maybe\" is not of type bool; the application reads true\n"
        "error[XC309] Projector[2]/Channel_Extents: has no channel yet\n"
        "warning[XC202] Projector[2]/DeviceSnippet: \"2\" has no device snippet\n"
        "warning[XC217] Geometry/Projector_Count: reads 1, but there are 2 projectors\n"
        "warning[XC218] Geometry/Projector_Layout_Width: the layout of 1 x 1 has room for 1, but there are 2 projectors\n"
        "note[XC104] Projector[2]/Nickname: there is no such setting\n"
        "note[XC105] Mine: there is no such section\n"
        "note[XC300] Projector[Größe 日本]/Channel_Extents: neighbours, blends and coverage are not checked before \"Größe "
        "日本\" and 1 other are in order\n",
        "");
    expectRun(runTool({"get", file, "System/Is_Camera_Used", "Projector[2]/Nickname", "Mine/Own"}), 0,
              "System/Is_Camera_Used\tmaybe\nProjector[2]/Nickname\tx\nMine/Own\t1\n", "");
    const ToolRun run = runTool({"check", "--only", "XC103,XC104,XC105", file});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr("System/Is_Camera_Used: \"maybe\" is not of type bool; the application reads true\n"));
    EXPECT_THAT(run.output, HasSubstr("]/Nickname: there is no such setting\n"));
    EXPECT_THAT(run.output, HasSubstr(" Mine: there is no such section\n"));
}

TEST_F(Tool, SetNeverMixesValuesAndSettings) {
    const std::string file = hallFile();
    const auto refused = [&](const std::vector<std::string>& changes, const std::string& message) {
        std::vector<std::string> words{"set", "--force", file};
        words.insert(words.end(), changes.begin(), changes.end());
        expectRun(runTool(words), 1, "", "xmlconfig: " + message + "\n");
        EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
    };
    refused({"System/Own=1", "System/Own/Part=2"}, "System/Own/Part: a value stands where this setting belongs");
    refused({"System/Own/Part=2", "System/Own=1"}, "System/Own: holds other settings and no value");
    refused({"System/RunType/a/b=1"}, "System/RunType/a/b: a value stands where this setting belongs");
    EXPECT_EQ(runTool({"set", "--force", file, "System/Own=", "System/Own/Part=2"}).status, 0);
    expectRun(runTool({"get", file, "System/Own/Part"}), 0, "2\n", "");
}

TEST_F(Tool, SetLeavesTheHeaderAlone) {
    const std::string file = hallFile();
    for (const std::string name : {"Version", "BuildDate", "BuildNumber", "DevelopedBy"}) {
        expectRun(runTool({"set", "--force", file, name + "/x=1"}), 1, "",
                  "xmlconfig: " + name + "/x: there are no settings in " + name + "\n");
    }
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, SetTellsThatAnElementStays) {
    const std::string file = hallFile();
    EXPECT_EQ(runTool({"set", file, "Projector/DeviceSnippet=<device/>"}).status, 0);
    expectRun(runTool({"set", file, "Projector/DeviceSnippet="}), 1, "",
              "xmlconfig: Projector[a/b=c]/DeviceSnippet: an XML element cannot be made empty\n");
}

TEST_F(Tool, SettingWhatIsStoredLeavesTheFileAlone) {
    const std::string file = hallFile();
    const auto before = std::filesystem::last_write_time(file);
    expectRun(runTool({"set", file, "System/RunType=ClassicRun"}), 0, "0 changes, 0 new findings\n", "");
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
}

TEST_F(Tool, SetTellsOnceThatTheFileCannotBeSaved) {
    const std::string file = hallFile();
    expectRun(runTool({"set", file, "System/RunType=CinemaRun", "Projector/Name=" + std::string(2000, 'x')}, "ulimit -f 1;"),
              3, "",
              "xmlconfig: Error save(): An error occurred trying to save DOM tree to file. Msg is:Can not write file " +
                  file + ": File too large\n");
    EXPECT_EQ(folder.read(L"hall.skorrax"), hall);
    EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(Tool, FilesOfOtherVersionsAreNotChanged) {
    const std::string older = "<ConfigInfo><Version>2.003</Version></ConfigInfo>";
    const std::string file = fileOf(older);
    const std::string message = "xmlconfig: " + file +
                                ": is of file version 2.003 and must be upgraded first: xmlconfig upgrade " +
                                inCommand(file) + "\n";
    expectRun(runTool({"set", file, "System/RunType=x"}), 1, "", message);
    EXPECT_EQ(folder.read(L"test.skorrax"), older);
    expectRun(runTool({"set", fileOf("<ConfigInfo><Version>9.001</Version></ConfigInfo>"), "System/RunType=x"}), 3, "",
              "xmlconfig: " + file + ": is of file version 9.001; this program knows 9.000\n");
    for (const char* const content : {"<ConfigInfo><Version/></ConfigInfo>", "<ConfigInfo/>"})
        expectRun(runTool({"set", fileOf(content), "System/RunType=x"}), 3, "",
                  "xmlconfig: " + file + ": is no configuration, it has no version\n");
}

TEST_F(Tool, TextAndFileNamesAreUtf8UnderAnyLocale) {
    for (const std::string locale : {"LC_ALL=C", "LC_ALL=de_DE.UTF-8", "LC_ALL=POSIX"}) {
        const std::string file = path("Größe 日本 " + locale + ".skorrax");
        EXPECT_EQ(runTool({"new", file}, locale).status, 0);
        expectRun(runTool({"new", file}, locale), 1, "",
                  "xmlconfig: " + file + ": exists; take another name, or --force, which replaces it\n");
        expectRun(runTool({"set", file, "System/Skorra_File=Zürich 🎥.skorrax", "Geometry/Box_Spacing=1.75"}, locale), 0,
                  "+ System/Skorra_File    Zürich 🎥.skorrax\n~ Geometry/Box_Spacing  1.5 -> 1.75\n2 changes, 1 new finding\n"
                  "note[XC901] Geometry/Box_Spacing: has no effect now: Geometry/Enable_Automatic_Mapper_Settings is true\n",
                  "");
        expectRun(runTool({"get", file, "System/Skorra_File"}, locale), 0, "Zürich 🎥.skorrax\n", "");
        expectRun(runTool({"get", file, "System/Größe"}, locale), 1, "", "xmlconfig: " + file + ": holds no System/Größe\n");
    }
    EXPECT_EQ(folder.entries(), 3U);
}

TEST_F(Tool, LibraryIsHeardOnlyWhenAsked) {
    const std::string file = path("hall.skorrax");
    const std::string made =
        "made " + file + ": file version 9.000, 0 projectors, 0 cameras\nnext: xmlconfig check " + inCommand(file) + "\n";
    expectRun(runTool({"new", "--verbose", file}), 0, made,
              "xmlconfig: INFO: newConfiguration()\nxmlconfig: INFO: saveConfiguration('" + file + "')\n");
    expectRun(runTool({"--verbose", "new", "--force", file}), 0, made,
              "xmlconfig: INFO: newConfiguration()\nxmlconfig: INFO: saveConfiguration('" + file + "')\n");
}

TEST_F(Tool, AnEmptyValueIsNotTheNextWord) {
    const std::string file = hallFile();
    expectRun(runTool({"get", "--default=", file, "System/Length_Unit"}), 0, "\n", "");
    EXPECT_EQ(runTool({"layout", "--svg=", file}).errors,
              "xmlconfig: --svg: the file name is empty\nxmlconfig: see 'xmlconfig layout --help'\n");
    EXPECT_EQ(runTool({"set", "--dry-run=", file, "System/RunType=x"}).status, 2);
    EXPECT_EQ(runTool({"set", "--force", file, "System/RunType="}).status, 0);
}

TEST_F(Tool, FullOutputIsAFailure) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    const std::string fault = "xmlconfig: standard output cannot be written";
    const auto expectFault = [&](const std::string& words, const std::string& written) {
        const std::string command = shellQuoted(toolPath()) + " " + words + " > /dev/full 2> " + shellQuoted(path("errors"));
        EXPECT_EQ(shellStatus(command), 3) << words;
        EXPECT_EQ(TemporaryFolder::readFile(path("errors")), fault + written + "\n") << words;
    };
    const std::string file = hallFile();
    expectFault("--version", "");
    expectFault("show examples/dome.skorrax", "");
    expectFault("set --dry-run " + shellQuoted(file) + " System/RunType=CinemaRun", "");
    expectFault("set " + shellQuoted(file) + " System/RunType=CinemaRun", "; " + file + " is written");
    expectRun(runTool({"get", file, "System/RunType"}), 0, "CinemaRun\n", "");
    expectFault("set --json " + shellQuoted(file) + " System/RunType=ClassicRun", "; " + file + " is written");
    expectFault("new " + shellQuoted(path("new.skorrax")), "; " + path("new.skorrax") + " is written");
    expectFault("layout --svg " + shellQuoted(path("a.svg")) + " examples/dome.skorrax",
                "; " + path("a.svg") + " is written");
    expectFault("upgrade -o " + shellQuoted(path("up.skorrax")) + " examples/history/dome-5.000.skorrax",
                "; " + path("up.skorrax") + " is written");
}

TEST_F(Tool, ExampleRuns) {
    const std::string command =
        "XMLCONFIG_TOOL=" + shellQuoted(toolPath()) + " sh examples/run-example.sh > " + shellQuoted(path("out")) + " 2>&1";
    EXPECT_EQ(shellStatus(command), 0);
    const std::string output = folder.read(L"out");
    EXPECT_THAT(output, HasSubstr("50c50\n"
                                  "<     <Box_Spacing>1.500000000000000e+00</Box_Spacing>\n"
                                  "---\n"
                                  ">     <Box_Spacing>1.750000000000000e+00</Box_Spacing>\n"
                                  "298c298\n"
                                  "<     <Name>Dome 2</Name>\n"
                                  "---\n"
                                  ">     <Name>Dome, left of the middle</Name>\n"));
    EXPECT_THAT(output, HasSubstr("\nhistory/dome-1.500.skorra: version 1.500 -> 9.000, in upgraded.skorrax\n"
                                  "  lost     Camera[3] \"Old analogue\" with its 51 settings: "));
    EXPECT_THAT(output, HasSubstr("\n1 upgraded, 0 at the latest version already, 0 failed; 1 lost something\n"));
    EXPECT_THAT(output, HasSubstr("\nFile        upgraded.skorrax, version 9.000, build "));
}

}  // namespace
