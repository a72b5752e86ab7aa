#pragma once

#include <string>

/// Colours on a terminal. They never say what the words do not.
namespace tool {

class Options;

/// How a text is meant.
enum class Tone { Good, Doubtful, Bad };

/// Adds --color to a verb.
void setUpColour(Options& options, std::string& wish);
/// Whether output is to be coloured: as wished ("always", "never"), else on a terminal that knows colours, where
/// NO_COLOR is not set.
bool isColoured(const std::string& wish);
/// Whether the terminal names itself one that shows escape sequences as they are.
bool isTerminalDumb();
/// The text between escape sequences, or as it is.
std::wstring coloured(const std::wstring& text, Tone tone, bool isColoured);

}  // namespace tool
