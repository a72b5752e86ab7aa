#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "base/Angles.h"
#include "manager/check/Findings.h"
#include "sections/AxisDistortionCorrection.h"
#include "sections/ScreenTexts.h"
#include "store/Tokens.h"

/// Rules on the screen and the target.
namespace XMLConfig::detail {
namespace {

class ScreenCheck {
public:
    explicit ScreenCheck(Findings& findings) : m_findings(findings), m_screen(findings.read.section(L"Screen")) {}

    void run() {
        checkTables();
        if (!m_screen.element) return;
        checkShape();
        checkBeyondSphere();
        checkModel();
        checkMasks();
        checkMarkers();
        checkTransform();
        checkEyes();
    }

private:
    [[nodiscard]] std::wstring text(const wchar_t* key) const { return m_findings.read.text(m_screen, key); }
    [[nodiscard]] double number(const wchar_t* key) const { return m_findings.read.number(m_screen, key); }
    [[nodiscard]] int integer(const wchar_t* key) const { return m_findings.read.integer(m_screen, key); }
    [[nodiscard]] bool flag(const wchar_t* key) const { return m_findings.read.flag(m_screen, key); }

    void add(const wchar_t* rule, Severity severity, const wchar_t* key, const std::wstring& message) {
        m_findings.add(rule, severity, placeOf(m_screen, key), message);
    }

    // The size.

    [[nodiscard]] bool isEnteredByHand() const {
        const int definition = integer(L"SizeDefinition");
        return definition == 0 || (definition == 3 && !flag(L"Auto_Dimensions"));
    }

    void checkShape() {
        const std::wstring shape = text(L"Shape");
        if (!isEnteredByHand()) return;
        if (shape == L"VRML" && text(L"VRML").empty()) add(L"XC501", Severity::Error, L"VRML", L"a VRML screen needs it");
        if (shape == L"Sphere" || shape == L"Cylinder" || shape == L"Toroid") needPositive(shape, L"Screen_Radius");
        if (shape == L"Sphere" || shape == L"Cylinder") needRising(L"Screen_MinTheta", L"Screen_MaxTheta");
        if (shape == L"Sphere") needRising(L"Screen_MinPhi", L"Screen_MaxPhi");
        if (shape == L"Flat") needPositive(shape, L"Screen_Width");
        if (shape == L"Cylinder" || shape == L"Flat") needPositive(shape, L"Screen_Height");
    }

    void needPositive(const std::wstring& shape, const wchar_t* key) {
        if (!(number(key) <= 0.0)) return;  // XC113 is about what is no number
        add(L"XC501", Severity::Error, key, L"a " + shape + L" needs it (" + shortNumber(number(key)) + L")");
    }

    void needRising(const wchar_t* low, const wchar_t* high) {
        if (!(number(low) >= number(high))) return;
        add(L"XC501", Severity::Error, low,
            L"is not below " + std::wstring(high) + L" (" + m_findings.units.angle(number(low)) + L" to " +
                m_findings.units.angle(number(high)) + L")");
    }

    void checkBeyondSphere() {
        if (text(L"Shape") != L"Sphere") return;
        const auto look = [&](const wchar_t* key, double limit, const wchar_t* way) {
            constexpr double least = 1e-9;
            const double angle = std::abs(number(key));
            if (angle > limit + least && angle <= fullTurn)
                add(L"XC502", Severity::Warning, key,
                    m_findings.units.angleBeyond(number(key), limit) + way + L" is more than a sphere");
        };
        for (const wchar_t* const key : {L"Screen_MinTheta", L"Screen_MaxTheta"}) look(key, pi, L" around");
        for (const wchar_t* const key : {L"Screen_MinPhi", L"Screen_MaxPhi"}) look(key, pi / 2.0, L" up");
    }

    // Models and masks.

    void checkModel() {
        const bool hasModel = !text(L"VRML").empty();
        if (integer(L"SizeDefinition") == 2 && !hasModel)
            add(L"XC503", Severity::Error, L"SizeDefinition", L"the size is to come from a model file, but there is none");
        const auto axis = [&](const wchar_t* key) {
            const std::wstring name = text(key);
            return name.empty() ? L' ' : name.back();
        };
        const bool isOneAxis = axis(L"AxisForward") == axis(L"AxisUpward") && axis(L"AxisUpward") != L' ';
        if (hasModel && isOneAxis) add(L"XC504", Severity::Error, L"AxisUpward", L"is along AxisForward");
        if (text(L"File_Length_Unit") == L"Custom" && number(L"File_Unit_Custom_Scale") <= 0.0)
            add(L"XC505", Severity::Error, L"File_Unit_Custom_Scale", L"must be above 0");
    }

    void checkMasks() {
        for (const wchar_t* const side : {L"Mask_Top", L"Mask_Bottom", L"Mask_Left", L"Mask_Right"}) {
            const std::wstring enabled = std::wstring(side) + L"_Enabled";
            if (flag(enabled.c_str()) && number(side) <= 0.0)
                add(L"XC506", Severity::Note, enabled.c_str(), L"is enabled, but has no size");
        }
    }

    // Markers.

    void checkMarkers() {
        const std::wstring method = m_findings.read.text(L"System", L"Marker_Location_Method");
        if (method.compare(0, 14, L"marked-surface") == 0) checkMarkedSurface();
        const bool isDescribed = number(L"Checkerboard_Calibration|Box_Dimension") > 0.0 &&
                                 integer(L"Checkerboard_Calibration|Grid_Size|Columns") >= 2 &&
                                 integer(L"Checkerboard_Calibration|Grid_Size|Rows") >= 2;
        if (method == L"checkerboard" && !isDescribed)
            add(L"XC508", Severity::Error, L"Checkerboard_Calibration", L"is not described");
    }

