#include "platform/ProgramArguments.h"

#include "platform/Utf8.h"
#include "platform/windows/System.h"

#include <shellapi.h>

namespace XMLConfig {

std::vector<std::string> utf8Arguments(int /*count*/, char** /*words*/) {
    int count = 0;
    const std::unique_ptr<wchar_t*, detail::LocalMemory> words(::CommandLineToArgvW(::GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(utf8FromWide(words.get()[i]));
    return arguments;
}

}  // namespace XMLConfig
