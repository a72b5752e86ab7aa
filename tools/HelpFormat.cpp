#include "tools/HelpFormat.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <sstream>

namespace tool {
namespace {

constexpr std::size_t lineWidth = 80;
constexpr std::size_t nameWidth = 26;

/// The words of a paragraph in lines of at most that width.
std::string wrapped(const std::string& paragraph, std::size_t width) {
    std::istringstream words(paragraph);
    std::string text;
    std::size_t column = 0;
    for (std::string word; words >> word;) {
        const bool isInLine = column > 0 && column + 1 + word.size() <= width;
        if (column > 0) text += isInLine ? ' ' : '\n';
        column = isInLine ? column + 1 + word.size() : word.size();
        text += word;
    }
    return text;
}

std::string besideNames(const std::string& text) { return wrapped(text, lineWidth - nameWidth); }

class HelpFormat : public CLI::Formatter {
public:
    HelpFormat();

    std::string make_description(const CLI::App* app) const override;
    std::string make_footer(const CLI::App* app) const override;
    std::string make_subcommand(const CLI::App* verb) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    std::string make_option_usage(const CLI::Option* operand) const override;
};

HelpFormat::HelpFormat() {
    column_width(nameWidth);
    label("Positionals", "Operands");
    label("SUBCOMMAND", "VERB");
}

std::string HelpFormat::make_description(const CLI::App* app) const { return app->get_description() + "\n\n"; }

std::string HelpFormat::make_footer(const CLI::App* app) const {
    const std::string footer = app->get_footer();
    std::string text;
    for (std::size_t begin = 0; begin < footer.size();) {
        const std::size_t end = std::min(footer.find("\n\n", begin), footer.size());
        text += (text.empty() ? "" : "\n") + wrapped(footer.substr(begin, end - begin), lineWidth) + "\n";
        begin = end + 2;
    }
    return text;
}

std::string HelpFormat::make_subcommand(const CLI::App* verb) const {
    std::ostringstream out;
    CLI::detail::format_help(out, verb->get_name(), besideNames(verb->get_description()), nameWidth);
    return out.str();
}

std::string HelpFormat::make_option_opts(const CLI::Option* option) const {
    return option->get_positional() ? "" : option->get_option_text();
}

std::string HelpFormat::make_option_desc(const CLI::Option* option) const { return besideNames(option->get_description()); }

std::string HelpFormat::make_option_usage(const CLI::Option* operand) const {
    const std::string name = make_option_name(operand, true);
    const bool isOneForEach = name.find(' ') != std::string::npos;  // "OLD NEW"
    return isOneForEach ? name : CLI::Formatter::make_option_usage(operand);
}

}  // namespace

std::shared_ptr<CLI::Formatter> helpFormat() { return std::make_shared<HelpFormat>(); }

}  // namespace tool
