#include "tests/support/SettingsPage.h"

#include "manager/Catalogue.h"

namespace XMLConfig::detail {

namespace {

constexpr const wchar_t* introduction =
    L"# Settings\n"
    L"\n"
    L"Every setting of every section, made from the descriptors that the accessors themselves use. \"Default\" is what a "
    L"getter gives\n"
    L"for a missing item, \"new\" what a new section holds (\u2013 where it is not written). `%d` and `%s` stand for a "
    L"number and an\n"
    L"identifier. How the types are written: [file-format.md](file-format.md).\n"
    L"\n"
    L"\"Values\" are the words, numbers or range that make sense; a range that \"is usual\" is this library's advice, no "
    L"limit of the\n"
    L"application. \"Class\" says of a device's setting whether it belongs to the device itself (identity), to its part of "
    L"the picture\n"
    L"(channel) or to where it stands (place); the rest may be copied to another device.\n";

// A cell's text: nothing in it may end the cell, and layout shows as escapes.
std::wstring cell(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'|') result += L"\\|";
        else if (c == L'\n') result += L"\\n";
        else if (c == L'\t') result += L"\\t";
        else result += c;
    }
    return result;
}

std::wstring code(const std::wstring& text) { return text.empty() ? L"\"\"" : L"`" + cell(text) + L"`"; }

std::wstring remarks(const Setting& setting) {
    std::wstring text = cell(setting.meaning);
    const auto add = [&text](const std::wstring& remark) { text += (text.empty() ? L"" : L"; ") + remark; };
    if (!setting.inheritsFrom.empty()) add(L"inherited from `" + setting.inheritsFrom + L"` when missing");
    if (setting.readOnly) add(L"only read");
    if (setting.writtenByRuns) add(L"written by runs");
    if (setting.countsWhile) add(L"counts only while `" + cell(conditionText(setting)) + L"`");
    return text;
}

std::wstring className(const Setting& setting) {
    return setting.settingClass == SettingClass::Rest ? L"" : nameOf(setting.settingClass);
}

std::wstring row(const Setting& setting) {
    const std::wstring initial = setting.initialText ? code(*setting.initialText) : L"\u2013";
    const std::wstring missing = setting.defaultMeaning.empty() ? code(setting.defaultText) : cell(setting.defaultMeaning);
    return L"| " + code(setting.key) + L" | " + nameOf(setting.type) + L" | " + missing + L" | " + initial + L" | " +
           nameOf(setting.unit) + L" | " + cell(valuesText(setting)) + L" | " + className(setting) + L" | " +
           remarks(setting) + L" |\n";
}

}  // namespace

std::wstring settingsPage() {
    std::wstring page = introduction;
    std::wstring section;
    for (const Setting& setting : catalogue()) {
        if (setting.section != section) {
            section = setting.section;
            page +=
                L"\n## " + section +
                L"\n\n| key | type | default | new | unit | values | class | meaning |\n|---|---|---|---|---|---|---|---|\n";
        }
        page += row(setting);
    }
    return page;
}

}  // namespace XMLConfig::detail
