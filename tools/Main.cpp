#include "platform/ProgramArguments.h"
#include "platform/Terminal.h"
#include "tools/CommandLine.h"

int main(int count, char** words) {
    XMLConfig::detail::prepareStandardStreams();
    return tool::run(XMLConfig::utf8Arguments(count, words));
}
