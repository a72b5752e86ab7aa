#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/UpgradeChain.h"

// Version 8.0 names the solver that fits the mappers and the unit in which overlaps are shown.
namespace XMLConfig::detail {

void toVersion8(StepDocument& document) {
    constexpr int polynomialMapper = 1;
    StepSection(document, L"Geometry").setInteger(L"Fit_Solver", polynomialMapper);
    StepSection(document, L"TargetLocator").setText(L"Overlap_Display_Unit", L"Percent");
}

}  // namespace XMLConfig::detail
