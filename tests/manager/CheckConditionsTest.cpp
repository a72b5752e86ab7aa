#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "tests/support/DeviceSections.h"
#include "tests/support/FoundBy.h"

// Each rule just inside and just outside of its condition.

namespace {

TEST(CheckConditions, LooksAtTheMACAddressInAnIDWithoutASnippetToo) {
    EXPECT_EQ(foundBy(L"XC204", camera("PGR***zz", "")), (Lines{L"Camera[PGR***zz]: \"zz\" in the ID is no MAC address"}));
    EXPECT_EQ(foundBy(L"XC204", camera("PGR***02:1C:00:51:00:a0", snippet("<macAddress>021c-00-51:00a0</macAddress>"))),
              Lines());
    EXPECT_EQ(foundBy(L"XC204", camera("PGR", "")), Lines());
}

TEST(CheckConditions, TakesAWordThatIsNoneForWhatTheApplicationTakesItFor) {
    const auto lamps = [](const std::string& mode) {
        std::string content;
        for (const char* const id : {"1", "2", "3", "4"})
            content += std::string("<Projector ID='") + id + "'><Lamp_Mode>" + (*id == '4' ? mode : "") +
                       "</Lamp_Mode></Projector>";
        return foundBy(L"XC408", content);
    };
    EXPECT_EQ(lamps("Dual").size(), 1U);
    EXPECT_EQ(lamps("dual"), Lines());
}

TEST(CheckConditions, ShowsValuesInTheUnitsOfTheDocument) {
    std::string lamps = "<System><Length_Unit>Feet</Length_Unit><AngleUnit>Degrees</AngleUnit></System>";
    for (const char* const power : {"85", "85", "85", "7.25e1"})
        lamps += "<Projector ID='" + std::to_string(lamps.size()) + "'><Lamp_Power>" + power + "</Lamp_Power></Projector>";
    EXPECT_NE(foundBy(L"XC408", lamps)[0].find(L": 72.5 %, the other 3 projectors have 85 %"), std::wstring::npos);
    const auto conflict = [&](const std::string& setting, const std::string& ours, const std::string& theirs) {
        const std::string comment = "<!--xmlconfig conflict " + setting + " ours=" + ours + " theirs=" + theirs + "-->";
        const std::wstring line = foundBy(L"XC111", lamps + comment + "<Screen/>")[0];
        return line.substr(0, line.find(L';'));  // without the command
    };
    EXPECT_EQ(conflict("Screen/Screen_MinTheta", "-1.570796326794897e+00", "wide"),
              L"Screen/Screen_MinTheta: is not settled: ours -90\u00b0, theirs wide");
    EXPECT_EQ(conflict("Screen/Screen_Radius", "2.1336", ""),
              L"Screen/Screen_Radius: is not settled: ours 7 ft, theirs nothing");
}

TEST(CheckConditions, AConflictIsToldOfTheDeviceAndItemThatItNames) {
    const std::string conflict = "<!--xmlconfig conflict Projector[1]/Gamma ours=2 theirs=3-->";
    const auto document = ConfigInfo::fromText(
        currentFile(conflict + "<Screen/>" + projector("1", "<Name>Dome</Name><Gamma>2</Gamma>")), L"hall.skorrax");
    const std::vector<XMLConfig::Finding> findings = XMLConfig::check(*document);
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings[0].rule, L"XC111");
    EXPECT_EQ(findings[0].address, L"Projector[1]/Gamma");
    EXPECT_EQ(findings[0].device, L"Dome");
    EXPECT_EQ(findings[0].element.name(), L"Gamma");
}

TEST(CheckConditions, FollowsNoOldIDOfSeveralCameras) {
    const std::string order = "<Color><CameraOrder>x</CameraOrder></Color>";
    const std::string old = "<OldSectionID>x</OldSectionID>";
    EXPECT_EQ(foundBy(L"XC208", order + camera("1", old)),
              (Lines{L"Color/CameraOrder: there is no camera \"x\"; \"1\" was x before; set Color/CameraOrder=1"}));
    EXPECT_EQ(foundBy(L"XC208", order + camera("1", old) + camera("2", old)),
              (Lines{L"Color/CameraOrder: there is no camera \"x\""}));
}

