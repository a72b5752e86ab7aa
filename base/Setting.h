#pragma once

#include <optional>
#include <string>

namespace XMLConfig {

/// One setting as the catalogue lists it: where it is stored, what it holds and what it starts with.
struct Setting {
    std::wstring section;                     ///< the tag of its section
    std::wstring key;                         ///< parts joined by "|"; "%d" or "%s" stands for a number or an identifier
    std::wstring type;                        ///< "bool", "int", "double", "text", ... or the name of a special text form
    std::wstring defaultText;                 ///< stored form of what a missing item reads as
    std::optional<std::wstring> initialText;  ///< stored form of what a new section holds; nothing where it is not written
    std::wstring unit;                        ///< "radians", "pixels", ...; empty for a pure number or text
    std::wstring inheritsFrom;  ///< the section whose item of the same key serves when this one is missing; or empty
    bool readOnly = false;      ///< whether the accessor only reads it
    std::wstring meaning;       ///< one line for people
};

}  // namespace XMLConfig
