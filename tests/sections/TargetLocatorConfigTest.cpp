#include "sections/TargetLocatorConfig.h"

#include <gtest/gtest.h>

#include "sections/TargetLocatorItems.h"
#include "tests/support/SettingRows.h"
#include "tests/support/StoredItems.h"
#include "tests/support/VirtualSlots.h"

namespace {

using XMLConfig::tests::itemsOf;
using XMLConfig::tests::storedText;
using Rows = XMLConfig::tests::SettingRows<TargetLocatorConfig>;
using Table = std::vector<std::pair<double, double>>;
using Texts = std::vector<std::wstring>;

const wchar_t* const zero = L"0.000000000000000e+00";
const wchar_t* const origin = L"0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00";
const wchar_t* const somewhereText = L"1.500000000000000e+00, -2.000000000000000e+00, 3.000000000000000e+00";
const Point_3Dim<double> somewhere(1.5, -2.0, 3.0);

Rows targetRows() {
    using T = TargetLocatorConfig;
    Rows rows([](ConfigInfo* document) { return std::make_unique<T>(document, L""); });
    const Table table{{-90.0, -90.0}, {0.0, 1.5}};
    const std::wstring text =
        L"-9.000000000000000e+01\t-9.000000000000000e+01\n0.000000000000000e+00\t1.500000000000000e+00";
    rows.row(&T::getDataType, &T::setDataType, L"Data_Type", {L"Planar-basic", L"Planar-basic"}, {L"3D", L"3D"},
             L"Planar-basic");
    rows.row(&T::getEyePoint, &T::setEyePoint, L"Eye_Point", {{}, origin}, {somewhere, somewhereText}, origin);
    rows.row(&T::getLeftInset, &T::setLeftInset, L"Inset_Left", {0.0, zero}, {0.5, L"5.000000000000000e-01"}, zero);
    rows.row(&T::getRightInset, &T::setRightInset, L"Inset_Right", {0.0, zero}, {-0.25, L"-2.500000000000000e-01"}, zero);
    rows.row(&T::getTopInset, &T::setTopInset, L"Inset_Top", {0.0, zero}, {12.0, L"1.200000000000000e+01"}, zero);
    rows.row(&T::getBottomInset, &T::setBottomInset, L"Inset_Bottom", {0.0, zero}, {1e-9, L"1.000000000000000e-09"}, zero);
    rows.row(&T::getHorizontalOverlap, &T::setHorizontalOverlap, L"Horizontal_Overlap", {0.0, zero},
             {0.125, L"1.250000000000000e-01"}, L"5.000000000000000e-02");
    rows.row(&T::getVerticalOverlap, &T::setVerticalOverlap, L"Vertical_Overlap", {0.0, zero},
             {0.75, L"7.500000000000000e-01"}, L"5.000000000000000e-02");
    rows.row(&T::getMirrorRotation, &T::setMirrorRotation, L"Mirror_Rotation", {{}, origin}, {somewhere, somewhereText},
             origin);
    rows.row(&T::getMirrorTranslation, &T::setMirrorTranslation, L"Mirror_Translation", {{}, origin},
             {somewhere, somewhereText}, origin);
    rows.row(&T::getMirrorRadius, &T::setMirrorRadius, L"Mirror_Radius", {0.0, zero}, {2.5, L"2.500000000000000e+00"}, zero);
    rows.row(&T::getHorizontalCorrectionTable, &T::setHorizontalCorrectionTable, L"Horizontal_Content_Distortion", {{}, L""},
             {table, text});
    rows.row(&T::getVerticalCorrectionTable, &T::setVerticalCorrectionTable, L"Vertical_Content_Distortion", {{}, L""},
             {table, text});
    rows.row(&T::getOverlapDisplayUnit, &T::setOverlapDisplayUnit, L"Overlap_Display_Unit", {L"Percent", L"Percent"},
             {L"Pixels", L"Pixels"}, L"Percent");
    return rows;
}

class TargetLocator : public testing::Test {
protected:
    ConfigInfo document;
    XMLConfig::tests::StoredItems items{document, L"TargetLocator"};
    TargetLocatorConfig target{&document, L""};
};

/// Notes which of the virtual members are called.
class WatchedTarget : public TargetLocatorConfig {
public:
    using TargetLocatorConfig::TargetLocatorConfig;
    Texts calls;

