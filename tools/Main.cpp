#include <string>
#include <vector>

#include "platform/Utf8.h"
#include "tools/CommandLine.h"
#include "tools/Output.h"
#include "tools/Verb.h"

#ifdef _WIN32

int wmain(int count, wchar_t** words) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(XMLConfig::utf8FromWide(words[i]));
    return tool::run(arguments);
}

#else

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + (count > 0 ? 1 : 0), words + count);
    for (const std::string& argument : arguments) {
        if (XMLConfig::utf8FromWide(XMLConfig::wideFromUtf8(argument)) == argument) continue;
        tool::complain("an argument is not UTF-8: " + argument);
        return tool::WrongUsage;
    }
    return tool::run(arguments);
}

#endif
