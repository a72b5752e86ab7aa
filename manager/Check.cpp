#include "manager/Check.h"

#include "manager/check/Findings.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/TextForms.h"

namespace XMLConfig {
namespace {

using detail::Findings;

struct Group {
    const wchar_t* beginning;  // of its rules' IDs
    void (*check)(Findings& findings);
};
constexpr Group groups[] = {{L"XC1", detail::checkForm},    {L"XC2", detail::checkIdentity}, {L"XC3", detail::checkChannels},
                            {L"XC4", detail::checkPicture}, {L"XC5", detail::checkScreen},   {L"XC6", detail::checkCameras},
                            {L"XC7", detail::checkNetwork}, {L"XC9", detail::checkEffect}};

ElementView versionElement(const ConfigInfo& document) { return rootElement(document).child(detail::versionElement); }

bool isNewer(const ConfigInfo& document) {
    return versionElement(document) && document.getVersion() > ConfigInfoFactory::getLatestFileVersionNumber();
}

void addNewer(Findings& findings, const ConfigInfo& document) {
    findings.add(L"XC102", Severity::Error, {versionElement(document), detail::versionElement, L""},
                 L"is of file version " + detail::versionText(document.getVersion()) + L"; this program knows " +
                     detail::versionText(ConfigInfoFactory::getLatestFileVersionNumber()));
}

}  // namespace

const wchar_t* nameOf(Severity severity) {
    if (severity == Severity::Error) return L"error";
    return severity == Severity::Warning ? L"warning" : L"note";
}

const wchar_t* nameOf(MendSafety safety) {
    if (safety == MendSafety::None) return L"none";
    return safety == MendSafety::Safe ? L"safe" : L"asked";
}

std::vector<Finding> check(const ConfigInfo& document, const CheckOptions& options) {
    Findings findings(document, options);
    if (isNewer(document)) {
        addNewer(findings, document);
        return findings.inOrder();
    }
    for (const Group& group : groups)
        if (findings.wants(group.beginning)) group.check(findings);
    findings.accept();
    return findings.inOrder();
}

std::vector<Finding> check(const ConfigInfo& document) { return check(document, CheckOptions()); }

}  // namespace XMLConfig