    std::wstring getDataType() override {
        calls.push_back(L"getDataType");
        return dataType;
    }
    bool setDataType(const std::wstring& type) override {
        calls.push_back(L"setDataType " + type);
        return true;
    }
    void setEyePoint(const Point_3Dim<double>&) override { calls.push_back(L"setEyePoint"); }
    void setLeftInset(double) override { calls.push_back(L"setLeftInset"); }
    void setRightInset(double) override { calls.push_back(L"setRightInset"); }
    void setTopInset(double) override { calls.push_back(L"setTopInset"); }
    void setBottomInset(double) override { calls.push_back(L"setBottomInset"); }
    void setHorizontalOverlap(double) override { calls.push_back(L"setHorizontalOverlap"); }
    void setVerticalOverlap(double) override { calls.push_back(L"setVerticalOverlap"); }
    void setMirrorRotation(const Point_3Dim<double>&) override { calls.push_back(L"setMirrorRotation"); }
    void setMirrorTranslation(const Point_3Dim<double>&) override { calls.push_back(L"setMirrorTranslation"); }
    void setMirrorRadius(double) override { calls.push_back(L"setMirrorRadius"); }
    void setOverlapDisplayUnit(const std::wstring& unit) override { calls.push_back(L"setOverlapDisplayUnit " + unit); }

    std::wstring dataType;
};

}  // namespace

TEST(TargetLocatorConfig, SettingsKeepToTheirRows) { targetRows().check(); }

TEST(TargetLocatorConfig, TableEqualsTheRows) { targetRows().checkTable(XMLConfig::detail::targetLocatorItems); }

TEST(TargetLocatorConfig, NewSectionHoldsTheRowsInOrder) { targetRows().checkInitialize(); }

TEST_F(TargetLocator, NewSectionReadsItsInitialValues) {
    target.initialize();
    EXPECT_EQ(target.getHorizontalOverlap(), 0.05);
    EXPECT_EQ(target.getVerticalOverlap(), 0.05);
    EXPECT_EQ(target.getOverlapDisplayUnit(), L"Percent");
}

TEST_F(TargetLocator, InitializeCallsTheVirtualSetters) {
    WatchedTarget watched(&document, L"");
    watched.initialize();
    EXPECT_EQ(watched.calls,
              (Texts{L"setDataType Planar-basic", L"setEyePoint", L"setLeftInset", L"setRightInset", L"setTopInset",
                     L"setBottomInset", L"setHorizontalOverlap", L"setVerticalOverlap", L"setMirrorRotation",
                     L"setMirrorTranslation", L"setMirrorRadius", L"setOverlapDisplayUnit Percent"}));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, TypeTestsAskTheVirtualGetter) {
    WatchedTarget watched(&document, L"");
    watched.dataType = L"Custom Planar";
    EXPECT_FALSE(watched.isTargetDataSpherical());
    EXPECT_FALSE(watched.isTargetDataProjectorCentric());
    EXPECT_TRUE(watched.isTargetDataCustomPlanar());
    EXPECT_EQ(watched.calls, (Texts{L"getDataType", L"getDataType", L"getDataType"}));
}

TEST_F(TargetLocator, OlderDataTypeIsReplacedOnReading) {
    items.putClean(L"Data_Type", L"Projector Pose");
    EXPECT_EQ(target.getDataType(), L"Projector Centric");
    EXPECT_EQ(items.text(L"Data_Type"), L"Projector Centric");
    EXPECT_TRUE(document.isDirty());
    document.setDirty(false);
    EXPECT_EQ(target.getDataType(), L"Projector Centric");
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, OlderDataTypeCountsAsProjectorCentric) {
    items.putClean(L"Data_Type", L"Projector Pose");
    EXPECT_TRUE(target.isTargetDataProjectorCentric());
    EXPECT_EQ(items.text(L"Data_Type"), L"Projector Centric");
}

