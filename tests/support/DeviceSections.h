#pragma once

#include <string>

/// Sections of devices as XML, for files that a test writes.
inline std::string camera(const std::string& id, const std::string& items) {
    return "<Camera ID=\"" + id + "\">" + items + "</Camera>";
}
inline std::string projector(const std::string& id, const std::string& items) {
    return "<Projector ID=\"" + id + "\">" + items + "</Projector>";
}

/// A projector whose channel has this heading, in radians, and a field of 40 by 30 degrees.
inline std::string projectorAt(const std::string& id, const std::string& yaw, const std::string& pitch,
                               const std::string& inside) {
    return projector(id, inside + "<Channel_Extents><Heading><Yaw>" + yaw + "</Yaw><Pitch>" + pitch +
                             "</Pitch></Heading><HFOV><Left>-0.349</Left><Right>0.349</Right></HFOV><VFOV><Top>0.262</Top>"
                             "<Bottom>-0.262</Bottom></VFOV></Channel_Extents>");
}

/// The item of a device that holds its snippet.
inline std::string deviceSnippet(const std::string& content) { return "<DeviceSnippet>" + content + "</DeviceSnippet>"; }
/// One whose device holds these elements.
inline std::string snippet(const std::string& elements) { return deviceSnippet("<device>" + elements + "</device>"); }
inline std::string snippetWithUID(const std::string& uid, const std::string& elements) {
    return deviceSnippet("<device UID=\"" + uid + "\">" + elements + "</device>");
}
