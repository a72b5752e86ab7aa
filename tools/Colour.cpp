#include "tools/Colour.h"

#include <fmt/color.h>
#include <cstdlib>

#include "platform/Terminal.h"
#include "platform/Utf8.h"
#include "tools/Options.h"

namespace tool {

namespace {

/// "" where it is not set.
std::string environment(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
    return value == nullptr ? "" : value;
}

}  // namespace

void setUpColour(Options& options, std::string& wish) {
    options.value("--color", wish, "Colour the output: auto, always or never")
        .valueName("WHEN")
        .oneOf({"auto", "always", "never"});
}

bool isTerminalDumb() { return environment("TERM") == "dumb"; }

bool isColoured(const std::string& wish) {
    if (wish == "always" || wish == "never") return wish == "always";
    if (!environment("NO_COLOR").empty() || isTerminalDumb()) return false;
    return XMLConfig::detail::isOutputATerminal();
}

std::wstring coloured(const std::wstring& text, Tone tone, bool isColoured) {
    if (!isColoured) return text;
    const fmt::terminal_color colour = tone == Tone::Good       ? fmt::terminal_color::green
                                       : tone == Tone::Doubtful ? fmt::terminal_color::yellow
                                                                : fmt::terminal_color::red;
    return XMLConfig::wideFromUtf8(fmt::format(fmt::fg(colour), "{}", XMLConfig::utf8FromWide(text)));
}

}  // namespace tool
