#pragma once

#include <exception>
#include <string>

#include "tools/Verb.h"

namespace tool {

/// What a verb that ends with this exception says and ends with.
struct Fault {
    std::wstring message;
    std::wstring lines;  ///< below it
    ExitStatus status;
};
Fault faultOf(const std::exception& exception);

/// The answer of a verb that was asked for JSON and cannot give it: what is wrong, in one line. "" for no verb.
std::wstring faultAnswer(const std::string& verb, const Request& request, const Fault& fault);

}  // namespace tool
