#pragma once

#include <memory>

namespace CLI {
class Formatter;
}

namespace tool {

/// How the help and the manual pages show a verb: operands by their names, each option with the name of its value, and all
/// text in lines of eighty columns.
std::shared_ptr<CLI::Formatter> helpFormat();

}  // namespace tool
