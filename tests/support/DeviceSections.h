#pragma once

#include <string>

/// Sections of devices as XML, for files that a test writes.
inline std::string camera(const std::string& id, const std::string& items) {
    return "<Camera ID=\"" + id + "\">" + items + "</Camera>";
}
inline std::string projector(const std::string& id, const std::string& items) {
    return "<Projector ID=\"" + id + "\">" + items + "</Projector>";
}
