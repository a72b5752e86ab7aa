#include "tests/support/Declarations.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <regex>
#include <sstream>

#include "tests/support/TemporaryFolder.h"

namespace {

std::string trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool isPartOfName(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

std::string lastName(const std::string& text) {
    std::size_t begin = text.size();
    while (begin > 0 && (isPartOfName(text[begin - 1]) || text[begin - 1] == '~')) --begin;
    return text.substr(begin);
}

/// What a statement names where it declares a function; "" where it declares none.
std::string functionName(const std::string& statement) {
    static const std::regex noFunction("^(using|typedef|friend|static_assert|extern|enum)\\b");
    if (std::regex_search(statement, noFunction)) return "";
    const std::size_t operatorAt = statement.find("operator");
    if (operatorAt != std::string::npos)
        return trimmed(statement.substr(operatorAt, statement.find('(', operatorAt + 9) - operatorAt));
    const std::size_t open = statement.find('(');
    if (open == std::string::npos || statement.find('=') < open) return "";  // a value, made by a call
    const std::string name = lastName(trimmed(statement.substr(0, open)));
    const std::size_t nameAt = statement.rfind(name, open);
    const bool isDeclaredElsewhere = nameAt >= 2 && statement.compare(nameAt - 2, 2, "::") == 0;
    return isDeclaredElsewhere ? "" : name;
}

class Scanner {
public:
    std::vector<Declaration> scan(const std::string& header) {
        std::istringstream lines(header);
        for (std::string line; std::getline(lines, line);) read(trimmed(line));
        return m_found;
    }

private:
    struct Scope {
        std::string name;  // of a class; "" for a namespace
        bool isPublic = true;
    };

    void read(const std::string& line) {
        const bool isBetween = trimmed(m_statement).empty() && m_skipped == 0;
        if (line.empty() || (beginsWith(line, "//") && !beginsWith(line, "///"))) {
            if (isBetween) m_above.clear();
        } else if (beginsWith(line, "///") && !beginsWith(line, "///<")) {
            if (isBetween) m_above += line.substr(3) + " ";
        } else if (line[0] != '#') {
            readCode(line);
        }
    }

    void readCode(const std::string& line) {
        const std::size_t comment = line.find("//");
        const std::size_t before = m_found.size();
        m_beside += beginsWith(line.substr(std::min(comment, line.size())), "///<") ? line.substr(comment + 4) : "";
        for (const char c : line.substr(0, comment)) readCharacter(c);
        m_statement += ' ';
        if (m_found.size() > before || trimmed(m_statement).empty()) m_beside.clear();
    }

    void readCharacter(char c) {
        if (m_skipped > 0) {
            if (c == '{') ++m_skipped;
            if (c == '}' && --m_skipped == 0 && m_skipsBody) end();
            return;
        }
        if (c == '(') ++m_depth;
        if (c == ')') --m_depth;
        if (m_depth > 0 || (c != '{' && c != '}' && c != ';' && c != ':')) {
            m_statement += c;
        } else if (c == '{') {
            open();
        } else if (c == '}') {
            if (!m_scopes.empty()) m_scopes.pop_back();
            end();
        } else if (c == ';') {
            keep();
            end();
        } else {
            readColon();
        }
    }

    void readColon() {
        const std::string label = trimmed(m_statement);
        const bool isLabel = label == "public" || label == "protected" || label == "private";
        if (!isLabel) {
            m_statement += ':';
            return;
        }
        m_scopes.back().isPublic = label == "public";
        end();
    }

    /// A brace begins a namespace, a class, a function's body, or something without declarations.
    void open() {
        static const std::regex classHead("^(template ?<.*> ?)?(class|struct) ");
        const std::string statement = trimmed(m_statement);
        if (std::regex_search(statement, std::regex("^(inline )?namespace\\b"))) {
            m_scopes.push_back({"", true});
            end();
        } else if (std::regex_search(statement, classHead)) {
            const std::string head = trimmed(std::regex_replace(statement, std::regex(" : .*"), ""));
            m_scopes.push_back({head.substr(head.rfind(' ') + 1), statement.find("class ") == std::string::npos});
            end();
        } else {
            m_skipsBody = !functionName(statement).empty();
            if (m_skipsBody) keep();
            m_skipped = 1;
        }
    }

    void keep() {
        const std::string name = functionName(trimmed(m_statement));
        if (name.empty()) return;
        Declaration found;
        for (const Scope& scope : m_scopes) {
            if (scope.name.empty()) continue;
            found.owner += (found.owner.empty() ? "" : "::") + scope.name;
            found.isPublic = found.isPublic && scope.isPublic;
        }
        found.name = name;
        found.text = trimmed(std::regex_replace(m_statement, std::regex(" +"), " "));
        found.comment = trimmed(m_above + m_beside);
        m_found.push_back(found);
    }

    void end() {
        m_statement.clear();
        m_above.clear();
    }

    std::vector<Declaration> m_found;
    std::vector<Scope> m_scopes;
    std::string m_statement;
    std::string m_above;
    std::string m_beside;
    int m_depth = 0;           // of parentheses
    int m_skipped = 0;         // of braces around what is passed over
    bool m_skipsBody = false;  // whether that is a function's body
};

}  // namespace

std::vector<Declaration> declarationsOf(const std::string& header) { return Scanner().scan(header); }

std::vector<std::string> publicHeaders() {
    const std::string list = TemporaryFolder::readFile("cmake/PublicHeaders.cmake");
    static const std::regex header("[A-Za-z]+/[A-Za-z0-9]+\\.h");
    std::vector<std::string> headers;
    for (std::sregex_iterator found(list.begin(), list.end(), header), none; found != none; ++found)
        headers.push_back(found->str());
    return headers;
}
