#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Export.h"

/// Correction tables of a pan-tilt axis: pairs of a measured and a corrected angle, both in degrees. TargetLocatorConfig
/// stores such tables. Nothing here throws, except std::bad_alloc when memory runs out.
namespace AxisDistortionCorrection {

XMLCONFIG_API double minValueInDegreesPitch();  ///< -90 degrees
XMLCONFIG_API double maxValueInDegreesPitch();  ///< 90 degrees
XMLCONFIG_API double minValueInDegreesYaw();    ///< -180 degrees
XMLCONFIG_API double maxValueInDegreesYaw();    ///< 180 degrees

/// Replaces `out` by one line a pair, its two numbers separated by a tab, without a line feed after the last line.
/// `formatFlags` are flags of std::ios_base, such as `fixed`, that are added to a stream's default flags, and `precision` is
/// that of the stream. The numbers are written without regard to the locale.
XMLCONFIG_API void serializeTableToDelimitedString(std::string& out, const std::vector<std::pair<double, double>>& table,
                                                   int formatFlags, long long precision);

/// Appends the pairs of a text to `table`. Its numbers are separated by blanks, commas, line feeds or tabs in any mix. A
/// final number without a partner is ignored, what is no number reads 0.0, and text that is not UTF-8 holds no pairs.
XMLCONFIG_API void deserializeTableFromDelimitedString(std::vector<std::pair<double, double>>& table,
                                                       const std::string& text);

/// Makes a table that can be used. Appends the pairs of `in` to `out`, each angle held within the limits (degrees), sorts
/// `out`, and completes it: unless its first angle is within 0.0001 degrees of `minValue`, a pair of `minValue` twice comes
/// first, and unless its last angle is within 0.0001 degrees of `maxValue`, a pair of `maxValue` twice comes last. Returns
/// whether both columns of the result strictly increase; the result stays in `out` in either case. An empty `in` leaves
/// `out` alone and gives true. `out` must be another vector than `in`.
XMLCONFIG_API bool cleanData(std::vector<std::pair<double, double>>& out, const std::vector<std::pair<double, double>>& in,
                             double minValue, double maxValue);

}  // namespace AxisDistortionCorrection
