#pragma once

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "store/CorvaneException.h"

/// The message of the exception that the call throws, which holds nothing beside it; a failed test when it throws none.
/// Exceptions of other types pass through.
template <typename Exception = CorvaneException, typename Call>
std::wstring messageOf(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.getText(), "");
        EXPECT_EQ(exception.getCode(), -1);
        return exception.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}
