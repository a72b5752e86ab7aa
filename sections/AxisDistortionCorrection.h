#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

/// Correction tables of a pan-tilt axis: pairs of a measured and a corrected angle, in degrees.
namespace AxisDistortionCorrection {

XMLCONFIG_API double minValueInDegreesPitch();  ///< -90
XMLCONFIG_API double maxValueInDegreesPitch();  ///< 90
XMLCONFIG_API double minValueInDegreesYaw();    ///< -180
XMLCONFIG_API double maxValueInDegreesYaw();    ///< 180

/// Replaces `out` by one line a pair, its two numbers separated by a tab, without a line feed after the last line.
/// `formatFlags` (of std::ios_base) are added to a stream's default flags; the locale has no part in it.
XMLCONFIG_API void serializeTableToDelimitedString(std::string& out, const std::vector<std::pair<double, double>>& table,
                                                   int formatFlags, long long precision);

/// Appends the pairs of a text whose numbers are separated by blanks, commas, line feeds or tabs in any mix. A final
/// number without a partner is ignored, what is no number reads 0.0, and text that is not UTF-8 holds no pairs.
XMLCONFIG_API void deserializeTableFromDelimitedString(std::vector<std::pair<double, double>>& table,
                                                       const std::string& text);

/// Appends the pairs of `in` to `out`, clamped to the limits, sorts `out`, and completes it so that it begins at
/// `minValue` and ends at `maxValue`. Returns whether both columns of the result strictly increase; the result stays in
/// `out` in either case. An empty `in` leaves `out` alone and gives true. `out` must be another vector than `in`.
XMLCONFIG_API bool cleanData(std::vector<std::pair<double, double>>& out, const std::vector<std::pair<double, double>>& in,
                             double minValue, double maxValue);

}  // namespace AxisDistortionCorrection
