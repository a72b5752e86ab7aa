#pragma once

#include <string>

/// Files that play a projector on a serial line.
///
/// Each line is a query, a tab and one line of the reply. A query on several lines is answered by all of them, in order; a
/// query that no line begins with gets no answer.
namespace XMLConfig::detail {

/// Writes twelve devices of each of two projector families into the folder "ULVD" below the temporary folder, over those
/// of an earlier run, and publishes the folder in the environment as "VIRTUAL_DEVICE_PATH". Throws CorvaneException where a
/// file cannot be written.
void makeFakeProjectors();

}  // namespace XMLConfig::detail