TEST(CheckConditions, UnsetsNothingSafelyThatStandsTwice) {
    const std::string geometry = "<Geometry><Box_Spacing>2</Box_Spacing></Geometry>";
    const std::string own = "<Box_Spacing>2</Box_Spacing>";
    const std::wstring found = L"Projector[1]/Box_Spacing: says again what it would inherit (2)";
    EXPECT_EQ(foundBy(L"XC409", geometry + "<Projector ID='1'>" + own + "</Projector>"),
              (Lines{found + L"; unset Projector[1]/Box_Spacing"}));
    EXPECT_EQ(foundBy(L"XC409", geometry + "<Projector ID='1'>" + own + "<Box_Spacing>3</Box_Spacing></Projector>"),
              (Lines{found}));
    const std::string second =
        "<Associated_Camera_Id_1>a</Associated_Camera_Id_1>"
        "<Associated_Camera_Id_2>a</Associated_Camera_Id_2>";
    EXPECT_EQ(
        foundBy(L"XC210", "<Projector ID='1'>" + second + "<Associated_Camera_Id_2>b</Associated_Camera_Id_2></Projector>"),
        (Lines{L"Projector[1]/Associated_Camera_Id_2: is the first camera again"}));
}

TEST(CheckConditions, APoseThatCannotBeReadIsNone) {
    const auto posed = [](const std::string& position) {
        return foundBy(L"XC601",
                       camera("1", "<ExplicitExtrinsicValid>true</ExplicitExtrinsicValid><ExplicitExtrinsicXYZ>" + position +
                                       "</ExplicitExtrinsicXYZ><ExplicitExtrinsicYPR>0, 0, 0"
                                       "</ExplicitExtrinsicYPR>"));
    };
    EXPECT_EQ(posed("1, 2, 3"), Lines());
    EXPECT_EQ(posed("1, 2").size(), 1U);
}

TEST(CheckConditions, ATimeOfTheLastRunIsNotLaterThanNow) {
    const auto told = [](const std::string& time) {
        return foundBy(L"XC903",
                       "<ProjectorApprovedSlots><TimeOfLastRun>" + time + "</TimeOfLastRun></ProjectorApprovedSlots>");
    };
    EXPECT_EQ(told("2019-03-11 14:05:09"), Lines());
    EXPECT_EQ(told("2999-03-11 14:05:09"),
              (Lines{L"ProjectorApprovedSlots/TimeOfLastRun: 2999-03-11 14:05:09 is later than now"}));
}

TEST(CheckConditions, AVisitIsNotLaterThanNowByAnHourEither) {
    const auto told = [](std::int64_t time) {
        return foundBy(L"XC903",
                       "<SiteAnalytics><LastRunTimestamp>" + std::to_string(time) + "</LastRunTimestamp></SiteAnalytics>")
            .size();
    };
    EXPECT_EQ(told(XMLConfig::detail::now() - 60), 0U);
    EXPECT_EQ(told(XMLConfig::detail::now() + 3600), 1U);
}

TEST(CheckConditions, BlanksOfAnyKindAroundAWordAreMended) {
    EXPECT_EQ(foundBy(L"XC109", "<Screen><Shape>\t sphere\n</Shape></Screen>"),
              (Lines{L"Screen/Shape: \"\t sphere\n\" is none of Flat, Sphere, Cylinder, Ruled, Toroid, VRML, Test; set "
                     L"Screen/Shape=Sphere"}));
}

TEST(CheckConditions, OnlyTheOlderNameOfAWordIsTakenForTheOtherOne) {
    const auto target = [](const std::string& type) {
        return "<TargetLocator><Data_Type>" + type + "</Data_Type></TargetLocator>";
    };
    EXPECT_EQ(foundBy(L"XC109", target("Projector Pose")), Lines());
    EXPECT_EQ(foundBy(L"XC112", target("Projector Pose")).size(), 1U);
    EXPECT_EQ(foundBy(L"XC109", target("projector pose")).size(), 1U);
    EXPECT_EQ(foundBy(L"XC112", target("projector pose")), Lines());
}

TEST(CheckConditions, EdgeThresholdsAreCountedBetweenCommas) {
    const auto thresholds = [](const std::string& text) {
        return foundBy(L"XC606", camera("1", "<MultiCamEdgeThreshold>" + text + "</MultiCamEdgeThreshold>")).size();
    };
    for (const char* const text : {"", ",", "40", "40 41 42", "40,41,42,43", ",40,,41,42,43,"})
        EXPECT_EQ(thresholds(text), 0U) << text;
    for (const char* const text : {"40,41", "40 41,42 43", "40,41 42,43", "1,2,3,4,5"})
        EXPECT_EQ(thresholds(text), 1U) << text;
}

