#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

/// What of a JSON value does not fit a schema, a line each; none where all of it fits. Knows "type" (one or several),
/// "enum", "properties", "required", "additionalProperties": false and "items".
std::vector<std::string> schemaFaults(const nlohmann::json& value, const nlohmann::json& schema,
                                      const std::string& place = "answer");