    void checkMarkedSurface() {
        if (text(L"Marked_Surface_File").empty()) {
            add(L"XC507", Severity::Error, L"Marked_Surface_File", L"is empty, but markers are found by it");
            return;
        }
        for (const wchar_t* const key : {L"Marked_Surface_Image_Width", L"Marked_Surface_Image_Height"})
            if (integer(key) <= 0)
                add(L"XC507", Severity::Warning, key,
                    L"is " + std::to_wstring(integer(key)) + L", but markers are found by that image");
    }

    // The target's tables.

    void checkTables() {
        namespace Axis = AxisDistortionCorrection;
        checkTable(L"Horizontal_Content_Distortion", Axis::minValueInDegreesYaw(), Axis::maxValueInDegreesYaw());
        checkTable(L"Vertical_Content_Distortion", Axis::minValueInDegreesPitch(), Axis::maxValueInDegreesPitch());
    }

    void checkTable(const wchar_t* key, double least, double most) {
        const std::vector<double> numbers = numbersOf(m_findings.read.text(L"TargetLocator", key));
        const Place place = placeOf(m_findings, L"TargetLocator", key);
        if (numbers.size() % 2 != 0) {
            m_findings.add(L"XC510", Severity::Error, place,
                           L"holds " + std::to_wstring(numbers.size()) + L" numbers, not pairs");
            return;
        }
        const auto isInside = [&](double number) { return number >= least && number <= most; };
        const auto beyond = std::find_if_not(numbers.begin(), numbers.end(), isInside);
        const std::wstring fault = beyond == numbers.end() ? notRising(numbers, least, most)
                                                           : numberBeyond(*beyond, {least, most}) + L" is beyond " +
                                                                 shortNumber(least) + L" to " + shortNumber(most);
        if (!fault.empty()) m_findings.add(L"XC509", Severity::Error, place, fault);
    }

    /// The first two neighbours that do not rise; "" where all do.
    static std::wstring notRising(const std::vector<double>& numbers, double least, double most) {
        std::vector<std::pair<double, double>> pairs;
        for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) pairs.emplace_back(numbers[i], numbers[i + 1]);
        std::vector<std::pair<double, double>> clean;
        if (AxisDistortionCorrection::cleanData(clean, pairs, least, most)) return {};
        const auto shown = [](const std::pair<double, double>& pair) {
            return shortNumber(pair.first) + L" -> " + shortNumber(pair.second);
        };
        const auto doesNotRise = [](const std::pair<double, double>& one, const std::pair<double, double>& next) {
            return next.first <= one.first || next.second <= one.second;
        };
        const auto fall = std::adjacent_find(clean.begin(), clean.end(), doesNotRise);  // else it would be clean
        return shown(*fall) + L", then " + shown(*std::next(fall)) + L": does not rise";
    }

    // Points.

    void checkTransform() {
        const std::vector<double> numbers = numbersOf(m_screen.stored(L"Locate_Guess_Transform"));
        if (numbers.empty()) return;
        constexpr std::size_t all = 16;
        if (numbers.size() != all)
            add(L"XC511", Severity::Warning, L"Locate_Guess_Transform",
                L"holds " + std::to_wstring(numbers.size()) + L" numbers; the identity is used");
        else if (!isRotation(numbers))
            add(L"XC511", Severity::Warning, L"Locate_Guess_Transform", L"does not turn alone, it stretches or mirrors");
    }

    /// The rows are of length 1, at right angles, and right-handed.
    static bool isRotation(const std::vector<double>& m) {
        constexpr double tolerance = 1e-3;
        const auto row = [&](std::size_t i) { return std::array<double, 3>{m[4 * i], m[4 * i + 1], m[4 * i + 2]}; };
        const auto dot = [&](std::size_t i, std::size_t j) {
            return row(i)[0] * row(j)[0] + row(i)[1] * row(j)[1] + row(i)[2] * row(j)[2];
        };
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = i; j < 3; ++j)
                if (!(std::abs(dot(i, j) - (i == j ? 1.0 : 0.0)) <= tolerance)) return false;
        const auto [x, y, z] = row(0);
        const auto [a, b, c] = row(1);
        const auto [u, v, w] = row(2);
        return x * (b * w - c * v) - y * (a * w - c * u) + z * (a * v - b * u) > 0.0;
    }

    void checkEyes() {
        const double radius = number(L"Screen_Radius");
        if (text(L"Shape") != L"Sphere" || radius <= 0.0) return;
        const Point_3Dim<double> centre = m_findings.read.point(m_screen, L"Center_Point");
        const auto look = [&](const Place& place, const Point_3Dim<double>& point) {
            if (std::hypot(point.x - centre.x, point.y - centre.y, point.z - centre.z) >= radius)
                m_findings.add(L"XC513", Severity::Warning, place, L"is outside the sphere");
        };
        look(placeOf(m_findings, L"TargetLocator", L"Eye_Point"), m_findings.read.point(L"TargetLocator", L"Eye_Point"));
        look(placeOf(m_screen, L"Projection_Point"), m_findings.read.point(m_screen, L"Projection_Point"));
    }

    Findings& m_findings;
    const CheckedSection& m_screen;
};

}  // namespace

void checkScreen(Findings& findings) { ScreenCheck(findings).run(); }

}  // namespace XMLConfig::detail
