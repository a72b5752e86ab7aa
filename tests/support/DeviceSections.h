#pragma once

#include <string>

/// Sections of devices as XML, for files that a test writes.
inline std::string camera(const std::string& id, const std::string& items) {
    return "<Camera ID=\"" + id + "\">" + items + "</Camera>";
}
inline std::string projector(const std::string& id, const std::string& items) {
    return "<Projector ID=\"" + id + "\">" + items + "</Projector>";
}

/// The item of a device that holds its snippet.
inline std::string deviceSnippet(const std::string& content) { return "<DeviceSnippet>" + content + "</DeviceSnippet>"; }
/// One whose device holds these elements.
inline std::string snippet(const std::string& elements) { return deviceSnippet("<device>" + elements + "</device>"); }
inline std::string snippetWithUID(const std::string& uid, const std::string& elements) {
    return deviceSnippet("<device UID=\"" + uid + "\">" + elements + "</device>");
}
