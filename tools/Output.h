#pragma once

#include <stdexcept>
#include <string>

/// What the tool says, in UTF-8 whatever the locale.
namespace tool {

/// A refusal in the tool's own words.
class Refusal : public std::runtime_error {
public:
    explicit Refusal(const std::wstring& message);
};

/// Operands that no option parser can judge: exit status 2.
class WrongOperands : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

void print(const std::wstring& text);        ///< to standard output, as it stands
void showProgress(const std::string& text);  ///< to standard error, as it stands, at once
void complain(const std::string& message);   ///< "xmlconfig: " and the message, a line of standard error
void complain(const std::wstring& message);
/// Hands the output over; false when it could not be written.
bool flushOutput();

}  // namespace tool