TEST(CheckConditions, SizesAreNeededOnlyWhereTheyAreEnteredByHand) {
    const auto screen = [](const std::string& items) { return foundBy(L"XC501", "<Screen>" + items + "</Screen>").size(); };
    const std::string model = "<Shape>VRML</Shape><VRML/>";
    EXPECT_EQ(screen(model + "<SizeDefinition>0</SizeDefinition>"), 1U);
    EXPECT_EQ(screen(model), 1U);
    EXPECT_EQ(screen(model + "<Auto_Dimensions>true</Auto_Dimensions>"), 0U);
    for (const char* const definition : {"1", "2"})
        EXPECT_EQ(screen(model + "<SizeDefinition>" + definition + "</SizeDefinition>"), 0U) << definition;
}

TEST(CheckConditions, ABlendThatIsNoNumberHasOneFinding) {
    const std::string blend = "<Projector ID='1'><Blend_Left>nan</Blend_Left></Projector>";
    EXPECT_EQ(foundBy(L"XC113", blend).size(), 1U);
    EXPECT_EQ(foundBy(L"XC314", blend), Lines());
}

TEST(CheckConditions, WhatIsNoNumberHasOneFinding) {
    const auto rulesOf = [](const std::string& content) {
        std::wstring rules;
        for (const wchar_t* const rule : {L"XC113", L"XC310", L"XC316", L"XC501", L"XC615"})
            if (!foundBy(rule, content).empty()) rules += (rules.empty() ? L"" : L" ") + std::wstring(rule);
        return rules;
    };
    const std::string nan = "nan, nan, nan";
    const std::string eye = "<Channel_Extents><Eye_Point>" + nan + "</Eye_Point></Channel_Extents>";
    EXPECT_EQ(rulesOf(projector("1", eye)), L"XC113");
    EXPECT_EQ(rulesOf(projectorAt("1", "0", "0", "") + "<TargetLocator><Eye_Point>" + nan + "</Eye_Point></TargetLocator>"),
              L"XC113");
    EXPECT_EQ(rulesOf(projector("1", "<Screen_Area_Left>nan</Screen_Area_Left>")), L"XC113");
    const std::string sphere =
        "<Screen><Shape>Sphere</Shape><SizeDefinition>0</SizeDefinition><Screen_Radius>nan</Screen_Radius>"
        "<Screen_MinTheta>nan</Screen_MinTheta><Screen_MaxTheta>1</Screen_MaxTheta><Screen_MinPhi>0"
        "</Screen_MinPhi><Screen_MaxPhi>1</Screen_MaxPhi></Screen>";
    EXPECT_EQ(rulesOf(sphere), L"XC113");
    EXPECT_EQ(rulesOf("<Color><NormalizedValidExposureSampleRange>nan, 1</NormalizedValidExposureSampleRange></Color>"),
              L"XC113");
}

TEST(CheckConditions, AnUnreadableTextHidesWhatWouldBeInherited) {
    EXPECT_EQ(foundBy(L"XC103",
                      "<Geometry><Box_Size>9, 9</Box_Size></Geometry><Projector ID='1'><Box_Size>1</Box_Size></Projector>"),
              (Lines{L"Projector[1]/Box_Size: \"1\" is not of type 2-D integer point; the application reads 21, 21"}));
}

TEST(CheckConditions, AddressesAreComparedAsNumbers) {
    const auto at = [](const std::string& id, const std::string& address) {
        return camera(id, snippet("<ipAddress>" + address + "</ipAddress>"));
    };
    EXPECT_EQ(foundBy(L"XC701", at("1", "192.168.1.1") + at("2", "192.168.001.001")).size(), 1U);
    EXPECT_EQ(foundBy(L"XC701", at("1", "192.168.1.1") + at("2", "192.168.1.2")), Lines());
}

