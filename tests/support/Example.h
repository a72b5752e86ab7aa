#pragma once

#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

/// The file of the example installation, as the tests find it from the folder they run in.
inline const char* const exampleFile = "examples/dome.skorrax";

/// Replaces what `from` names where it stands first. A text that does not hold it fails the test.
inline void replaceOnce(std::string& text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text.replace(at, from.size(), to);
}

/// The text with every `from` replaced. A text that does not hold it fails the test.
inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
    EXPECT_NE(text.find(from), std::string::npos) << from;
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The content of that file, with `to` where `from` stands first.
inline std::string exampleText(const std::string& from = "", const std::string& to = "") {
    std::string text = TemporaryFolder::readFile(exampleFile);
    replaceOnce(text, from, to);
    return text;
}
