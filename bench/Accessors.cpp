// Reading every setting of every projector once, through the accessor's getters and through the store's own; and setting
// the number of ACT units, which must not take longer in a larger document.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "Sample.h"
#include "Suites.h"
#include "manager/SettingSearch.h"
#include "sections/ProjectorConfig.h"
#include "sections/SystemConfig.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

using BlackLevelBlending::PondOfMirrors;
using P = ProjectorConfig;

/// An item that holds an XML element.
struct Fragment : std::wstring {};

/// A setting as the accessor gives it, and as the store does.
template <typename Value, typename Stored>
struct Reading {
    Value (P::*get)() const;
    std::wstring key;
    Stored sample;
};
template <typename Value>
Reading<Value, Value> reading(Value (P::*get)() const, const wchar_t* key, Value sample) {
    return {get, key, sample};
}
Reading<std::wstring, Fragment> fragment(std::wstring (P::*get)() const, const wchar_t* key) {
    return {get, key, Fragment{L"<device UID=\"VELDAR***00:0a\" type=\"VELDAR\"><id>17</id></device>"}};
}

const auto& readings() {
    const Point_3Dim<double> point{1.0, 2.0, 3.0};
    const Frustum frustum(point, point, -0.5, 0.5, 0.25, -0.25, 1920, 1200);
    const std::wstring text = L"files\\dome-17.xml";
    // clang-format off
    static const auto all = std::tuple(
        reading(&P::getName, L"Name", text),
        fragment(&P::getDeviceSnippet, L"DeviceSnippet"),
        fragment(&P::getDeviceSnippetOriginal, L"DeviceSnippetOriginal"),
        reading(&P::getAssociatedCameraId1, L"Associated_Camera_Id_1", text),
        reading(&P::getAssociatedCameraId2, L"Associated_Camera_Id_2", text),
        reading(&P::getResolutionX, L"Resolution_X", 1920),
        reading(&P::getResolutionY, L"Resolution_Y", 1200),
        reading(&P::getImageResolutionX, L"ImageResolution_X", 1920),
        reading(&P::getImageResolutionY, L"ImageResolution_Y", 1200),
        reading(&P::getInputImageScalingMode, L"InputImageScaling_Mode", 1),
        reading(&P::getPortraitMode, L"Portrait_Mode", 1),
        reading(&P::getBoxSize, L"Box_Size", Point_2Dim<int>{11, 12}),
        reading(&P::getBoxSpacing, L"Box_Spacing", 2.5),
        reading(&P::getGamma, L"Gamma", 1.8),
        reading(&P::getLampPower, L"Lamp_Power", 80.0),
        reading(&P::getColourUser, L"Colour_User", 2),
        reading(&P::getLampMode, L"Lamp_Mode", std::wstring(L"Single2")),
        reading(&P::getBlendPercentTop, L"Blend_Top", 12.34567890123457),
        reading(&P::getBlendPercentBottom, L"Blend_Bottom", 12.34567890123457),
        reading(&P::getBlendPercentRight, L"Blend_Right", 23.45678901234568),
        reading(&P::getBlendPercentLeft, L"Blend_Left", 23.45678901234568),
        reading(&P::getScreenAreaLeft, L"Screen_Area_Left", 0.125),
        reading(&P::getScreenAreaRight, L"Screen_Area_Right", 0.375),
        reading(&P::getScreenAreaTop, L"Screen_Area_Top", 0.25),
        reading(&P::getScreenAreaBottom, L"Screen_Area_Bottom", 0.75),
        reading(&P::getBlackLevel, L"Black_Level", 0.0125),
        reading(&P::getBlackLevelBoostFactor, L"Black_Level_Boost", 1.5),
        reading(&P::getBlackLevelTint, L"Black_Level_Tint", 3),
        reading(&P::getPondOfMirrors, L"Pond_Of_Mirrors", PondOfMirrors{1, 0, 1, 0}),
        reading(&P::getMotoBlendInitCommand, L"MotoBlend_Init_Command", std::wstring(L"INIT 17")),
        reading(&P::getMotoBlendOpenCommand, L"MotoBlend_Open_Command", std::wstring(L"OPEN 17")),
        reading(&P::getMotoBlendCloseCommand, L"MotoBlend_Close_Command", std::wstring(L"CLOSE 17")),
        reading(&P::getFitOrder, L"Fit_Order", 3),
        reading(&P::getProjectionModelFilename, L"Projection_Model_File", text),
        reading(&P::getProjectionModelScript, L"Projection_Model_Script", text),
        reading(&P::getProjectionLayoutFilename, L"Projection_Layout_File", text),
        reading(&P::getSolverType, L"SolverType", std::wstring(L"LM")),
        reading(&P::getRedGreenAlignmentImageName, L"Red_Green_Alignment_Image", text),
        reading(&P::getPellinorWarpLatency, L"Pellinor_Warp_Latency", 2),
        reading(&P::getChannelExtentHeadingYaw, L"Channel_Extents|Heading|Yaw", 0.7853981633974483),
        reading(&P::getChannelExtentHeadingPitch, L"Channel_Extents|Heading|Pitch", -0.174532925199433),
        reading(&P::getChannelExtentHeadingRoll, L"Channel_Extents|Heading|Roll", 0.01),
        reading(&P::getChannelExtentVFOVTop, L"Channel_Extents|VFOV|Top", 0.3490658503988659),
        reading(&P::getChannelExtentVFOVBottom, L"Channel_Extents|VFOV|Bottom", -0.3490658503988659),
        reading(&P::getChannelExtentHFOVLeft, L"Channel_Extents|HFOV|Left", -0.5235987755982988),
        reading(&P::getChannelExtentHFOVRight, L"Channel_Extents|HFOV|Right", 0.5235987755982988),
        reading(&P::getEyePoint, L"Channel_Extents|Eye_Point", point),
        reading(&P::getDesignedFrustum, L"Designed|Frustum", frustum),
        reading(&P::getDesignedLumens, L"Designed|Lumens", 1000.0),
        reading(&P::getInitialYPR, L"InitialProjectorData|YPR", point),
        reading(&P::getInitialXYZ, L"InitialProjectorData|XYZ", point),
        reading(&P::getInitialF, L"InitialProjectorData|F", 35.0),
        reading(&P::getInitialAspectRatio, L"InitialProjectorData|Aspect_Ratio", 1.25),
        reading(&P::getInitialOffset, L"InitialProjectorData|Offset", Point_2Dim<double>{960.0, 600.0}),
        reading(&P::getOldUID, L"OldSectionID", std::wstring(L"17")));
    // clang-format on
    return all;
}

