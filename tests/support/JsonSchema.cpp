#include "tests/support/JsonSchema.h"

#include <algorithm>

namespace {

using Json = nlohmann::json;
using Faults = std::vector<std::string>;

bool isOfType(const Json& value, const std::string& type) {
    if (type == "number") return value.is_number();
    if (type == "integer") return value.is_number_integer();
    return value.type_name() == type;
}

bool isOfTypes(const Json& value, const Json& types) {
    if (types.is_string()) return isOfType(value, types.get<std::string>());
    return std::any_of(types.begin(), types.end(),
                       [&](const Json& type) { return isOfType(value, type.get<std::string>()); });
}

void addAll(Faults& faults, const Faults& more) { faults.insert(faults.end(), more.begin(), more.end()); }

Faults memberFaults(const Json& value, const Json& schema, const std::string& place) {
    Faults faults;
    const Json properties = schema.value("properties", Json::object());
    for (const Json& name : schema.value("required", Json::array()))
        if (!value.contains(name.get<std::string>())) faults.push_back(place + ": lacks " + name.get<std::string>());
    for (const auto& [name, member] : value.items()) {
        if (properties.contains(name)) addAll(faults, schemaFaults(member, properties[name], place + "." + name));
        else if (!schema.value("additionalProperties", true)) faults.push_back(place + ": has an unknown " + name);
    }
    return faults;
}

}  // namespace

Faults schemaFaults(const Json& value, const Json& schema, const std::string& place) {
    if (schema.contains("type") && !isOfTypes(value, schema["type"]))
        return {place + ": is " + value.dump() + " instead of " + schema["type"].dump()};
    if (schema.contains("enum") && std::find(schema["enum"].begin(), schema["enum"].end(), value) == schema["enum"].end())
        return {place + ": " + value.dump() + " is none of " + schema["enum"].dump()};
    if (value.is_object()) return memberFaults(value, schema, place);
    Faults faults;
    if (value.is_array() && schema.contains("items"))
        for (std::size_t i = 0; i < value.size(); ++i)
            addAll(faults, schemaFaults(value[i], schema["items"], place + "[" + std::to_string(i) + "]"));
    return faults;
}

Json withoutAdditions(Json schema) {
    if (schema.contains("items")) schema["items"] = withoutAdditions(schema["items"]);
    if (!schema.contains("properties")) return schema;
    schema["additionalProperties"] = false;
    for (Json& member : schema["properties"]) member = withoutAdditions(std::move(member));
    return schema;
}
