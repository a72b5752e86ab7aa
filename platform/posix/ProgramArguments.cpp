#include "platform/ProgramArguments.h"

namespace XMLConfig {

std::vector<std::string> utf8Arguments(int count, char** words) {
    return std::vector<std::string>(words + (count > 0 ? 1 : 0), words + count);
}

}  // namespace XMLConfig