template <typename Action>
void forEachReading(const Action& action) {
    std::apply([&](const auto&... one) { (action(one), ...); }, readings());
}

const std::wstring section = L"Projector";

// The store's operations by the type of a setting.
using Key = const std::wstring&;
int get(const ConfigInfo& c, Key key, Key id, int) { return c.getIntegerItem(section, key, 0, id); }
double get(const ConfigInfo& c, Key key, Key id, double) { return c.getDoubleItem(section, key, 0.0, id); }
Point_2Dim<int> get(const ConfigInfo& c, Key key, Key id, const Point_2Dim<int>&) {
    return c.getPoint2IItem(section, key, {}, id);
}
Point_2Dim<double> get(const ConfigInfo& c, Key key, Key id, const Point_2Dim<double>&) {
    return c.getPoint2DItem(section, key, {}, id);
}
Point_3Dim<double> get(const ConfigInfo& c, Key key, Key id, const Point_3Dim<double>&) {
    return c.getPoint3DItem(section, key, {}, id);
}
std::wstring get(const ConfigInfo& c, Key key, Key id, const std::wstring&) {
    return c.getStringItem(section, key, {}, id, {}, {});
}
std::wstring get(const ConfigInfo& c, Key key, Key id, const Fragment&) {
    return c.getStringItemAsDOMElement(section, key, {}, id);
}
Frustum get(const ConfigInfo& c, Key key, Key id, const Frustum&) { return c.getFrustum(section, key, {}, id); }
PondOfMirrors get(const ConfigInfo& c, Key key, Key id, const PondOfMirrors&) {
    PondOfMirrors value;
    c.getPondOfMirrors(section, key, value, id);
    return value;
}

