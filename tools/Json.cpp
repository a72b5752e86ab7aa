#include "tools/Json.h"

#include <charconv>
#include <cmath>

#include "base/TraitOfType.h"
#include "manager/Origin.h"
#include "platform/Utf8.h"
#include "store/Tokens.h"

namespace tool {
namespace {

template <typename T>
using Trait = XMLConfig::detail::ValueTrait<T>;

Json finite(double number) { return std::isfinite(number) ? Json(number) : Json(nullptr); }

/// The number of a text in the form in which the library stores numbers.
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

// The JSON value of what the application reads, which `read` gives in stored form. A type whose values are no texts needs a
// function of its own here.
Json valueOf(Trait<bool> /*trait*/, const std::wstring& read) { return read == L"true"; }
Json valueOf(Trait<int> /*trait*/, const std::wstring& read) { return parsed<int>(read); }
Json valueOf(Trait<double> /*trait*/, const std::wstring& read) { return finite(parsed<double>(read)); }
Json valueOf(Trait<Point_2Dim<int>> /*trait*/, const std::wstring& read) { return list<int>(read); }
Json valueOf(Trait<Point_2Dim<double>> /*trait*/, const std::wstring& read) { return list<double>(read); }
Json valueOf(Trait<Point_3Dim<double>> /*trait*/, const std::wstring& read) { return list<double>(read); }
Json valueOf(XMLConfig::detail::TextAsItStands /*trait*/, const std::wstring& read) { return jsonText(read); }

}  // namespace

Json jsonText(const std::wstring& text) { return XMLConfig::utf8FromWide(text); }
Json jsonText(const wchar_t* text) { return jsonText(std::wstring(text)); }
Json jsonText(const std::optional<std::wstring>& text) { return text ? jsonText(*text) : Json(nullptr); }

Json jsonValue(const std::wstring& text, XMLConfig::SettingType type) {
    const std::optional<std::wstring> read = XMLConfig::textAsRead(text, type);
    if (!read) return nullptr;
    return XMLConfig::detail::withTrait(type, [&](auto trait) { return valueOf(trait, *read); });
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
