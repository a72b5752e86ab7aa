#include "tools/AskedChange.h"

#include <fstream>
#include <iostream>

#include "platform/FileNames.h"
#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/SnippetParts.h"
#include "tools/Verb.h"

namespace tool {

namespace {

AskedChange askedChangeIn(const std::string& line) {
    const std::wstring text = XMLConfig::wideFromUtf8(line);
    if (XMLConfig::utf8FromWide(text) != line) throw WrongOperands("is not UTF-8");
    return askedChangeOf(unescaped(text));
}

const std::string byteOrderMark = "\xEF\xBB\xBF";  // which some editors put before the first line

/// Adds one change for each line that is not empty.
void addLines(std::vector<AskedChange>& changes, std::istream& lines, const std::string& file) {
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (number == 1 && line.compare(0, byteOrderMark.size(), byteOrderMark) == 0) line.erase(0, byteOrderMark.size());
        const std::string place = file + " line " + std::to_string(number) + ": ";
        try {
            if (!line.empty()) changes.push_back(askedChangeIn(line));
        } catch (const CorvaneParseException& fault) {
            throw WrongOperands(place + fault.what());
        } catch (const WrongOperands& fault) {
            throw WrongOperands(place + fault.what());
        }
    }
}

}  // namespace

std::size_t valueStart(const std::wstring& assignment) {
    const std::size_t sign = findOutsideIDs(assignment, L'=');
    return sign == std::wstring::npos ? sign : sign + 1;
}

AskedChange askedChangeOf(const std::wstring& text) {
    const std::size_t start = valueStart(text);
    if (start == std::wstring::npos) return {XMLConfig::parseAssignment(text), L""};
    const SnippetPart part = snippetPartOf(text.substr(0, start - 1));
    if (part.part.empty()) return {XMLConfig::parseAssignment(text), L""};
    return {{XMLConfig::parseAddress(part.snippet), text.substr(start)}, part.part};
}

std::vector<AskedChange> askedChanges(const Request& request) {
    std::vector<AskedChange> changes;
    for (const std::string& operand : request.operands) changes.push_back(askedChangeOf(XMLConfig::wideFromUtf8(operand)));
    if (request.lineFile.empty()) return changes;
    if (request.lineFile == "-") {
        addLines(changes, std::cin, "standard input");
        requireWholeInput();
        return changes;
    }
    const std::wstring file = XMLConfig::wideFromUtf8(request.lineFile);
    std::ifstream lines(XMLConfig::pathForStreams(file), std::ios::binary);
    if (!lines) throw Unreadable(unreadableLines(request.lineFile));
    addLines(changes, lines, request.lineFile);
    if (lines.bad()) throw Unreadable(unreadableLines(request.lineFile));
    return changes;
}

}  // namespace tool