void set(ConfigInfo& c, Key key, Key id, int value) { c.setIntegerItem(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, double value) { c.setDoubleItem(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const Point_2Dim<int>& value) { c.setPoint2IItem(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const Point_2Dim<double>& value) { c.setPoint2DItem(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const Point_3Dim<double>& value) { c.setPoint3DItem(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const std::wstring& value) { c.setStringItem(section, key, value, id, {}, {}); }
void set(ConfigInfo& c, Key key, Key id, const Fragment& value) { c.setStringItemAsDOMElement(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const Frustum& value) { c.setFrustum(section, key, value, id); }
void set(ConfigInfo& c, Key key, Key id, const PondOfMirrors& value) { c.setPondOfMirrors(section, key, value, id); }

bool isSame(const Frustum& left, const Frustum& right) {
    return left.Offset == right.Offset && left.RotationYPR == right.RotationYPR && left.FOVLeft == right.FOVLeft &&
           left.FOVRight == right.FOVRight && left.FOVTop == right.FOVTop && left.FOVBottom == right.FOVBottom &&
           left.ResolutionX == right.ResolutionX && left.ResolutionY == right.ResolutionY;
}
bool isSame(const PondOfMirrors& left, const PondOfMirrors& right) {
    return left.Top == right.Top && left.Bottom == right.Bottom && left.Left == right.Left && left.Right == right.Right;
}
/// A save lays elements out on lines of their own.
std::wstring withoutBlanks(std::wstring text) {
    const auto isBlank = [](wchar_t character) { return character == L' ' || character == L'\n'; };
    text.erase(std::remove_if(text.begin(), text.end(), isBlank), text.end());
    return text;
}
bool isSame(const std::wstring& left, const Fragment& right) { return withoutBlanks(left) == withoutBlanks(right); }
template <typename Value>
bool isSame(const Value& left, const Value& right) {
    return left == right;
}

/// A document whose projectors hold every setting, and their accessors.
struct Installation {
    std::unique_ptr<ConfigInfo> document;
    std::vector<std::wstring> ids;
    std::vector<std::unique_ptr<ProjectorConfig>> projectors;
};

std::map<int, Installation>& installations() {
    static std::map<int, Installation> made;
    return made;
}

void refuse(const std::wstring& key) {
    throw std::runtime_error("the benchmark reads another value of " + std::string(key.begin(), key.end()));
}

void check(const Installation& made) {
    if (XMLConfig::settingsOfSection(section).size() != std::tuple_size_v<std::decay_t<decltype(readings())>>)
        throw std::runtime_error("the benchmark does not read every setting of a projector");
    for (std::size_t i = 0; i < made.ids.size(); ++i)
        forEachReading([&](const auto& one) {
            const auto given = (made.projectors[i].get()->*one.get)();
            if (!isSame(given, one.sample) || !isSame(given, get(*made.document, one.key, made.ids[i], one.sample)))
                refuse(one.key);
        });
}

void fill(ConfigInfo& document, const std::vector<std::wstring>& ids) {
    for (const std::wstring& id : ids) forEachReading([&](const auto& one) { set(document, one.key, id, one.sample); });
}

/// Saved and loaded, so that it lies in memory as a file's document does.
const Installation& installation(int projectors) {
    Installation& made = installations()[projectors];
    if (made.document) return made;
    for (int i = 1; i <= projectors; ++i) made.ids.push_back(std::to_wstring(i));
    const std::wstring path = widened(scratchFile());
    ConfigInfo filled;
    fill(filled, made.ids);
    filled.save(path);
    made.document = std::make_unique<ConfigInfo>(path);
    for (const std::wstring& id : made.ids)
        made.projectors.push_back(std::make_unique<ProjectorConfig>(made.document.get(), id));
    check(made);
    return made;
}

void readAccessors(benchmark::State& state, int projectors) {
    const Installation& made = installation(projectors);
    for ([[maybe_unused]] auto step : state)
        for (const auto& projector : made.projectors)
            forEachReading([&](const auto& one) { benchmark::DoNotOptimize((projector.get()->*one.get)()); });
    state.SetItemsProcessed(state.iterations() * projectors);
}

void readStore(benchmark::State& state, int projectors) {
    const Installation& made = installation(projectors);
    for ([[maybe_unused]] auto step : state)
        for (const std::wstring& id : made.ids)
            forEachReading([&](const auto& one) { benchmark::DoNotOptimize(get(*made.document, one.key, id, one.sample)); });
    state.SetItemsProcessed(state.iterations() * projectors);
}

/// Sets the number of ACT units, which looks among all items of one section for units beyond that number.
void setUnitCount(benchmark::State& state, int projectors) {
    ConfigInfo document(widened(sampleFile(projectors)));
    SystemConfig system(&document, nullptr, L"");
    int count = 0;
    for ([[maybe_unused]] auto step : state) {
        count = count == 1 ? 2 : 1;
        system.setACTCount(count);
    }
    if (system.getACTCount() != count) state.SkipWithError("another count was stored");
}

}  // namespace

void registerAccessors() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("accessors/library/" + size).c_str(), readAccessors, projectors);
        benchmark::RegisterBenchmark(("accessors/store/" + size).c_str(), readStore, projectors);
        benchmark::RegisterBenchmark(("unit_count/library/" + size).c_str(), setUnitCount, projectors);
    }
}

void releaseAccessors() { installations().clear(); }

}  // namespace bench
