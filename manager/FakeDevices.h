#pragma once

#include <string>

/// Files that play a projector on a serial line.
///
/// Each line is a query, a tab and one line of the reply. A query on several lines is answered by all of them, in order; a
/// query that no line begins with gets no answer.
namespace XMLConfig::detail {

/// Writes twelve devices of each of two projector families into the folder "ULVD" below the temporary folder, over those
/// of an earlier run, and publishes the folder in the environment as "VIRTUAL_DEVICE_PATH". The folder is for this user
/// alone: "ULVD-<user>" where "ULVD" is another user's, a link or open to others. Throws CorvaneException where the folder
/// cannot be made or a file not be written.
void makeFakeProjectors();

}  // namespace XMLConfig::detail
