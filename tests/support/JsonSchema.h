#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

/// The schema, which allows members that it does not know, as one that allows none, wherever it names members.
nlohmann::json withoutAdditions(nlohmann::json schema);

/// What of a JSON value does not fit a schema, a line each; none where all of it fits. Knows "type" (one or several),
/// "enum", "properties", "required", "additionalProperties": false and "items".
std::vector<std::string> schemaFaults(const nlohmann::json& value, const nlohmann::json& schema,
                                      const std::string& place = "answer");
