#include "tools/CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <optional>

#include "manager/LogOutput.h"
#include "manager/Upgrade.h"
#include "platform/Utf8.h"
#include "store/ConfigInfoFactory.h"
#include "tools/FaultAnswer.h"
#include "tools/HelpFormat.h"
#include "tools/ManualPage.h"
#include "tools/NumberTexts.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Suggestion.h"
#include "tools/Verb.h"

namespace tool {
namespace {

const char* const summary = "Reads, checks and changes the configuration files of the projector calibration.";
const char* const exitStatuses =
    "Exit status: 0 done, 1 not found or refused, 2 wrong usage, 3 a file cannot be read or written, or is no\n"
    "configuration.";

std::string programVersion() {
    const std::wstring latest = XMLConfig::versionText(ConfigInfoFactory::getLatestFileVersionNumber());
    return "xmlconfig " XMLCONFIG_VERSION " (file version " + XMLConfig::utf8FromWide(latest) + ")";
}

/// "help VERB" asks for what "VERB --help" asks for.
std::vector<std::string> withoutHelpWord(std::vector<std::string> arguments) {
    if (arguments.empty() || arguments[0] != "help") return arguments;
    arguments.erase(arguments.begin());
    arguments.emplace_back("--help");
    return arguments;
}

/// The options every verb has.
void setUpCommon(CLI::App& app, bool& verbose) {
    app.set_help_flag("-h,--help", "Show this help");
    app.set_version_flag("--version", programVersion(), "Show the version");
    app.add_flag("--verbose", verbose, "Tell what the library does");
    app.footer(exitStatuses);
}

class CommandLine {
public:
    CommandLine() : m_app(summary, "xmlconfig") {
        m_app.formatter(helpFormat());             // the verbs inherit it
        m_app.allow_windows_style_options(false);  // "/" begins a path; the verbs inherit it
        setUpCommon(m_app, m_verbose);
        m_app.require_subcommand(1);
        m_app.footer(addressHelp);
        m_requests.reserve(verbs().size());
        for (const Verb& verb : verbs()) {
            CLI::App* const app = m_app.add_subcommand(verb.name, verb.summary)->group("Verbs");
            setUpCommon(*app, m_verbose);
            m_requests.emplace_back();
            Options options(*app);
            verb.setUp(options, m_requests.back());
        }
    }

    int run(const std::vector<std::string>& arguments) {
        if (arguments.size() == 2 && arguments[0] == "--man") return printManual(arguments[1]);
        m_wantsJson = isJsonWanted(arguments);
        if (const std::optional<std::string> broken = brokenWord(arguments)) return refuseBroken(*broken, arguments);
        if (const std::optional<std::string> unknown = unknownVerb(arguments)) return refuseUnknownVerb(*unknown);
        try {
            const std::vector<std::string> words = withEmptyValues(arguments);
            m_app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
            if (!m_emptyFlag.empty()) throw CLI::ValidationError(m_emptyFlag, "nothing follows the =");
        } catch (const CLI::ParseError& error) {
            return answerParseError(error);
        }
        return runVerb();
    }

private:
    /// The first word that is no option; nothing where there is none.
    static std::optional<std::string> firstWord(const std::vector<std::string>& arguments) {
        const auto isWord = [](const std::string& argument) { return argument.empty() || argument[0] != '-'; };
        const auto word = std::find_if(arguments.begin(), arguments.end(), isWord);
        return word == arguments.end() ? std::nullopt : std::optional<std::string>(*word);
    }

    static std::optional<std::string> unknownVerb(const std::vector<std::string>& arguments) {
        const std::optional<std::string> word = firstWord(arguments);
        return word && isVerb(*word) ? std::nullopt : word;
    }

    /// The first argument that is not UTF-8.
    static std::optional<std::string> brokenWord(const std::vector<std::string>& arguments) {
        const auto word = std::find_if_not(arguments.begin(), arguments.end(), isUtf8);
        return word == arguments.end() ? std::nullopt : std::optional<std::string>(*word);
    }

    int refuseBroken(const std::string& broken, const std::vector<std::string>& arguments) const {
        const std::wstring message = L"an argument is not UTF-8: " + XMLConfig::wideFromUtf8(broken);
        const std::optional<std::string> verb = unknownVerb(arguments) ? std::nullopt : firstWord(arguments);
        return refuseUsage(verb.value_or(""), message);
    }

    /// Whether --json stands in a command line that cannot be parsed.
    static bool isJsonWanted(const std::vector<std::string>& arguments) {
        const auto end = std::find(arguments.begin(), arguments.end(), "--");
        return std::find(arguments.begin(), end, "--json") != end;
    }

    /// The arguments with each "--option=" as two words, the second one empty. The parser takes "--option=" for "--option":
    /// it would take the next word for the value, or do what a flag does without a value.
    std::vector<std::string> withEmptyValues(const std::vector<std::string>& arguments) {
        const auto end = std::find(arguments.begin(), arguments.end(), "--");
        const CLI::App* verb = &m_app;
        std::vector<std::string> words;
        for (auto argument = arguments.begin(); argument != end; ++argument) {
            if (verb == &m_app && isVerb(*argument)) verb = m_app.get_subcommand(*argument);
            const CLI::Option* const option = withoutValue(*argument, *verb);
            const bool isFlag = option != nullptr && option->get_items_expected_max() == 0;
            if (isFlag) m_emptyFlag = *argument;
            const bool isSplit = option != nullptr && !isFlag;
            words.push_back(isSplit ? argument->substr(0, argument->size() - 1) : *argument);
            if (isSplit) words.emplace_back();
        }
        words.insert(words.end(), end, arguments.end());
        return words;
    }

