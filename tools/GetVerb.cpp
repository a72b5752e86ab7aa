#include <memory>
#include <optional>

#include "manager/SettingSearch.h"
#include "platform/Terminal.h"
#include "platform/Utf8.h"
#include "store/FilePlaces.h"
#include "tools/Answer.h"
#include "tools/Json.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/Showing.h"
#include "tools/Suggestion.h"
#include "tools/TableText.h"
#include "tools/TreeText.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::ElementView;
using XMLConfig::Origin;

/// All that one run of get prints.
class Getting {
public:
    explicit Getting(const Request& request)
        : m_request(request),
          m_file(XMLConfig::wideFromUtf8(request.file)),
          m_document(readDocument(request.file, request.json || request.origin ? Lines::Asked : Lines::NotAsked)) {}

    ExitStatus run() {
        const std::vector<AskedPlace> asked = askedPlaces();
        const bool isOne = asked.size() == 1 && isPlain() && asked[0].address.sectionID != L"*";
        if (isOne) m_answers = answersAt(*m_document, asked[0]);
        else gather(asked);
        if (isOne && m_answers.size() == 1) return printOne();
        const ExitStatus status = complainOfMissing();
        if (m_request.json) print(jsonEnd(json(), status));
        else print(m_request.origin ? originText() : linesText());
        return status;
    }

private:
    [[nodiscard]] bool isPlain() const { return !m_request.json && !m_request.origin; }
    [[nodiscard]] bool isCounted() const { return m_request.effective || m_request.origin || m_request.json; }

    [[nodiscard]] std::vector<AskedPlace> askedPlaces() const {
        std::vector<AskedPlace> list;
        for (const std::string& operand : m_request.operands) list.push_back(askedPlaceOf(XMLConfig::wideFromUtf8(operand)));
        return list;
    }

    void gather(const std::vector<AskedPlace>& asked) {
        for (const AskedPlace& place : asked)
            for (Answer& answer : textAnswersAt(*m_document, place)) m_answers.push_back(std::move(answer));
    }

    /// Prints the text alone; a group as a tree.
    ExitStatus printOne() {
        const Answer& answer = m_answers[0];
        const ExitStatus status = complainOfMissing();
        if (!answer.isThere(isCounted()) && !m_request.fallback) return status;
        const std::wstring text =
            answer.element && answer.isGroup() && !(m_request.effective && answer.counted) ? treeOf(answer) : textOf(answer);
        // A program that reads the output gets the text as it stands.
        const std::wstring line = !text.empty() && text.back() == L'\n' ? text : text + L"\n";
        printExactly(XMLConfig::detail::isOutputATerminal() ? printableText(line) : line);
        return status;
    }

    [[nodiscard]] std::wstring treeOf(const Answer& answer) const {
        if (!m_request.human) return treeText(answer.element);
        return treeText(answer.element, shownNumbers(answer.element, answer.place, showing()));
    }

    /// Names what is missing, and what the application reads instead. Gives the exit status of a refusal where something is
    /// missing and no --default stands for it.
    [[nodiscard]] ExitStatus complainOfMissing() const {
        ExitStatus status = Done;
        for (const Answer& answer : m_answers) {
            if (answer.isThere(isCounted()) || m_request.fallback) continue;
            complain(m_file + L": holds no " + answer.address + countsAs(answer));
            status = Refused;
        }
        return status;
    }

    [[nodiscard]] std::wstring countsAs(const Answer& answer) const {
        if (!answer.counted) return suggestionFor(*m_document, answer.place);
        const std::wstring text = L"\"" + escaped(answer.counted->text) + L"\"";
        return (answer.counted->origin == Origin::Inherited
                    ? L"; it inherits " + text + L" from " + XMLConfig::addressText(answer.counted->from)
                    : L"; its default is " + text) +
               L" (--effective prints it)";
    }

    [[nodiscard]] std::wstring textOf(const Answer& answer) const {
        if (!answer.isThere(isCounted())) return XMLConfig::wideFromUtf8(*m_request.fallback);
        std::wstring text = answer.stored;
        if (isCounted() && answer.counted) text = m_request.effective ? answer.counted->text : answer.counted->stored;
        if (answer.element && answer.holdsElement()) text = answer.stored;
        return m_request.human ? showing().value(text, answer.setting) : text;
    }

    [[nodiscard]] std::wstring linesText() const {
        std::wstring text;
        for (const Answer& answer : m_answers)
            if (answer.isThere(isCounted()) || m_request.fallback)
                text += escaped(answer.address) + L"\t" + escaped(textOf(answer)) + L"\n";
        return text;
    }

    [[nodiscard]] std::wstring originText() const {
        std::vector<std::vector<std::wstring>> rows;
        for (const Answer& answer : m_answers)
            if (answer.isThere(true) || m_request.fallback)
                rows.push_back(
                    {originOf(answer), printable(sourceOf(answer)), escaped(answer.address), escaped(textOf(answer))});
        if (XMLConfig::detail::isOutputATerminal()) return tableText(rows, L"");
        std::wstring text;
        for (const auto& row : rows) text += row[0] + L"\t" + row[1] + L"\t" + row[2] + L"\t" + row[3] + L"\n";
        return text;
    }

