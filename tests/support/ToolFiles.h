#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "tests/support/Example.h"
#include "tests/support/TemporaryFolder.h"

/// How the tool writes a file's name into a command that it tells: folders of tests may hold blanks.
inline std::string inCommand(const std::string& file) {
    return file.find(' ') == std::string::npos ? file : "'" + file + "'";
}

/// Tests of the tool on files of their own, whose names it takes in UTF-8.
class ToolFiles : public testing::Test {
protected:
    /// The full path of a file of that name (it need not exist).
    std::string path(const std::string& name) const { return folder.at(XMLConfig::detail::fromUtf8(name)).u8string(); }
    /// Writes a file; its full path.
    std::string fileOf(const std::string& content, const std::string& name = "test.skorrax") const {
        folder.write(XMLConfig::detail::fromUtf8(name), content);
        return path(name);
    }
    /// A copy of the example installation, with `to` where `from` stands first; its full path.
    std::string example(const std::string& from = "", const std::string& to = "") const {
        return fileOf(exampleText(from, to), "dome.skorrax");
    }
    std::string fileOf(ConfigInfo& document, const std::string& name = "made.skorrax") const {
        EXPECT_TRUE(document.save(folder.file(XMLConfig::detail::fromUtf8(name))));
        return path(name);
    }

    TemporaryFolder folder;
};
