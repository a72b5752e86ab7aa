#pragma once

/// How much of one kind a text may hold. What goes beyond is refused where it is parsed, and where it would be stored.
namespace XMLConfig::detail {

/// How deep elements may be nested, the root counted.
inline constexpr int maximumDepth = 1000;
/// How many attributes an element may have, and how many namespaces may be declared in it and the elements around it. They
/// are limited because the XML library needs longer for each one the more of them there are.
inline constexpr int maximumAttributes = 1000;
inline constexpr int maximumNamespaces = 1000;
/// How many different names the elements of a file may have. The library keeps a record for each, and so does the index of
/// the sections.
inline constexpr unsigned int maximumNames = 1000000;

}  // namespace XMLConfig::detail