    /// The option that such a word names; null where it is none.
    static const CLI::Option* withoutValue(const std::string& word, const CLI::App& verb) {
        const bool isIt = word.compare(0, 2, "--") == 0 && word.find('=') == word.size() - 1;
        return isIt ? verb.get_option_no_throw(word.substr(0, word.size() - 1)) : nullptr;
    }

    static bool isVerb(const std::string& word) {
        const auto isIt = [&](const Verb& verb) { return verb.name == word; };
        return std::any_of(verbs().begin(), verbs().end(), isIt);
    }

    int refuseUnknownVerb(const std::string& word) const {
        std::vector<std::wstring> names;
        for (const Verb& verb : verbs()) names.push_back(XMLConfig::wideFromUtf8(verb.name));
        const std::wstring wide = XMLConfig::wideFromUtf8(word);
        return refuseUsage(word, L"there is no verb \"" + wide + L"\"" + suggestion(wide, names),
                           "'xmlconfig --help' lists the verbs");
    }

    int refuseUsage(const std::string& verb, const std::wstring& message, const std::string& advice = "") const {
        complain(message);
        if (!advice.empty()) complain(advice);
        if (m_wantsJson) print(faultAnswer(verb, {}, {message, L"", WrongUsage}));
        return flushOutput() ? WrongUsage : NotReadable;
    }

    /// "; did you mean "--origin"?" for the first word that no option of the verb is.
    static std::wstring nearestOption(const CLI::App& verb) {
        const std::vector<std::string> words = verb.remaining();
        if (words.empty() || words.back().compare(0, 2, "--") != 0) return L"";
        const std::wstring word = XMLConfig::wideFromUtf8(words.back());
        std::vector<std::wstring> names;
        for (const CLI::Option* option : verb.get_options())
            for (const std::string& name : option->get_lnames()) names.push_back(XMLConfig::wideFromUtf8(name));
        const bool isNear = !suggestion(word.substr(2), names).empty();  // the hyphens make none nearer
        for (std::wstring& name : names) name.insert(0, L"--");
        return isNear ? suggestion(word, names) : L"";
    }

    /// Help and version are no faults; everything else is wrong usage.
    int answerParseError(const CLI::ParseError& error) const {
        if (error.get_exit_code() == 0) {
            m_app.exit(error);
            return flushOutput() ? Done : NotReadable;
        }
        const std::vector<CLI::App*> chosen = m_app.get_subcommands();
        if (chosen.empty() && error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError))
            return refuseUsage("", L"a verb is required", "'xmlconfig --help' lists the verbs");
        const std::string verb = chosen.empty() ? "" : chosen[0]->get_name();
        return refuseUsage(verb, XMLConfig::wideFromUtf8(error.what()) + nearestOption(chosen.empty() ? m_app : *chosen[0]),
                           "see 'xmlconfig " + (verb.empty() ? "" : verb + " ") + "--help'");
    }

    /// Prints a manual page. The build asks for it; no help names it.
    int printManual(const std::string& name) const {
        const bool whole = name == "xmlconfig";
        if (!whole && !isVerb(name)) return refuseUnknownVerb(name);
        const CLI::App& app = whole ? m_app : *m_app.get_subcommand(name);
        const std::string page = manualPage(app, whole ? name : "xmlconfig " + name, "xmlconfig " XMLCONFIG_VERSION);
        print(XMLConfig::wideFromUtf8(page));
        return flushOutput() ? Done : NotReadable;
    }

    int runVerb() const {
        const std::string name = m_app.get_subcommands()[0]->get_name();
        for (std::size_t i = 0; i < verbs().size(); ++i) {
            if (verbs()[i].name != name) continue;
            // The verbs tell in their own words what the library would log.
            XMLConfig::logToStandardError(m_verbose ? XMLConfig::LogLevel::Info : XMLConfig::LogLevel::Off);
            const int status = answered(verbs()[i], m_requests[i]);
            return flushOutput() ? status : NotReadable;
        }
        throw std::logic_error("a verb without a row in the table of verbs");
    }

    static int answered(const Verb& verb, const Request& request) {
        try {
            return verb.run(request);
        } catch (const std::exception& exception) {
            const Fault fault = faultOf(exception);
            complain(fault.message, fault.lines);
            if (request.json) print(faultAnswer(verb.name, request, fault));
            return fault.status;
        }
    }

    CLI::App m_app;
    bool m_verbose = false;
    bool m_wantsJson = false;
    std::string m_emptyFlag;  ///< "--fix=", once the words were looked at
    std::vector<Request> m_requests;
};

}  // namespace

int run(const std::vector<std::string>& arguments) {
    try {
        return CommandLine().run(withoutHelpWord(arguments));
    } catch (const std::exception& exception) {
        complain(std::string(exception.what()));
    }
    return Refused;
}

}  // namespace tool
