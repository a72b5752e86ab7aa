#include "sections/SystemTexts.h"

#include <algorithm>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

namespace XMLConfig::detail {
namespace {

constexpr std::size_t longestFormatted = 127;  // stored: do not change

std::wstring cut(std::wstring text) {
    if (text.size() <= longestFormatted) return text;
    text.resize(longestFormatted);
    const bool halfPair = text.back() >= 0xD800 && text.back() <= 0xDBFF;
    if (halfPair) text.pop_back();  // the document refuses a lone surrogate
    return text;
}

std::wstring withoutSpaces(std::wstring text) {
    text.erase(std::remove(text.begin(), text.end(), L' '), text.end());
    return text;
}

}  // namespace

std::wstring blackBoxText(const BlackBoxInfo& info) {
    std::wstring text = cut(textOf(info.getEnabled()) + L", " + info.getProtocol() + L", " + info.getCommAddress() + L", " +
                            formatInteger(info.getCommPort()) + L", " + formatInteger(info.getPowerPort()));
    for (const std::int32_t port : info.getOtherPowerPorts()) text += L", " + formatInteger(port);
    return text;
}

std::vector<std::wstring> blackBoxPieces(const std::wstring& text) {
    std::vector<std::wstring> pieces;
    ConfigInfo::createTokenVector(pieces, text, L",");
    return pieces;
}

BlackBoxInfo blackBoxFromText(const std::wstring& text) {
    const std::vector<std::wstring> pieces = blackBoxPieces(text);
    if (pieces.size() < 5) return {};
    // The application reads this text by a rule of its own: of the words for truth values it knows only "true".
    BlackBoxInfo info(equalIgnoringCase(pieces[0], L"true"), withoutSpaces(pieces[1]), withoutSpaces(pieces[2]),
                      leadingInteger(pieces[3]), leadingInteger(pieces[4]));
    std::vector<std::int32_t> otherPorts;
    for (std::size_t i = 5; i < pieces.size(); ++i) otherPorts.push_back(leadingInteger(pieces[i]));
    info.setOtherPowerPorts(otherPorts);
    return info;
}

std::wstring relayAssociationsText(const std::vector<ACTRelayAssociation>& associations) {
    std::wstring text;
    for (const ACTRelayAssociation& association : associations)
        text += L"    " + formatInteger(association.first) + L", " + formatInteger(association.second) + L"\n";
    return text;
}

std::vector<ACTRelayAssociation> relayAssociationsFromText(const std::wstring& text) {
    const std::vector<std::wstring> pieces = tokensOf(text);
    std::vector<ACTRelayAssociation> associations;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2)
        associations.push_back({leadingInteger(pieces[i]), leadingInteger(pieces[i + 1])});
    return associations;
}

}  // namespace XMLConfig::detail
