#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

/// Shapes of an SVG drawing, in whole units so that they are the same to the byte everywhere.
namespace tool::svg {

struct Point {
    long x = 0;
    long y = 0;
};
using Path = std::vector<Point>;

/// What is drawn so far.
struct Frame {
    long left = 0;
    long right = 0;
    long top = 0;
    long bottom = 0;
};

/// "M", the first point, and the steps to the others; closed.
std::string pathData(const Path& path);

/// A shape with a class and, where it is not empty, a title.
pugi::xml_node addPath(pugi::xml_node parent, const std::string& data, const std::string& className,
                       const std::wstring& title = L"");
pugi::xml_node addLine(pugi::xml_node parent, Point from, Point to, const std::string& className,
                       const std::wstring& title = L"");
/// Text about its middle, or to an end ("start", "end").
pugi::xml_node addText(pugi::xml_node parent, Point at, const std::wstring& text, const std::string& className,
                       const char* anchor = "middle");
/// What the mouse shows over the shape.
void addTitle(pugi::xml_node shape, const std::wstring& title);

}  // namespace tool::svg
