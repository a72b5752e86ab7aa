#include <CLI/App.hpp>

#include "manager/Check.h"
#include "tools/Configuration.h"
#include "tools/Output.h"
#include "tools/Verb.h"

namespace tool {

void setUpCheck(CLI::App& app, Request& request) { app.add_option("FILE", request.file, "The file to check")->required(); }

ExitStatus runCheck(const Request& request) {
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    requireLatestVersion(*document, request.file);
    const std::vector<XMLConfig::Finding> findings = XMLConfig::check(*document);
    for (const XMLConfig::Finding& finding : findings)
        print(L"warning: " + finding.address + L": " + finding.message + L"\n");
    return findings.empty() ? Done : Refused;
}

}  // namespace tool
