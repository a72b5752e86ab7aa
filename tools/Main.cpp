#include <string>
#include <vector>

#include "platform/ProgramArguments.h"
#include "platform/Terminal.h"
#include "platform/Utf8.h"
#include "tools/CommandLine.h"
#include "tools/Output.h"
#include "tools/Verb.h"

int main(int count, char** words) {
    XMLConfig::detail::prepareStandardStreams();
    const std::vector<std::string> arguments = XMLConfig::utf8Arguments(count, words);
    for (const std::string& argument : arguments) {
        if (XMLConfig::utf8FromWide(XMLConfig::wideFromUtf8(argument)) == argument) continue;
        tool::complain("an argument is not UTF-8: " + argument);
        return tool::WrongUsage;
    }
    return tool::run(arguments);
}