TEST(CheckConditions, DevicesWithoutASerialPortShareNone) {
    const std::string meter = "<Color><Colorimeter_Type>1</Colorimeter_Type><AdvColor_ComPort/></Color>";
    const auto serial = [](const std::string& id, const std::string& port) {
        return "<Projector ID='" + id + "'>" + snippet("<connection type='SERIAL'><port>" + port + "</port></connection>") +
               "</Projector>";
    };
    const std::string box = "<System><Black_Box_Cameras_Comm>true,serial,COM1,1,2</Black_Box_Cameras_Comm></System>";
    EXPECT_EQ(foundBy(L"XC702", meter + box + serial("1", "COM2")), Lines());
    EXPECT_EQ(foundBy(L"XC702", meter + serial("1", "")), Lines());
    EXPECT_EQ(foundBy(L"XC702", box + serial("1", "com1")).size(), 1U);
}

TEST(CheckConditions, AQuarterTurnUpIsNotOverTheTop) {
    EXPECT_EQ(foundBy(L"XC306", projectorAt("1", "3.141592653589794e+00", "1.570796326794897e+00", "")), Lines());
    EXPECT_EQ(foundBy(L"XC306", projectorAt("1", "-3.1416", "1.5708", "")).size(), 2U);
}

TEST(CheckConditions, FaultsOfAFieldHideOneAnotherAsLittleAsThoseOfTheHeading) {
    const auto found = [](const std::string& yaw, const std::string& left, const std::string& right) {
        const std::string content =
            "<Projector ID='1'><Channel_Extents><Heading><Yaw>" + yaw + "</Yaw></Heading><HFOV><Left>" + left +
            "</Left><Right>" + right +
            "</Right></HFOV><VFOV><Top>0.2</Top><Bottom>-0.2</Bottom></VFOV></Channel_Extents></Projector>";
        std::wstring rules;
        for (const wchar_t* const rule : {L"XC303", L"XC304", L"XC305", L"XC307", L"XC309", L"XC113"})
            if (!foundBy(rule, content).empty()) rules += std::wstring(rule) + L" ";
        return rules;
    };
    EXPECT_EQ(found("0", "-0.3", "0.3"), L"");
    EXPECT_EQ(found("-67.5", "0.3", "-0.3"), L"XC303 XC305 ");
    EXPECT_EQ(found("nan", "0.3", "-1.6"), L"XC303 XC304 XC113 ");
    EXPECT_EQ(found("-67.5", "0.1", "0.3"), L"XC305 XC307 ");
    EXPECT_EQ(found("0", "30", "-30"), L"XC305 ");
    EXPECT_EQ(found("0", "-1.6", "30"), L"XC304 XC305 ");
    EXPECT_EQ(found("0", "nan", "0.3"), L"XC113 ");
    EXPECT_EQ(found("0", "6.283185307179586", "0.3"), L"XC303 XC304 ") << "a whole turn is an angle";
    EXPECT_EQ(found("0", "6.2831853071796", "0.3"), L"XC305 ");
}

TEST(CheckConditions, AProjectorWithoutEdgesHasNoChannelWhereverItIsHeaded) {
    const auto headed = [](const std::string& yaw) {
        return foundBy(L"XC309", "<Projector ID='1'><Channel_Extents><Heading><Yaw>" + yaw +
                                     "</Yaw></Heading></Channel_Extents></Projector>");
    };
    EXPECT_EQ(headed("0.1"), (Lines{L"Projector[1]/Channel_Extents: has no channel yet"}));
    EXPECT_EQ(headed("nan"), headed("0.1"));
    EXPECT_EQ(headed("-67.5"), headed("0.1"));
}

TEST(CheckConditions, AYawIsMendedInAllItsDigits) {
    EXPECT_EQ(foundBy(L"XC306", projectorAt("1", "3.500000123456789e+00", "0", "")),
              (Lines{L"Projector[1]/Channel_Extents/Heading/Yaw: 200.54\u00b0 is more than half a turn; set "
                     L"Projector[1]/Channel_Extents/Heading/Yaw=-159.464764630659deg"}));
}

TEST(CheckConditions, OppositeBlendsMayTakeTheWholeImage) {
    const auto blended = [](const std::string& left, const std::string& right) {
        return foundBy(L"XC314", "<Projector ID='1'><Blend_Left>" + left + "</Blend_Left><Blend_Right>" + right +
                                     "</Blend_Right></Projector>");
    };
    EXPECT_EQ(blended("40", "60"), Lines());
    EXPECT_EQ(blended("40", "60.1").size(), 1U);
    EXPECT_EQ(blended("-1", "100"), Lines());
    EXPECT_EQ(blended("100.1", "-1").size(), 1U);
    EXPECT_EQ(blended("-0.5", "0").size(), 1U);
}