    static std::wstring originOf(const Answer& answer) {
        if (!answer.isThere(true)) return L"missing";
        return answer.counted ? nameOf(answer.counted->origin) : nameOf(Origin::Stored);
    }

    [[nodiscard]] std::wstring sourceOf(const Answer& answer) const {
        if (!answer.isThere(true) || (answer.counted && answer.counted->origin == Origin::Default)) return L"-";
        const bool isInherited = answer.counted && answer.counted->origin == Origin::Inherited;
        const std::optional<unsigned long long> line = lineOf(isInherited ? answer.counted->element : answer.element);
        return (isInherited ? XMLConfig::addressText(answer.counted->from) : m_file) +
               (line ? L":" + std::to_wstring(*line) : L"");
    }

    /// Standard input has no lines to go back to.
    [[nodiscard]] std::optional<unsigned long long> lineOf(const ElementView& element) const {
        if (m_request.file == "-") return std::nullopt;
        if (!m_places) m_places = std::make_unique<XMLConfig::FilePlaces>(*m_document, m_file);
        const auto place = m_places->find(element);
        return place ? std::optional(place->line) : std::nullopt;
    }

    [[nodiscard]] Json json() const {
        Json answer = jsonAnswer("get", m_request.file);
        answer["values"] = Json::array();
        for (const Answer& value : m_answers) answer["values"].push_back(jsonOf(value));
        return answer;
    }

    [[nodiscard]] Json jsonOf(const Answer& answer) const {
        Json json = {{"address", jsonText(answer.address)}, {"device", jsonText(deviceOf(answer))}};
        if (!answer.isThere(true)) {
            json.update({{"origin", jsonText(originOf(answer))}, {"from", nullptr}, {"line", nullptr}});
            json.update({{"text", m_request.fallback ? Json(*m_request.fallback) : Json(nullptr)}, {"value", nullptr}});
        } else {
            const bool isDefault = answer.counted && answer.counted->origin == Origin::Default;
            const bool isInherited = answer.counted && answer.counted->origin == Origin::Inherited;
            const auto line = isDefault ? std::nullopt : lineOf(isInherited ? answer.counted->element : answer.element);
            json["origin"] = jsonText(originOf(answer));
            json["from"] = isDefault ? Json(nullptr)
                                     : jsonText(isInherited ? XMLConfig::addressText(answer.counted->from) : answer.address);
            json["line"] = line ? Json(*line) : Json(nullptr);
            json["text"] = jsonText(textOf(answer));
            json["value"] = valueOf(answer);
        }
        json["unit"] = jsonText(answer.setting == nullptr ? L"" : nameOf(answer.setting->unit));
        return json;
    }

    static Json valueOf(const Answer& answer) {
        const std::wstring& text = answer.counted && !answer.holdsElement() ? answer.counted->text : answer.stored;
        return answer.setting == nullptr ? jsonText(text) : jsonValue(text, answer.setting->type);
    }

    [[nodiscard]] std::wstring deviceOf(const Answer& answer) const {
        if (!XMLConfig::isDeviceSection(answer.place.section)) return L"";
        return showing().device(answer.place.section, answer.place.sectionID);
    }

    /// Made once for all answers, as it reads the names of all devices.
    [[nodiscard]] const Showing& showing() const {
        if (!m_showing) m_showing.emplace(*m_document);
        return *m_showing;
    }

    const Request& m_request;
    std::wstring m_file;
    std::unique_ptr<ConfigInfo> m_document;
    std::vector<Answer> m_answers;
    mutable std::unique_ptr<XMLConfig::FilePlaces> m_places;
    mutable std::optional<Showing> m_showing;
};

}  // namespace

void setUpGet(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to read; - for standard input").required().notEmpty(emptyName);
    options.value("ADDRESS", request.operands, "Where a value stands; a whole section or group is shown as a tree")
        .required();
    options.flag("--effective", request.effective, "Print what the application reads: inherited values and defaults, too");
    options.flag("--origin", request.origin, "Tell where what the application reads comes from");
    options.flag("--human", request.human, "Print numbers short and in the document's units");
    options.value("--default", request.fallback, "Print this for what is missing").valueName("TEXT");
    options.flag("--json", request.json, "Answer with one JSON object");
    options.footer(
        std::string("One ADDRESS of one place prints the text; several, or [*], print lines of address, tab, text,\n"
                    "in which \\n, \\t and \\\\ stand for a line feed, a tab and a backslash, and\n"
                    "\\u009b for the character of that number.\n\n") +
        addressHelp);
}

ExitStatus runGet(const Request& request) { return Getting(request).run(); }

}  // namespace tool
