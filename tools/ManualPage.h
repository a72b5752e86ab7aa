#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tool {

/// The manual page of a verb, or of the whole tool, as man reads it: what its --help says. `command` is how it is called,
/// such as "xmlconfig set"; `version` stands at the foot.
std::string manualPage(const CLI::App& app, const std::string& command, const std::string& version);

}  // namespace tool
