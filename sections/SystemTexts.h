#pragma once

#include <string>
#include <vector>

#include "sections/SystemConfig.h"

/// Text forms that only the "System" section knows.
namespace XMLConfig::detail {

/// "true, serial, COM3, 9600, 1, 2, 3"; what stands before the other power ports is cut at 127 characters.
std::wstring blackBoxText(const BlackBoxInfo& info);
/// The pieces that a black box is read from, between commas.
std::vector<std::wstring> blackBoxPieces(const std::wstring& text);
/// A default BlackBoxInfo for fewer than five pieces; pieces that are no numbers read 0.
BlackBoxInfo blackBoxFromText(const std::wstring& text);

/// One line an association, "    1, 4\n".
std::wstring relayAssociationsText(const std::vector<ACTRelayAssociation>& associations);
/// A trailing number without a partner is ignored.
std::vector<ACTRelayAssociation> relayAssociationsFromText(const std::wstring& text);

}  // namespace XMLConfig::detail
