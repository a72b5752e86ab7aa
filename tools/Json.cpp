#include "tools/Json.h"

#include <charconv>
#include <cmath>

#include "manager/Origin.h"
#include "platform/Utf8.h"
#include "store/Tokens.h"

namespace tool {
namespace {

using XMLConfig::SettingType;

Json finite(double number) { return std::isfinite(number) ? Json(number) : Json(nullptr); }

/// Of text in the form in which the library stores numbers.
template <typename T>
T parsed(const std::wstring& text) {
    const std::string bytes = XMLConfig::utf8FromWide(text);
    T number{};
    std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    return number;
}

template <typename T>
Json list(const std::wstring& text) {
    Json json = Json::array();
    for (const std::wstring& token : XMLConfig::detail::tokensOf(text)) {
        if constexpr (std::is_same_v<T, double>) json.push_back(finite(parsed<T>(token)));
        else json.push_back(parsed<T>(token));
    }
    return json;
}

}  // namespace

Json jsonText(const std::wstring& text) { return XMLConfig::utf8FromWide(text); }
Json jsonText(const wchar_t* text) { return jsonText(std::wstring(text)); }
Json jsonText(const std::optional<std::wstring>& text) { return text ? jsonText(*text) : Json(nullptr); }

Json jsonValue(const std::wstring& text, SettingType type) {
    const std::optional<std::wstring> read = XMLConfig::textAsRead(text, type);
    if (!read) return nullptr;
    switch (type) {
        case SettingType::Bool:
            return *read == L"true";
        case SettingType::Int:
            return parsed<int>(*read);
        case SettingType::Double:
            return finite(parsed<double>(*read));
        case SettingType::IntPoint2:
            return list<int>(*read);
        case SettingType::Point2:
        case SettingType::Point3:
            return list<double>(*read);
        case SettingType::Text:
        case SettingType::Element:
        case SettingType::Frustum:
        case SettingType::PondOfMirrors:
        case SettingType::Path:
        case SettingType::CameraIDs:
        case SettingType::OverlapPoint:
        case SettingType::BlackBox:
        case SettingType::IntegerPairs:
        case SettingType::FourIntegers:
        case SettingType::MarkerPlaces:
        case SettingType::PointList:
        case SettingType::Matrix:
        case SettingType::AxisTable:
            break;
    }
    return jsonText(*read);
}

Json jsonAnswer(const char* verb) { return {{"format", 1}, {"verb", verb}}; }

Json jsonAnswer(const char* verb, const std::string& file) {
    Json answer = jsonAnswer(verb);
    answer["file"] = file;
    return answer;
}

std::wstring jsonEnd(Json answer, int exitStatus) {
    answer["exit"] = exitStatus;
    return XMLConfig::wideFromUtf8(answer.dump(2)) + L"\n";
}

}  // namespace tool
