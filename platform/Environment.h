#pragma once

#include <optional>
#include <string>

namespace XMLConfig::detail {

/// The value of a variable of this process's environment; nothing when it is not set or longer than 256 characters.
std::optional<std::wstring> environmentVariable(const std::wstring& name);
/// Sets a variable in this process's environment. Not safe while another thread reads the environment.
void setEnvironmentVariable(const std::wstring& name, const std::wstring& value);
/// The user's folder for temporary files, without a trailing separator (TMPDIR, else /tmp, on POSIX systems).
std::wstring temporaryFolder();
/// The folder that relative file names are opened in; empty when it cannot be told.
std::wstring currentFolder();
/// This process's number.
long processId();

}  // namespace XMLConfig::detail
