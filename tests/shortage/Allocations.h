#pragma once

#include <cstddef>

/// This program's own operator new, and its memory for the XML library: they count, and fail when they are told to.
namespace allocations {

/// Bytes that were taken and not given back, those of the XML library apart.
std::size_t liveBytes();
std::size_t liveBytesOfXml();
/// To be called before anything else wants the XML library.
void startXmlLibrary();
/// How many were made since the last call of `failAt` or `restart`.
std::size_t count();
void restart();
/// From now on the allocation of that number, counted from 1, fails.
void failAt(std::size_t number);
void failNone();
/// Whether one has failed since the last call of `failAt`.
bool hasFailed();

}  // namespace allocations