TEST(CheckConditions, StackedProjectorsHaveNoOrder) {
    const auto area = [](const std::string& left) { return "<Screen_Area_Left>" + left + "</Screen_Area_Left>"; };
    EXPECT_EQ(foundBy(L"XC317", projectorAt("1", "0", "0", area("0.5")) + projectorAt("2", "0", "0", area("0.4"))), Lines());
    EXPECT_EQ(foundBy(L"XC317", projectorAt("1", "0", "0", area("0.5")) + projectorAt("2", "0.3", "0", area("0.4"))).size(),
              1U);
}

TEST(CheckConditions, EyePointsMayLieAMillimeterApart) {
    const auto seenFrom = [](const std::string& one, const std::string& other, const std::string& target) {
        const auto at = [](const std::string& id, const std::string& y) {
            return "<Projector ID='" + id + "'><Channel_Extents><Eye_Point>0, " + y +
                   ", 0</Eye_Point></Channel_Extents></Projector>";
        };
        return foundBy(L"XC310", at("1", one) + at("2", other) + "<TargetLocator><Eye_Point>0, " + target +
                                     ", 0</Eye_Point></TargetLocator>")
            .size();
    };
    EXPECT_EQ(seenFrom("0", "0", "0.0009"), 0U);
    EXPECT_EQ(seenFrom("0", "0", "0.0011"), 1U);
    EXPECT_EQ(seenFrom("0", "0.0011", "0"), 1U);
    EXPECT_EQ(seenFrom("-0.0009", "0.0009", "0"), 1U);
}

TEST(CheckConditions, AProjectorWithoutAChannelIsSeenFromNowhere) {
    const std::string target = "<TargetLocator><Eye_Point>0, 0, 1.65</Eye_Point></TargetLocator>";
    const std::string edge = "<VFOV><Top>0.2</Top></VFOV>";
    const auto projector = [](const std::string& id, const std::string& extents) {
        return "<Projector ID='" + id + "'><Channel_Extents>" + extents + "</Channel_Extents></Projector>";
    };
    const std::string seen = projector("1", edge + "<Eye_Point>0, 0, 1.65</Eye_Point>");
    EXPECT_EQ(foundBy(L"XC310", target + projector("2", "")), Lines());
    EXPECT_EQ(foundBy(L"XC310", target + seen + projector("2", "")), Lines());
    EXPECT_EQ(foundBy(L"XC310", target + seen + projector("2", edge)).size(), 1U);
    EXPECT_EQ(foundBy(L"XC310", target + projector("2", "<Eye_Point>0, 0, 1</Eye_Point>")).size(), 1U);
}

TEST(CheckConditions, KeysOfManySettingsAreNotWritten) {
    EXPECT_EQ(foundBy(L"XC104", "<System><ACT_Address_x>1.1.1.1</ACT_Address_x></System>"),
              (Lines{L"System/ACT_Address_x: there is no such setting; did you mean \"ACT_Address_%d\"?"}));
    EXPECT_EQ(
        foundBy(L"XC701", "<System><ACT_Address_0>1.1.1.1</ACT_Address_0><ACT_Address_x>1.1.1.1</ACT_Address_x></System>"),
        Lines());
}

TEST(CheckConditions, SaysWhereThereIsNoSlotAtAll) {
    const auto slots = [](const std::string& inside) {
        return foundBy(L"XC216",
                       "<ProjectorApprovedSlots><CurrentSlotID>3</CurrentSlotID>" + inside + "</ProjectorApprovedSlots>");
    };
    const std::wstring place = L"ProjectorApprovedSlots/CurrentSlotID: slot 3 is none of the approved slots";
    EXPECT_EQ(slots(""), (Lines{place + L", for there are none"}));
    EXPECT_EQ(slots("<Slot ID='1'/>"), (Lines{place + L" (1)"}));
    EXPECT_EQ(slots("<Slot ID='3'/>"), Lines());
}

TEST(CheckConditions, AspectsMayDifferByTwoPercent) {
    const auto wide = [](const std::string& width) {
        return foundBy(L"XC402", "<Projector ID='1'><ImageResolution_X>" + width + "</ImageResolution_X></Projector>")
            .size();
    };
    EXPECT_EQ(wide("1428"), 0U);
    EXPECT_EQ(wide("1429"), 1U);
    EXPECT_EQ(wide("1372"), 0U);
    EXPECT_EQ(wide("1371"), 1U);
    EXPECT_EQ(wide("0"), 0U);
}

