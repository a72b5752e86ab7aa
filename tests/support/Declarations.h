#pragma once

#include <string>
#include <vector>

/// A function that a header declares, and what the header says of it.
struct Declaration {
    std::string owner;    ///< its class, with the classes around it: "Box::Lid"; "" for a function of a namespace
    std::string name;     ///< "getWidth", "~Box", "operator=="
    std::string text;     ///< without comments, in one line: "virtual double getWidth() const = 0"
    std::string comment;  ///< "///" lines above it and "///<" beside it, as one line
    bool isPublic = true;
};

/// The functions that a header declares, in its order; those too that it defines. It knows as much of the language as the
/// headers of this library use.
std::vector<Declaration> declarationsOf(const std::string& header);

/// The public headers of the library, "base/BaseConfig.h", ..., as cmake/PublicHeaders.cmake lists them.
std::vector<std::string> publicHeaders();
