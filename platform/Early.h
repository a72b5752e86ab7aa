#pragma once

/// Included by the sources whose static objects other static objects may use: an application may make a configuration
/// before main, and in a program that holds the library its own objects are made first otherwise. Objects marked
/// XMLCONFIG_EARLY are made before those of every program and destroyed after them; they must not need each other.
#if defined(_MSC_VER)
#pragma warning(suppress : 4073)
#pragma init_seg(lib)  // for the whole source
#define XMLCONFIG_EARLY
#else
#define XMLCONFIG_EARLY [[gnu::init_priority(101)]]
#endif
