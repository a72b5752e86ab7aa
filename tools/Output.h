#pragma once

#include <stdexcept>
#include <string>

/// What the tool says, in UTF-8 whatever the locale.
namespace tool {

/// A refusal in the tool's own words.
class Refusal : public std::runtime_error {
public:
    /// The message is one line; what belongs below it are the lines, without a line feed at their end.
    explicit Refusal(const std::wstring& message, std::wstring lines = L"");
    [[nodiscard]] const std::wstring& lines() const { return m_lines; }

private:
    std::wstring m_lines;
};

/// Operands that no option parser can judge: exit status 2.
class WrongOperands : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

void print(const std::wstring& text);         ///< to standard output, lines that no text of a file can disturb
void printExactly(const std::wstring& text);  ///< to standard output, as it stands, for programs
void showProgress(const std::string& text);   ///< to standard error, as it stands, at once
/// "xmlconfig: " and the message, a line of standard error; below it the lines, where there are any.
void complain(const std::wstring& message, const std::wstring& lines = L"");
void complain(const std::string& message);
/// Remembers a file that was written, for the complaint that the answer cannot be written. From here on the program goes on
/// to its end when whoever reads its output stops reading.
void noteWritten(const std::string& file);
/// Hands the output over; false when it could not be written, with a complaint that says which files are written all the
/// same.
bool flushOutput();

}  // namespace tool
