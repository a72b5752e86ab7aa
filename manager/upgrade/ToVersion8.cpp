#include "base/BaseConfig.h"
#include "manager/upgrade/StepTools.h"
#include "manager/upgrade/Steps.h"
#include "sections/GeometryConfig.h"
#include "sections/TargetLocatorConfig.h"

// Version 8.0 names the solver that fits the mappers and the unit in which overlaps are shown.
namespace XMLConfig::detail {

void toVersion8(ConfigInfo& document) {
    constexpr int polynomialMapper = 1;  // stored: do not change
    GeometryConfig(&document, {})
        .setFitSolver(GeometryConfig::mapperTypeToGeoConfigFitSolver(static_cast<MapperType>(polynomialMapper)));
    TargetLocatorConfig(&document, {}).setOverlapDisplayUnit(BaseConfig::UNIT_PERCENT());
}

}  // namespace XMLConfig::detail