TEST_F(TargetLocator, KnownDataTypesAreStored) {
    for (const wchar_t* type :
         {L"Planar-advanced", L"Planar-basic", L"Spherical", L"Collimated", L"Projector Centric", L"Custom Planar", L"3D"}) {
        EXPECT_TRUE(target.setDataType(type));
        EXPECT_EQ(items.text(L"Data_Type"), type);
        EXPECT_EQ(target.getDataType(), type);
    }
}

TEST_F(TargetLocator, UnknownDataTypesAreRefused) {
    for (const wchar_t* type : {L"Projector Pose", L"spherical", L"", L"Spherical ", L"Planar", L"3d"}) {
        EXPECT_FALSE(target.setDataType(type));
        EXPECT_FALSE(document.doesSectionExist(L"TargetLocator", L""));
    }
    items.putClean(L"Data_Type", L"Custom Planar");
    EXPECT_FALSE(target.setDataType(L"Projector Pose"));
    EXPECT_EQ(items.text(L"Data_Type"), L"Custom Planar");
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, UnknownStoredDataTypeIsGivenAsItIs) {
    items.putClean(L"Data_Type", L"projector pose");
    EXPECT_EQ(target.getDataType(), L"projector pose");
    items.putClean(L"Data_Type", L"");
    EXPECT_EQ(target.getDataType(), L"");
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, MissingDataTypeIsNotWritten) {
    EXPECT_EQ(target.getDataType(), L"Planar-basic");
    EXPECT_FALSE(target.isTargetDataSpherical());
    EXPECT_FALSE(document.doesSectionExist(L"TargetLocator", L""));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, SphericalAndCollimatedAreSpherical) {
    struct Row {
        const wchar_t* type;
        bool spherical, projectorCentric, customPlanar;
    };
    for (const Row& row : {Row{L"Spherical", true, false, false}, Row{L"Collimated", true, false, false},
                           Row{L"Projector Centric", false, true, false}, Row{L"Custom Planar", false, false, true},
                           Row{L"Planar-basic", false, false, false}, Row{L"3D", false, false, false}}) {
        SCOPED_TRACE(testing::PrintToString(row.type));
        EXPECT_TRUE(target.setDataType(row.type));
        EXPECT_EQ(target.isTargetDataSpherical(), row.spherical);
        EXPECT_EQ(target.isTargetDataProjectorCentric(), row.projectorCentric);
        EXPECT_EQ(target.isTargetDataCustomPlanar(), row.customPlanar);
    }
}

TEST_F(TargetLocator, CorrectionTableIsStoredInScientificNotation) {
    const Table table{{-180, -180}, {180, 180}};
    target.setHorizontalCorrectionTable(table);
    EXPECT_EQ(items.text(L"Horizontal_Content_Distortion"),
              L"-1.800000000000000e+02\t-1.800000000000000e+02\n1.800000000000000e+02\t1.800000000000000e+02");
    EXPECT_EQ(target.getHorizontalCorrectionTable(), table);
    EXPECT_EQ(target.getVerticalCorrectionTable(), Table{});
}

TEST_F(TargetLocator, EmptyCorrectionTableIsAnEmptyItem) {
    target.setVerticalCorrectionTable({{1, 2}});
    target.setVerticalCorrectionTable({});
    EXPECT_EQ(items.text(L"Vertical_Content_Distortion"), L"");
    EXPECT_EQ(target.getVerticalCorrectionTable(), Table{});
}

TEST_F(TargetLocator, CorrectionTableIsNotCleaned) {
    const Table table{{200, 1}, {-3, 4}, {-3, 2}};
    target.setVerticalCorrectionTable(table);
    EXPECT_EQ(target.getVerticalCorrectionTable(), table);
}

TEST_F(TargetLocator, CorrectionTableIsNeverCut) {
    Table table;
    for (int i = -90; i <= 90; ++i) table.emplace_back(i, i + 0.5);
    target.setHorizontalCorrectionTable(table);
    EXPECT_EQ(target.getHorizontalCorrectionTable(), table);
}

