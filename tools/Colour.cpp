#include "tools/Colour.h"

#include <fmt/color.h>
#include <CLI/App.hpp>
#include <cstdlib>

#include "platform/Terminal.h"
#include "platform/Utf8.h"

namespace tool {

void setUpColour(CLI::App& app, std::string& wish) {
    app.add_option("--color", wish, "Colour the output: auto, always or never")
        ->check(CLI::IsMember({"auto", "always", "never"}));
}

bool isColoured(const std::string& wish) {
    if (wish == "always" || wish == "never") return wish == "always";
    const char* const refused = std::getenv("NO_COLOR");  // NOLINT(concurrency-mt-unsafe): one thread
    return (refused == nullptr || *refused == '\0') && XMLConfig::detail::isOutputATerminal();
}

std::wstring coloured(const std::wstring& text, Tone tone, bool isColoured) {
    if (!isColoured) return text;
    const fmt::terminal_color colour = tone == Tone::Good       ? fmt::terminal_color::green
                                       : tone == Tone::Doubtful ? fmt::terminal_color::yellow
                                                                : fmt::terminal_color::red;
    return XMLConfig::wideFromUtf8(fmt::format(fmt::fg(colour), "{}", XMLConfig::utf8FromWide(text)));
}

}  // namespace tool