TEST(CheckConditions, AnImageOfNoSizeIsNotStretched) {
    const std::vector<std::string> keys = {"ImageResolution_X", "ImageResolution_Y", "Resolution_X", "Resolution_Y"};
    const auto sized = [&](const std::string& zero) {
        std::string items = "<InputImageScaling_Mode>0</InputImageScaling_Mode>";
        for (const std::string& key : keys) {
            const std::string size = key == zero ? "0" : key == "Resolution_X" ? "4000" : "1000";
            items += "<" + key + ">" + size + "</" + key + ">";
        }
        return foundBy(L"XC402", projector("1", items)).size();
    };
    EXPECT_EQ(sized(""), 1U);
    for (const std::string& key : keys) EXPECT_EQ(sized(key), 0U) << key;
}

TEST(CheckConditions, FourBlobsFitEachWay) {
    const auto blobs = [](const std::string& size) {
        return foundBy(L"XC411", projector("1",
                                           "<ImageResolution_X>1000</ImageResolution_X><ImageResolution_Y>800"
                                           "</ImageResolution_Y><Box_Spacing>1</Box_Spacing><Box_Size>" +
                                               size + "</Box_Size>"));
    };
    const std::wstring place = L"Projector[1]/Box_Size: ";
    EXPECT_EQ(blobs("250, 200"), Lines());
    EXPECT_EQ(blobs("251, 200"), (Lines{place + L"fewer than 4 blobs fit across the image"}));
    EXPECT_EQ(blobs("250, 201"), (Lines{place + L"fewer than 4 blobs fit up the image"}));
    EXPECT_EQ(blobs("1, 1"), Lines());
    EXPECT_EQ(blobs("0, 1"), (Lines{place + L"a blob of 0 x 1 has no size"}));
    EXPECT_EQ(blobs("1, 0"), (Lines{place + L"a blob of 1 x 0 has no size"}));
}

TEST(CheckConditions, AVisitIsNotAfterTheLastRun) {
    const auto visited = [](const std::string& visit, const std::string& run) {
        return foundBy(L"XC903", "<SiteAnalytics><LastRunTimestamp>" + run + "</LastRunTimestamp><VisitTimestamp>" + visit +
                                     "</VisitTimestamp></SiteAnalytics>");
    };
    EXPECT_EQ(visited("1000", "1000"), Lines());
    EXPECT_EQ(visited("1001", "1000"), (Lines{L"SiteAnalytics/VisitTimestamp: 1970-01-01 00:16:41 is after the last run, "
                                              L"1970-01-01 00:16:40"}));
    EXPECT_EQ(visited("1001", "0"), Lines()) << "there was no run";
}

TEST(CheckConditions, DevicesWithoutANameShareNone) {
    EXPECT_EQ(foundBy(L"XC206", projector("1", "<Name/>") + projector("2", "<Name/>") + projector("3", "")), Lines());
    EXPECT_EQ(foundBy(L"XC206", projector("1", "<Name>a</Name>") + projector("2", "<Name>a</Name>")).size(), 1U);
}

TEST(CheckConditions, EachChannelBesideTheScreenIsTold) {
    const std::string sphere =
        "<Screen><Shape>Sphere</Shape><Screen_Radius>5</Screen_Radius><Screen_MinTheta>-1.5</Screen_MinTheta>"
        "<Screen_MaxTheta>1.5</Screen_MaxTheta><Screen_MinPhi>-0.5</Screen_MinPhi><Screen_MaxPhi>1</Screen_MaxPhi></Screen>";
    EXPECT_EQ(
        foundBy(L"XC322", sphere + projectorAt("1", "0", "0", "") + projectorAt("2", "3.1", "0", "") +
                              projectorAt("3", "2.5", "0", "")),
        (Lines{L"Projector[2]: 100 % of \"2\" is beside the screen", L"Projector[3]: 100 % of \"3\" is beside the screen"}));
}

