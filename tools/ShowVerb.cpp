#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "tools/Output.h"
#include "tools/Places.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/SnippetParts.h"
#include "tools/Suggestion.h"
#include "tools/Summary.h"
#include "tools/TreeText.h"
#include "tools/Verb.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::ElementView;
using XMLConfig::StoredText;

/// All that one run of show prints of a document.
class Showcase {
public:
    explicit Showcase(const Request& request)
        : m_request(request),
          m_file(XMLConfig::wideFromUtf8(request.file)),
          m_read(readWithVersion(request.file, request.json ? Lines::Asked : Lines::NotAsked)),
          m_document(m_read.document.get()) {}

    ExitStatus run() {
        for (const std::string& operand : m_request.operands) find(wholeAddressOf(operand));
        if (m_request.json) print(jsonEnd(json(), m_status));
        else if (m_request.flat) print(lines());
        else if (!m_request.operands.empty()) print(trees());
        else print(m_request.all ? headerText() + wholeTree() : summaryText(summary(), m_file, Showing(*m_document)));
        return m_status;
    }

private:
    [[nodiscard]] Summary summary() const {
        return summarize(*m_document, m_request.file == "-" ? L"" : m_file, m_read.storedVersion);
    }

    void find(const Address& operand) {
        const std::size_t before = m_places.size();
        for (const Address& place : placesOf(*m_document, operand))
            if (XMLConfig::findElement(*m_document, place)) m_places.push_back(place);
        if (m_places.size() > before) return;
        complain(m_file + L": holds no " + XMLConfig::addressText(operand) + suggestionFor(*m_document, operand));
        m_status = Refused;
    }

    /// The texts at and below the operands; all texts of the document where there are no operands.
    [[nodiscard]] std::vector<StoredText> texts() const {
        if (m_request.operands.empty()) return textsOf(*m_document);
        std::vector<StoredText> all;
        for (const Address& place : m_places)
            for (StoredText& text : textsAt(XMLConfig::findElement(*m_document, place), place))
                all.push_back(std::move(text));
        return all;
    }

    [[nodiscard]] std::wstring lines() const {
        std::wstring lines;
        for (const StoredText& text : texts()) lines += escaped(text.path + L"=" + text.text) + L"\n";
        return lines;
    }

    [[nodiscard]] std::wstring trees() const {
        const Showing showing(*m_document);
        std::wstring text;
        for (const Address& place : m_places)
            text += (text.empty() ? L"" : L"\n") + tree(XMLConfig::findElement(*m_document, place), place, showing);
        return text;
    }

    static std::wstring tree(const ElementView& element, const Address& place, const Showing& showing) {
        return treeText(element, shownNumbers(element, place, showing));
    }

    [[nodiscard]] std::wstring headerText() const {
        std::wstring text;
        for (const ElementView& element : XMLConfig::rootElement(*m_document).children())
            if (XMLConfig::isHeaderElement(element.name())) text += treeText(element);
        return text;
    }

    [[nodiscard]] std::wstring wholeTree() const {
        const Showing showing(*m_document);
        std::wstring text;
        for (const ElementView& element : XMLConfig::rootElement(*m_document).children())
            if (!XMLConfig::isHeaderElement(element.name()))
                text += L"\n" + tree(element, {element.name(), element.id(), L"", L"", L""}, showing);
        return text;
    }

    [[nodiscard]] Json json() const {
        // Standard input has no lines to go back to.
        const bool hasLines = m_request.file != "-";
        const auto places = hasLines ? std::make_unique<XMLConfig::FilePlaces>(*m_document, m_file) : nullptr;
        Json answer = jsonAnswer("show", m_request.file);
        answer["version"] = m_read.storedVersion.value_or(m_document->getVersion());
        if (m_request.operands.empty()) answer.update(summaryJson(summary(), places.get()));
        if (m_request.all || m_request.flat || !m_request.operands.empty()) answer["sections"] = sections(places.get());
        return answer;
    }

    [[nodiscard]] Json sections(const XMLConfig::FilePlaces* places) const {
        Json list = Json::array();
        for (const StoredText& text : texts()) {
            const auto place = places == nullptr ? std::nullopt : places->find(text.element);
            list.push_back(
                {{"address", jsonText(text.path)},
                 {"text", jsonText(text.text)},
                 {"value", text.setting == nullptr ? jsonText(text.text) : jsonValue(text.text, text.setting->type)},
                 {"unit", jsonText(text.setting == nullptr ? L"" : nameOf(text.setting->unit))},
                 {"line", place ? Json(place->line) : Json(nullptr)}});
        }
        return list;
    }

    const Request& m_request;
    std::wstring m_file;
    ReadDocument m_read;
    ConfigInfo* m_document;
    std::vector<Address> m_places;
    ExitStatus m_status = Done;
};

}  // namespace

void setUpShow(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to show; - for standard input").required().notEmpty(emptyName);
    options.value("ADDRESS", request.operands, "Show these places only, as trees");
    const Option all = options.flag("--all", request.all, "Show the whole tree instead of the summary");
    options.flag("--flat", request.flat, "One line a value: ADDRESS=TEXT, as 'set --from' reads them").excludes(all);
    options.flag("--json", request.json, "Answer with one JSON object");
    options.footer(std::string("In the lines of --flat, \\n, \\t and \\\\ stand for a line feed, a tab and a backslash,\n"
                               "and \\u009b for the character of that number. Trees show numbers in the document's\n"
                               "units, --flat as they are stored.\n\n") +
                   addressHelp);
}

ExitStatus runShow(const Request& request) { return Showcase(request).run(); }

}  // namespace tool
