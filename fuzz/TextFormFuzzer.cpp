#include "fuzz/FuzzFile.h"
#include "sections/AxisDistortionCorrection.h"
#include "sections/CalibrationPoints.h"
#include "sections/ScreenTexts.h"
#include "sections/SystemTexts.h"
#include "store/CorvaneException.h"
#include "store/TextForms.h"

#include <sstream>

namespace {

namespace detail = XMLConfig::detail;

/// A line of points is cut after 127 characters. Only numbers of more than thirty digits come to that; what follows them is
/// lost.
bool mayBeCut(const std::wstring& written) {
    std::wistringstream lines(written);
    for (std::wstring line; std::getline(lines, line);)
        if (line.size() >= 120) return true;
    return false;
}

/// What is read from a text, written and read again is written the same.
template <typename Read, typename Write>
void requireFixedPoint(const std::wstring& text, Read read, Write write, const char* what) {
    const std::wstring once = write(read(text));
    if (!mayBeCut(once)) require(write(read(once)) == once, what);
}

void tryNumbers(const std::wstring& text) {
    // Sixteen digits do not tell every number from its neighbour, but what they tell stays.
    const std::wstring written = detail::textOf(double{detail::leadingDouble(text)});
    require(detail::textOf(double{detail::leadingDouble(written)}) == written, "a written number is written the same again");
    require(detail::leadingInteger(detail::textOf(int{detail::leadingInteger(text)})) == detail::leadingInteger(text),
            "a written integer reads back");
    const std::u16string narrow = detail::toUtf16(text);
    require(detail::leadingInteger(std::u16string_view(narrow)) == detail::leadingInteger(text),
            "an integer is the same in both forms of text");
}

void tryTokens(std::wstring text) {
    std::vector<std::wstring> tokens;
    const int count = ConfigInfo::createTokenVector(tokens, text, L", \n\t");
    require(count == static_cast<int>(tokens.size()), "the number of tokens");
    for (const std::wstring& token : tokens) require(!token.empty(), "a token is not empty");
    while (!text.empty()) ConfigInfo::stringTok(text, L", \n\t");
}

void trySections(const std::wstring& text) {
    requireFixedPoint(text, detail::calibrationPointsOf, detail::calibrationPointsText, "points of the screen");
    requireFixedPoint(text, detail::transformOf, detail::transformText, "a transform");
    requireFixedPoint(text, detail::calibrationPointsFromText, detail::calibrationPointsToText, "points of a camera");
    requireFixedPoint(text, detail::blackBoxFromText, detail::blackBoxText, "a black box");
    requireFixedPoint(text, detail::relayAssociationsFromText, detail::relayAssociationsText, "relay associations");
}

void tryAxisTable(const std::wstring& text) {
    std::vector<std::pair<double, double>> table;
    AxisDistortionCorrection::deserializeTableFromDelimitedString(table, detail::toUtf8(text));
    std::string written;
    AxisDistortionCorrection::serializeTableToDelimitedString(written, table, 0, 17);
    std::vector<std::pair<double, double>> clean;
    AxisDistortionCorrection::cleanData(clean, table, -90.0, 90.0);
    for (const auto& [from, to] : clean) require(!(from < -90.0) && !(from > 90.0), "a clean table is within its limits");
}

/// Stored in a document and read from it.
void tryDocument(const std::wstring& text) {
    ConfigInfo document;
    try {
        document.setStringItem(L"S", L"K", text, {}, {}, {});
    } catch (const CorvaneException&) {
        require(!document.isDirty(), "a refused value changes nothing");
        return;
    }
    document.getBoolItem(L"S", L"K", false, L"");
    document.getPoint2IItem(L"S", L"K", {}, L"");
    document.getPoint2DItem(L"S", L"K", {}, L"");
    document.getPoint3DItem(L"S", L"K", {}, L"");
    require(document.getStringItem(L"S", L"K", {}, {}, {}, {}) == text, "a text reads back");
    const ConfigInfo again(fuzzFile(savedText(document)));
    require(again.getStringItem(L"S", L"K", {}, {}, {}, {}) == text, "a text reads back from the file");
}

void tryFragment(const std::wstring& text) {
    ConfigInfo document;
    try {
        document.setStringItemAsDOMElement(L"S", L"K", text, L"");
    } catch (const CorvaneException&) {
        require(!document.isDirty(), "a refused fragment changes nothing");
        return;
    }
    const std::wstring once = document.getStringItemAsDOMElement(L"S", L"K", L"", L"");
    const ConfigInfo again(fuzzFile(savedText(document)));
    static_cast<void>(again.getStringItemAsDOMElement(L"S", L"K", L"", L""));
    require(text.empty() || !once.empty(), "a stored fragment is there");
}

}  // namespace

// Texts of values: numbers, points, tables, lists, plain texts and fragments.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    const std::wstring text = input.rest();
    tryNumbers(text);
    tryTokens(text);
    trySections(text);
    tryAxisTable(text);
    tryDocument(text);
    tryFragment(text);
    return 0;
}
