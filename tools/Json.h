#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "base/Setting.h"

/// How the verbs answer with `--json`: one object, whose members keep their order.
namespace tool {

using Json = nlohmann::ordered_json;

/// A text; null for none.
Json jsonText(const std::wstring& text);
Json jsonText(const wchar_t* text);
Json jsonText(const std::optional<std::wstring>& text);
/// A stored text as the setting's type has it: a truth value, a number, a list of numbers; other texts as they are. Null for
/// a number that JSON cannot hold.
Json jsonValue(const std::wstring& text, XMLConfig::SettingType type);
/// An object with "format" and "verb"; "file" where there is one.
Json jsonAnswer(const char* verb);
Json jsonAnswer(const char* verb, const std::string& file);
/// The answer with "exit" at its end, as text with a line end.
std::wstring jsonEnd(Json answer, int exitStatus);

}  // namespace tool
