#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// What a verb takes, told to the parser of the command line without its header, which costs each source that includes it
/// seconds to compile.
namespace tool {

/// An operand or option that was named, and what else holds for it. Valid while the command line is.
class Option {
public:
    explicit Option(CLI::Option& option);

    Option& required();
    Option& valueName(const std::string& name);  ///< as the help calls the value; "[=NAME]" of what may be given alone
    Option& separatedBy(char separator);         ///< several values in one word, and none in the words after it
    Option& between(unsigned least, unsigned most);
    Option& oneOf(const std::vector<std::string>& words);
    Option& notEmpty(const std::string& fault);  ///< an empty text is refused with this message
    Option& excludes(const Option& other);

private:
    CLI::Option* m_option;
};

/// What an empty text in the place of a file's name, as an unset variable gives it, is refused with.
inline const char* const emptyName = "the file name is empty";

/// Names what a verb takes. The parser writes to the variables, which live as long as the command line.
class Options {
public:
    explicit Options(CLI::App& app);

    /// What is either given or not.
    Option flag(const std::string& names, bool& isGiven, const std::string& meaning);

    /// What is given alone, which makes it "true", or as --name=VALUE.
    Option flag(const std::string& names, std::string& value, const std::string& meaning);

    /// What has a value: an option where the names begin with "-", else an operand.
    Option value(const std::string& names, std::string& value, const std::string& meaning);
    Option value(const std::string& names, std::optional<std::string>& value, const std::string& meaning);
    Option value(const std::string& names, std::optional<double>& value, const std::string& meaning);
    Option value(const std::string& names, unsigned& value, const std::string& meaning);
    Option value(const std::string& names, std::vector<std::string>& values, const std::string& meaning);

    /// What the help says below the options.
    void footer(const std::string& text);

private:
    CLI::App& m_app;
};

}  // namespace tool
