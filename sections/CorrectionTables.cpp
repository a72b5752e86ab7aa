#include "sections/CorrectionTables.h"

#include <ios>

#include "platform/Text.h"
#include "sections/AxisDistortionCorrection.h"

namespace XMLConfig::detail {

std::wstring correctionTableText(const CorrectionTable& table) {
    std::string text;
    AxisDistortionCorrection::serializeTableToDelimitedString(text, table, static_cast<int>(std::ios_base::scientific), 15);
    return fromUtf8(text);
}

CorrectionTable correctionTableFromText(const std::wstring& text) {
    CorrectionTable table;
    AxisDistortionCorrection::deserializeTableFromDelimitedString(table, toUtf8(text));
    return table;
}

}  // namespace XMLConfig::detail