TEST(CheckConditions, AnAcceptanceOfARuleOnNeighboursIsJudgedUnlessTheyAreLeftOut) {
    const std::string accepted = "<!--xmlconfig accepts XC301: by design-->";
    const Lines gone = {L"Projector[1]: accepts XC301, which is not found any more; check --only"};
    const auto judged = [&](const std::string& others) {
        return foundBy(L"XC910", projectorAt("1", "0", "0", accepted) + others);
    };
    EXPECT_EQ(judged(""), gone);
    EXPECT_EQ(judged("<Geometry><Fit_Solver>3</Fit_Solver></Geometry>"), gone) << "whatever else is found";
}

TEST(CheckConditions, ZeroIsNotOddForItsSign) {
    const auto lamps = [](const std::string& fourth) {
        std::string all;
        for (const std::string& power : {std::string("0"), std::string("0.0"), std::string("0e3"), fourth})
            all += "<Projector ID='" + std::to_string(all.size()) + "'><Lamp_Power>" + power + "</Lamp_Power></Projector>";
        return foundBy(L"XC408", all).size();
    };
    EXPECT_EQ(lamps("-0"), 0U);
    EXPECT_EQ(lamps("-1"), 1U);
}

TEST(CheckConditions, ShowsWhatIsBeyondALimitBeyondIt) {
    EXPECT_EQ(foundBy(L"XC502", "<Screen><Shape>Sphere</Shape><Screen_MaxPhi>1.5708</Screen_MaxPhi></Screen>"),
              (Lines{L"Screen/Screen_MaxPhi: 90.0002\u00b0 up is more than a sphere"}));
    EXPECT_EQ(foundBy(L"XC306", projectorAt("1", "0", "-1.5708", "")),
              (Lines{L"Projector[1]/Channel_Extents/Heading/Pitch: -90.0002\u00b0 is more than a quarter turn"}));
    const std::string at = "<Camera_Calibration_Points>1 0 0 2 0 0 3 0 0</Camera_Calibration_Points>";
    EXPECT_EQ(foundBy(L"XC605", camera("1", at + "<Reference_Camera_Calibration_Points>1 0 10.5 2 0 10.5 3 0 10.5"
                                                 "</Reference_Camera_Calibration_Points>")),
              (Lines{L"Camera[1]/Camera_Calibration_Points: markers have moved by 10.5 pixels since the reference image"}));
}

TEST(CheckConditions, ShowsNumbersBeyondALimitBeyondIt) {
    const auto found = [](const wchar_t* rule, const std::string& items) { return foundBy(rule, projector("1", items))[0]; };
    EXPECT_EQ(found(L"XC114", "<Lamp_Power>-1e-9</Lamp_Power>"),
              L"Projector[1]/Lamp_Power: -0.000000001 is outside 0 to 100");
    EXPECT_EQ(found(L"XC114", "<Lamp_Power>-1e-300</Lamp_Power>"), L"Projector[1]/Lamp_Power: -1e-300 is outside 0 to 100");
    EXPECT_EQ(found(L"XC114", "<Gamma>1e300</Gamma>"), L"Projector[1]/Gamma: 1e+300 is outside 1 to 4");
    EXPECT_EQ(found(L"XC114", "<Gamma>4.5</Gamma>"), L"Projector[1]/Gamma: 4.5 is outside 1 to 4");
    EXPECT_EQ(found(L"XC314", "<Blend_Left>100.0000001</Blend_Left>"),
              L"Projector[1]/Blend_Left: 100.0000001 % is no part of the image");
    EXPECT_EQ(found(L"XC314", "<Blend_Left>60.2</Blend_Left><Blend_Right>40.2</Blend_Right>"),
              L"Projector[1]/Blend_Left: Left and Right blends take 100.4 % together");
    EXPECT_EQ(found(L"XC316", "<Screen_Area_Left>0</Screen_Area_Left><Screen_Area_Right>1.0000001</Screen_Area_Right>"),
              L"Projector[1]/Screen_Area_Left: 0 to 1.0000001 is no part of the screen");
}

TEST(CheckConditions, WordsThatAreEmptyNameNoAxis) {
    const auto found = [](const std::string& axis) {
        return foundBy(L"XC504", "<Screen><VRML>x</VRML><AxisForward>" + axis + "</AxisForward><AxisUpward>" + axis +
                                     "</AxisUpward></Screen>")
            .size();
    };
    EXPECT_EQ(found(""), 0U);
    EXPECT_EQ(found("X"), 1U);
}

