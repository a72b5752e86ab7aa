#pragma once

/// XMLCONFIG_API marks what the shared library exports; everything else is hidden.
/// The library's own build defines XMLCONFIG_BUILDING, a static build and its users XMLCONFIG_STATIC.
#if defined(XMLCONFIG_STATIC)
#define XMLCONFIG_API
#elif defined(_WIN32)
#if defined(XMLCONFIG_BUILDING)
#define XMLCONFIG_API __declspec(dllexport)
#else
#define XMLCONFIG_API __declspec(dllimport)
#endif
#else
#define XMLCONFIG_API __attribute__((visibility("default")))
#endif
