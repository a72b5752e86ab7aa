#pragma once

#include <string>

/// The wide message of the exception of type Exception that the call throws; "nothing was thrown" when it throws none.
/// Exceptions of other types pass through.
template <typename Exception, typename Call>
std::wstring thrownMessage(Call&& call) {
    try {
        call();
    } catch (const Exception& exception) {
        return exception.getMessage();
    }
    return L"nothing was thrown";
}
