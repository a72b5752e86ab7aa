#include "tools/Svg.h"

#include "platform/Utf8.h"
#include "tools/Printable.h"

namespace tool::svg {

namespace {

/// A picture is XML 1.0, which has no place for most controls; a configuration may be XML 1.1, which has.
void setText(pugi::xml_node node, const std::wstring& text) {
    node.text() = XMLConfig::utf8FromWide(printableText(text)).c_str();
}

}  // namespace

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
    if (!title.empty()) addTitle(node, title);
    return node;
}

pugi::xml_node addLine(pugi::xml_node parent, Point from, Point to, const std::string& className,
                       const std::wstring& title) {
    pugi::xml_node node = parent.append_child("path");
    node.append_attribute("class") = className.c_str();
    const std::string data = "M" + std::to_string(from.x) + " " + std::to_string(from.y) + "L" + std::to_string(to.x) + " " +
                             std::to_string(to.y);
    node.append_attribute("d") = data.c_str();
    if (!title.empty()) addTitle(node, title);
    return node;
}

pugi::xml_node addText(pugi::xml_node parent, Point at, const std::wstring& text, const std::string& className,
                       const char* anchor) {
    pugi::xml_node node = parent.append_child("text");
    node.append_attribute("class") = className.c_str();
    node.append_attribute("x") = std::to_string(at.x).c_str();
    node.append_attribute("y") = std::to_string(at.y).c_str();
    node.append_attribute("text-anchor") = anchor;
    setText(node, text);
    return node;
}

void addTitle(pugi::xml_node shape, const std::wstring& title) { setText(shape.append_child("title"), title); }

}  // namespace tool::svg
