#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Setting.h"

/// A section that has a table of settings, as the sources of sections/ have it.
struct TableSource {
    std::string table;     ///< header of the table without ".h": "sections/GeometryItems"
    std::string accessor;  ///< the class whose comment names the table, "GeometryConfig"; "" where none does
    std::string section;   ///< "Geometry"
};
std::vector<TableSource> tableSources();

/// The settings that each getter of an accessor reads, by "GeometryConfig::getBoxSize"; getters that read none are left out.
std::map<std::string, std::vector<XMLConfig::Setting>> describedGetters();
