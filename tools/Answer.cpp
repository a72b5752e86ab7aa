#include "tools/Answer.h"

#include <utility>

#include "manager/SettingSearch.h"
#include "store/ConfigInfo.h"
#include "tools/Places.h"
#include "tools/SnippetParts.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::StoredText;

std::wstring elementText(const ConfigInfo& document, const Address& place) {
    return document.getStringItemAsDOMElement(place.section, place.key, L"", place.sectionID);
}

Answer answerAt(const ConfigInfo& document, const Address& place) {
    Answer answer{XMLConfig::addressText(place),           place, XMLConfig::knownSetting(place),
                  XMLConfig::findElement(document, place), L"",   std::nullopt};
    if (answer.element && answer.holdsElement()) answer.stored = elementText(document, place);
    else if (answer.element && !answer.element.firstChild()) answer.stored = answer.element.text();
    answer.counted = XMLConfig::effectiveValue(document, place);
    if (answer.counted && answer.holdsElement()) answer.counted->text = answer.counted->stored;
    return answer;
}

Answer answerOf(const StoredText& text) {
    return {text.path, text.place, nullptr, text.element, text.text, std::nullopt, true};
}

/// The answer for what is not there, of which the application reads nothing either.
Answer nothingAt(const Address& place, const std::wstring& address) {
    return {address, place, nullptr, {}, L"", std::nullopt};
}

/// Whether a text stands at the address, or in what stands there.
bool isAtOrIn(const StoredText& text, const std::wstring& address) {
    if (text.path.compare(0, address.size(), address) != 0) return false;
    const wchar_t next = text.path.size() == address.size() ? L'/' : text.path[address.size()];
    return next == L'/' || next == L'@';
}

void addParts(std::vector<Answer>& answers, const ConfigInfo& document, const Address& place, const std::wstring& part) {
    const std::size_t before = answers.size();
    const std::wstring address = XMLConfig::addressText(place) + L"/" + part;
    for (const StoredText& text : textsAt(XMLConfig::findElement(document, place), place))
        if (isAtOrIn(text, address)) answers.push_back(answerOf(text));
    if (answers.size() == before) answers.push_back(nothingAt(place, address));
}

void addTexts(std::vector<Answer>& answers, const ConfigInfo& document, Answer&& group) {
    for (const StoredText& text : textsAt(group.element, group.place))
        answers.push_back(text.inSnippet ? answerOf(text) : answerAt(document, text.place));
}

std::wstring textOf(const AskedPlace& asked) {
    return XMLConfig::addressText(asked.address) + (asked.part.empty() ? L"" : L"/" + asked.part);
}

}  // namespace

bool Answer::holdsElement() const { return setting != nullptr && setting->type == XMLConfig::SettingType::Element; }

bool Answer::isGroup() const {
    if (isPart) return false;
    const bool holdsText = !element.firstChild() && !stored.empty();
    return (place.key.empty() && !holdsText) || (element.firstChild() && !holdsElement());
}

AskedPlace askedPlaceOf(const std::wstring& text) {
    const SnippetPart part = snippetPartOf(text);
    return {XMLConfig::parseAddress(part.part.empty() ? text : part.snippet), part.part};
}

std::vector<Answer> answersAt(const ConfigInfo& document, const AskedPlace& asked) {
    std::vector<Answer> answers;
    for (const Address& place : placesOf(document, asked.address)) {
        if (asked.part.empty()) answers.push_back(answerAt(document, place));
        else addParts(answers, document, place, asked.part);
    }
    if (answers.empty()) answers.push_back(nothingAt(asked.address, textOf(asked)));
    return answers;
}

std::vector<Answer> textAnswersAt(const ConfigInfo& document, const AskedPlace& asked) {
    std::vector<Answer> answers;
    for (Answer& answer : answersAt(document, asked)) {
        if (answer.element && answer.isGroup()) addTexts(answers, document, std::move(answer));
        else answers.push_back(std::move(answer));
    }
    return answers;
}

}  // namespace tool
