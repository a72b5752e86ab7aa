#include "tests/support/OddTexts.h"

#include "manager/SettingSearch.h"
#include "platform/Words.h"

namespace XMLConfig::tests {

namespace {

using Texts = std::vector<std::wstring>;

const Texts oddTexts = {
    L"", L" ", L"\n\t",
    // truth values
    L"true", L"TRUE", L"t", L"T", L"1", L"yes", L"YES", L"y", L"false", L"False", L"f", L"0", L"no", L"No", L"n", L" true",
    L"true ", L"on", L"off", L"perhaps", L"2",
    // numbers
    L"-5", L"+7", L" 12 ", L"12abc", L"abc", L"1.5", L"1,5", L"-1.5", L".5", L"1e3", L"1e400", L"-1e400", L"1e-400", L"0x10",
    L"nan", L"-NaN", L"inf", L"-INF", L"infinity", L"2147483648", L"-2147483649", L"99999999999999999999", L"300", L"-1",
    L"3", L"4", L"8", L"256", L"- 1", L"\u0664",
    // lists
    L"3, 4", L"3 4", L"3,4,5", L"1.5\t2.5\n3.5", L"1 2 3 4", L"1;2", L"1, 2, 3,", L",1,,2", L"1, nan, inf", L"a, b", L"a,,b",
    L"40,40,40,40", L"40, x,, 7 ,9", L"55,", L"1,2,3,4,5", L"1 10 20 2 30 40", L"1 10 20 1 30 40 2 5", L"2 1 1 1 2 2",
    L"1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1", L"1 2 3 4 5 6 7 8 9 10 11 12", L"-180 -180\n0 1.5\n180 180", L"0.5, 0.25, 1.0, 2, 3",
    L"x, y, z, 2.9, q",
    // records
    L"true, ser ial , 10.0.0.5, 5000, 2", L"TRUE,a,b,1,2,3,4", L"true, a, b, 1", L"yes, , , x, y", L", , , , , ,",
    // words
    L"Projector Pose", L"projector pose", L"Projector Centric ", L"act-PROMPT", L"led", L"ACT", L"Own", L"\u65e5\u672c",
    L"  two  words "};

}  // namespace

void store(ConfigInfo& document, const Address& place, const std::wstring& text) {
    document.setStringItem(place.section, place.key, text, place.sectionID, place.subSection, place.subSectionID);
}

std::unique_ptr<ConfigInfo> documentAround(const AccessorReading& reading) {
    const Address& place = reading.place;
    auto document = std::make_unique<ConfigInfo>();
    store(*document, {place.section, place.sectionID, place.subSection, place.subSectionID, L"Neighbour"}, L"here");
    return document;
}

Texts oddTextsFor(const AccessorReading& reading) {
    const Setting& setting = settingOf(reading);
    Texts texts = oddTexts;
    for (const std::wstring& word : setting.words)
        for (const std::wstring& text : {word, XMLConfig::detail::lowerAscii(word), L" " + word, word + L"\n", word + L"x"})
            texts.push_back(text);
    for (const XMLConfig::NamedNumber& named : setting.numbers) texts.push_back(std::to_wstring(named.number));
    return texts;
}

const Setting& settingOf(const AccessorReading& reading) { return *knownSetting(reading.place); }

Address placeAbove(const AccessorReading& reading) {
    return {settingOf(reading).inheritsFrom, L"", L"", L"", reading.place.key};
}

}  // namespace XMLConfig::tests
