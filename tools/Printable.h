#pragma once

#include <string>

/// Texts of files and of the command line as output can hold them: what would begin a line, move the cursor, give a terminal
/// an order or turn the direction of writing is written as \n, \t, \r or \u009b. JSON does without: it has escapes of its
/// own.
namespace tool {

/// For people: every such character is written out, so that the text is one line. A backslash stays, so that the paths of
/// Windows can be read; who needs the exact text asks for JSON.
std::wstring printable(const std::wstring& text);
/// The same for a text of several lines: their ends and the tabs stay.
std::wstring printableText(const std::wstring& text);
/// The same for lines in which the tool itself has coloured something: its colours stay, too.
std::wstring printableLines(const std::wstring& text);

/// As one word of a command for a shell: between quotes, or as it is where none are needed. What no line can hold is a call
/// of printf in it, "$(printf 'a\nb')", which gives back all but line feeds at the end; on Windows it stays between quotes.
std::wstring shellWord(const std::wstring& text);
/// The name of a file as such a word, also of one that begins like an option.
std::wstring fileWord(const std::wstring& file);
/// As shellWord, but always in quotes.
std::wstring shellQuoted(const std::wstring& text);

/// As printable, with each backslash doubled, so that programs can read it back.
std::wstring escaped(const std::wstring& text);
/// The text that `escaped` made such a line of.
std::wstring unescaped(const std::wstring& line);

/// Whether bytes of a file or of the command line are UTF-8.
bool isUtf8(const std::string& bytes);

}  // namespace tool
