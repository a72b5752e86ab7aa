#include "tools/ManualPage.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>

#include "tools/HelpFormat.h"

namespace tool {
namespace {

const std::string exitLabel = "Exit status: ";

/// A character in the form in which groff shows it as it is; groff would replace some by typographic ones.
std::string escaped(char character) {
    switch (character) {
        case '\\':
            return "\\(rs";
        case '-':
            return "\\-";
        case '\'':
            return "\\(aq";
        case '^':
            return "\\(ha";
        case '~':
            return "\\(ti";
        case '`':
            return "\\(ga";
        default:
            return std::string(1, character);
    }
}

/// Text that holds no request of groff; an empty line becomes a paragraph.
std::string escaped(const std::string& text) {
    std::string out;
    bool atStart = true;
    for (const char character : text) {
        if (atStart && character == '.') out += "\\&";
        if (atStart && character == '\n' && !out.empty()) out += ".PP";
        out += escaped(character);
        atStart = character == '\n';
    }
    return out;
}

std::string bold(const std::string& text) { return "\\fB" + escaped(text) + "\\fR"; }

std::string section(const std::string& title, const std::string& body) {
    return body.empty() ? "" : ".SH " + title + "\n" + body + "\n";
}

std::string trimmed(std::string text) { return CLI::detail::trim(text); }

std::string pageName(std::string command) {
    std::replace(command.begin(), command.end(), ' ', '-');
    return command;
}

std::string synopsis(const CLI::App& app, const std::string& command) {
    const std::string usage = trimmed(helpFormat()->make_usage(&app, command));
    return escaped(usage.substr(usage.find(command)));
}

std::string entry(const std::string& name, const std::string& rest, const std::string& description) {
    return ".TP\n" + bold(name) + escaped(rest) + "\n" + escaped(description) + "\n";
}

/// The operands, or else the options.
std::string entries(const CLI::App& app, bool operands) {
    const std::shared_ptr<CLI::Formatter> formatter = helpFormat();
    std::string out;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty() || option->get_positional() != operands) continue;
        out += entry(formatter->make_option_name(option, operands), formatter->make_option_opts(option),
                     option->get_description());
    }
    return trimmed(out);
}

std::string verbEntries(const CLI::App& app) {
    std::string out;
    for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; }))
        out += entry(verb->get_name(), "", verb->get_description());
    return trimmed(out);
}

}  // namespace

std::string manualPage(const CLI::App& app, const std::string& command, const std::string& version) {
    const std::string footer = app.get_footer();
    const std::size_t label = std::min(footer.find(exitLabel), footer.size());
    const std::size_t end = std::min(footer.find("\n\n", label), footer.size());
    const std::string statuses = footer.substr(label, end - label);
    const std::string name = escaped(pageName(command));
    return ".TH " + name + " 1 \"\" \"" + escaped(version) + "\"\n" +
           section("NAME", name + " \\- " + escaped(app.get_description())) + section("SYNOPSIS", synopsis(app, command)) +
           section("DESCRIPTION", escaped(trimmed(footer.substr(0, label) + footer.substr(end)))) +
           section("OPERANDS", entries(app, true)) + section("OPTIONS", entries(app, false)) +
           section("VERBS", verbEntries(app)) +
           section("EXIT STATUS", escaped(statuses.substr(std::min(exitLabel.size(), statuses.size()))));
}

}  // namespace tool
