#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

/// Comparing a result with a file that holds what it must be.

/// The lines that must go ("-") and come ("+") to turn one text into the other, with three lines of context; empty where
/// the texts are the same.
std::string unifiedDiff(const std::string& expected, const std::string& actual, const std::string& name);

/// Success where the file holds exactly this text; otherwise a failure that shows the difference. With
/// XMLCONFIG_UPDATE_GOLDEN=1 in the environment the file is written instead, to be looked through before it is kept.
testing::AssertionResult matchesGolden(const std::filesystem::path& file, const std::string& actual);