TEST_F(TargetLocator, StoredCorrectionTableIsReadWithAnySeparators) {
    items.putClean(L"Vertical_Content_Distortion", L"\n\t1, 2 \n\t3\t4,\n 5");
    EXPECT_EQ(target.getVerticalCorrectionTable(), (Table{{1, 2}, {3, 4}}));
    items.putClean(L"Vertical_Content_Distortion", L"７ ü 1.5° 2");
    EXPECT_EQ(target.getVerticalCorrectionTable(), (Table{{0, 0}, {1.5, 2}}));
    EXPECT_FALSE(document.isDirty());
}

TEST_F(TargetLocator, PointWithAWrongCountReadsTheDefault) {
    items.putClean(L"Eye_Point", L"1 2");
    EXPECT_EQ(target.getEyePoint(), (Point_3Dim<double>{}));
    items.putClean(L"Eye_Point", L"1 2 3 4");
    EXPECT_EQ(target.getEyePoint(), (Point_3Dim<double>{}));
}

TEST_F(TargetLocator, AccessorUsesTheGivenSectionID) {
    TargetLocatorConfig second(&document, L"2");
    EXPECT_TRUE(second.setDataType(L"3D"));
    second.setVerticalCorrectionTable({{1, 2}});
    EXPECT_EQ(storedText(document, L"TargetLocator", L"Data_Type", L"2"), L"3D");
    EXPECT_EQ(second.getVerticalCorrectionTable(), (Table{{1, 2}}));
    EXPECT_TRUE(TargetLocatorConfig(&document, L"3").getVerticalCorrectionTable().empty());
}

#ifdef TESTS_KNOW_VIRTUAL_SLOTS
TEST(TargetLocatorConfig, VirtualMembersStandInTheirOrder) {
    using T = TargetLocatorConfig;
    const int first = slotOf(&BaseConfig::initialize) + 1;
    EXPECT_EQ(misplacedSlots(first, {NAMED_SLOT(T, getDataType),
                                     NAMED_SLOT(T, setDataType),
                                     NAMED_SLOT(T, getEyePoint),
                                     NAMED_SLOT(T, setEyePoint),
                                     NAMED_SLOT(T, getLeftInset),
                                     NAMED_SLOT(T, setLeftInset),
                                     NAMED_SLOT(T, getRightInset),
                                     NAMED_SLOT(T, setRightInset),
                                     NAMED_SLOT(T, getTopInset),
                                     NAMED_SLOT(T, setTopInset),
                                     NAMED_SLOT(T, getBottomInset),
                                     NAMED_SLOT(T, setBottomInset),
                                     NAMED_SLOT(T, getHorizontalOverlap),
                                     NAMED_SLOT(T, setHorizontalOverlap),
                                     NAMED_SLOT(T, getVerticalOverlap),
                                     NAMED_SLOT(T, setVerticalOverlap),
                                     NAMED_SLOT(T, getOverlapDisplayUnit),
                                     NAMED_SLOT(T, setOverlapDisplayUnit),
                                     NAMED_SLOT(T, getMirrorRotation),
                                     NAMED_SLOT(T, setMirrorRotation),
                                     NAMED_SLOT(T, getMirrorTranslation),
                                     NAMED_SLOT(T, setMirrorTranslation),
                                     NAMED_SLOT(T, getMirrorRadius),
                                     NAMED_SLOT(T, setMirrorRadius),
                                     NAMED_SLOT(T, getHorizontalCorrectionTable),
                                     NAMED_SLOT(T, setHorizontalCorrectionTable),
                                     NAMED_SLOT(T, getVerticalCorrectionTable),
                                     NAMED_SLOT(T, setVerticalCorrectionTable),
                                     NAMED_SLOT(T, isTargetDataSpherical),
                                     NAMED_SLOT(T, isTargetDataProjectorCentric),
                                     NAMED_SLOT(T, isTargetDataCustomPlanar)}),
              "");
    EXPECT_EQ(slotOf(&T::initialize), slotOf(&BaseConfig::initialize));
    EXPECT_EQ(slotCount<T>(), first + 31);
    EXPECT_EQ(sizeof(T), sizeof(BaseConfig));
}
#endif