TEST(CheckConditions, OnlyAMaskOfOnesBeforeZerosMakesANetwork) {
    const auto found = [](const std::string& mask) {
        const std::string network = "<ipAddress>10.0.0.1</ipAddress><subnetMask>" + mask + "</subnetMask>";
        const std::string connection = "<connection><address>10.1.0.1</address><port>1</port></connection>";
        return foundBy(L"XC704", camera("c", snippet(network)) + projector("p", snippet(connection))).size();
    };
    EXPECT_EQ(found("255.255.0.0"), 1U);
    EXPECT_EQ(found("255.0.0.0"), 0U);
    EXPECT_EQ(found("0.255.0.0"), 0U);
    EXPECT_EQ(found("0.0.0.0"), 0U);
    EXPECT_EQ(found("255.255.255.255"), 1U);
}

TEST(CheckConditions, AnEndlessNameOfAPointNamesNoCameras) {
    const auto found = [](std::size_t length) {
        const std::string id(length, 'c');
        const std::string key = "CameraOverlapPoint_" + id + "_b";
        return foundBy(L"XC219", "<Color><" + key + ">1 2 3 0 0</" + key + "></Color>" + camera(id, "") + camera("b", ""))
            .size();
    };
    EXPECT_EQ(found(998), 0U);
    EXPECT_EQ(found(999), 1U);
}

TEST(CheckConditions, RolledNeighboursLeaveTheGapThatTheirImagesLeave) {
    const auto rolled = [](const std::string& id, const std::string& yaw) {
        return "<Projector ID='" + id + "'><Channel_Extents><Heading><Yaw>" + yaw +
               "</Yaw><Roll>1.570796326794897</Roll></Heading><HFOV><Left>-0.5</Left><Right>0.5</Right></HFOV><VFOV>"
               "<Top>0.2</Top><Bottom>-0.2</Bottom></VFOV></Channel_Extents></Projector>";
    };
    EXPECT_EQ(foundBy(L"XC301", rolled("1", "0") + rolled("2", "0.6")),
              (Lines{L"Projector[2]/Channel_Extents/Heading/Yaw: 11.46\u00b0 gap between \"1\" and \"2\""}));
    EXPECT_EQ(foundBy(L"XC301", rolled("1", "0") + rolled("2", "0.39")), Lines());
}

TEST(CheckConditions, RolledNeighboursAreBesideOneAnotherByTheEdgesThatLieThere) {
    const auto rolled = [](const std::string& yaw, const std::string& roll, const std::string& left) {
        return projector(yaw, "<Channel_Extents><Heading><Yaw>" + yaw + "</Yaw><Roll>" + roll +
                                  "</Roll></Heading><HFOV><Left>" + left +
                                  "</Left><Right>0.2</Right></HFOV><VFOV><Top>0.5</Top><Bottom>-0.5</Bottom></VFOV>"
                                  "</Channel_Extents>");
    };
    const auto gaps = [&](const std::string& roll, const std::string& left, const std::string& yaw) {
        const Lines lines = foundBy(L"XC301", rolled("0", roll, left) + rolled(yaw, roll, left));
        return lines.empty() ? L"" : lines[0].substr(lines[0].find(L':') + 2);
    };
    const std::string quarter = "1.570796326794897";
    const std::string half = "3.141592653589793";
    EXPECT_EQ(gaps(quarter, "-0.2", "0.9"), L"");
    EXPECT_EQ(gaps(quarter, "-0.2", "1.1"), L"5.73\u00b0 gap between \"0\" and \"1.1\"");
    EXPECT_EQ(gaps("-" + quarter, "-0.2", "0.9"), L"");
    EXPECT_EQ(gaps(half, "-0.6", "0.7"), L"");
    EXPECT_EQ(gaps(half, "-0.6", "0.9"), L"5.73\u00b0 gap between \"0\" and \"0.9\"");
    const auto unwanted = [&](const std::string& wanted) {
        return foundBy(L"XC315", rolled("0", quarter, "-0.2") + rolled("0.5", quarter, "-0.2") + "<TargetLocator>" + wanted +
                                     "</TargetLocator>")
            .size();
    };
    EXPECT_EQ(unwanted("<Horizontal_Overlap>0.1</Horizontal_Overlap>"), 1U);
    EXPECT_EQ(unwanted("<Vertical_Overlap>0.1</Vertical_Overlap>"), 0U);
}

}  // namespace
