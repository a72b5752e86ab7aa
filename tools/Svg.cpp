#include "tools/Svg.h"

#include "platform/Utf8.h"

namespace tool::svg {

std::string pathData(const Path& path) {
    std::string data;
    Point before;
    for (const Point& point : path) {
        const Point step{point.x - before.x, point.y - before.y};
        if (data.empty()) data = "M" + std::to_string(point.x) + " " + std::to_string(point.y) + "l";
        else if (step.x != 0 || step.y != 0) data += std::to_string(step.x) + " " + std::to_string(step.y) + " ";
        before = point;
    }
    while (!data.empty() && (data.back() == ' ' || data.back() == 'l')) data.pop_back();
    return data + "z";
}

pugi::xml_node addPath(pugi::xml_node parent, const std::string& data, const std::string& className,
                       const std::wstring& title) {
    pugi::xml_node node = parent.append_child("path");
    node.append_attribute("class") = className.c_str();
    node.append_attribute("d") = data.c_str();
    if (!title.empty()) node.append_child("title").text() = XMLConfig::utf8FromWide(title).c_str();
    return node;
}

pugi::xml_node addLine(pugi::xml_node parent, Point from, Point to, const std::string& className) {
    pugi::xml_node node = parent.append_child("path");
    node.append_attribute("class") = className.c_str();
    const std::string data = "M" + std::to_string(from.x) + " " + std::to_string(from.y) + "L" + std::to_string(to.x) + " " +
                             std::to_string(to.y);
    node.append_attribute("d") = data.c_str();
    return node;
}

pugi::xml_node addText(pugi::xml_node parent, Point at, const std::wstring& text, const std::string& className,
                       const char* anchor) {
    pugi::xml_node node = parent.append_child("text");
    node.append_attribute("class") = className.c_str();
    node.append_attribute("x") = std::to_string(at.x).c_str();
    node.append_attribute("y") = std::to_string(at.y).c_str();
    node.append_attribute("text-anchor") = anchor;
    node.text() = XMLConfig::utf8FromWide(text).c_str();
    return node;
}

}  // namespace tool::svg
