#include "platform/Paths.h"

#include <algorithm>
#include <vector>

#include "platform/Text.h"

namespace XMLConfig::detail {
namespace {

constexpr std::wstring_view separators = L"\\/";
constexpr auto none = std::wstring_view::npos;

bool isAsciiLetter(wchar_t character) {
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

/// "\\server\share", or empty when the path is on none.
std::wstring_view shareOf(std::wstring_view path) {
    if (path.substr(0, 2) != L"\\\\" || path.size() < 3 || isSeparator(path[2])) return {};
    const std::size_t server = path.find_first_of(separators, 2);
    if (server == none || server + 1 == path.size() || isSeparator(path[server + 1])) return {};
    return path.substr(0, path.find_first_of(separators, server + 1));
}

bool sameShare(std::wstring_view left, std::wstring_view right) {
    const auto isSame = [](wchar_t a, wchar_t b) { return a == b || (isSeparator(a) && isSeparator(b)); };
    const std::wstring_view one = shareOf(left);
    const std::wstring_view other = shareOf(right);
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSame);
}

/// The drive or the share.
std::wstring_view volumeOf(std::wstring_view path) {
    const std::wstring_view drive = driveOf(path);
    return drive.empty() ? shareOf(path) : drive;
}

/// The volume and the separators that follow it: what no ".." climbs over.
std::wstring_view topOf(std::wstring_view path) {
    return path.substr(0, std::min(path.find_first_not_of(separators, volumeOf(path).size()), path.size()));
}

std::wstring_view withoutTrailingSeparators(std::wstring_view path) {
    const std::size_t last = path.find_last_not_of(separators);
    return path.substr(0, std::max(last == none ? 0 : last + 1, topOf(path).size()));
}

struct Component {
    std::wstring_view name;
    std::wstring_view separator;  // after the name; empty at the end
};

std::vector<Component> componentsOf(std::wstring_view path) {
    std::vector<Component> components;
    std::size_t at = topOf(path).size();
    while (at < path.size()) {
        const std::size_t end = std::min(path.find_first_of(separators, at), path.size());
        components.push_back({path.substr(at, end - at), path.substr(end, end == path.size() ? 0 : 1)});
        at = std::min(path.find_first_not_of(separators, end), path.size());
    }
    return components;
}

/// Above a rooted top there is nothing; above a relative start there is something unknown.
std::vector<Component> folded(const std::vector<Component>& components, bool isRooted) {
    std::vector<Component> result;
    for (const Component& component : components) {
        if (component.name == L".") continue;
        const bool isClimbing = component.name == L"..";
        if (isClimbing && !result.empty() && result.back().name != L"..") {
            result.pop_back();
        } else if (!isClimbing || !isRooted) {
            result.push_back(component);
        }
    }
    return result;
}

/// Whether the path starts at a top: "/x", "C:\x", "\\server\share\x", but not "C:x".
bool isRooted(std::wstring_view path) { return topOf(path).size() > volumeOf(path).size() || !shareOf(path).empty(); }

std::vector<Component> foldedComponentsOf(std::wstring_view path) { return folded(componentsOf(path), isRooted(path)); }

std::wstring spelled(const std::vector<Component>& components, bool withLastSeparator) {
    std::wstring text;
    for (std::size_t i = 0; i < components.size(); ++i) {
        text += components[i].name;
        if (i + 1 < components.size() || withLastSeparator) text += components[i].separator;
    }
    return text;
}

bool endsWithSeparator(std::wstring_view path) { return !path.empty() && isSeparator(path.back()); }

wchar_t joiningSeparator(std::wstring_view folder) {
    return !driveOf(folder).empty() || folder.find(L'\\') != none ? L'\\' : L'/';
}

}  // namespace

bool isSeparator(wchar_t character) { return character == L'\\' || character == L'/'; }

std::wstring_view driveOf(std::wstring_view path) {
    const bool found = path.size() >= 2 && path[1] == L':' && isAsciiLetter(path[0]);
    return path.substr(0, found ? 2 : 0);
}

bool isAbsolute(std::wstring_view path) { return !driveOf(path).empty() || (!path.empty() && isSeparator(path.front())); }

PathParts splitPath(std::wstring_view path) {
    const std::size_t drive = driveOf(path).size();
    const std::size_t separator = path.find_last_of(separators);
    const std::size_t name = separator == none ? drive : separator + 1;
    const std::size_t point = path.rfind(L'.');
    const std::size_t extension = point == none || point < name ? path.size() : point;
    return {std::wstring(path.substr(0, drive)), std::wstring(path.substr(drive, name - drive)),
            std::wstring(path.substr(name, extension - name)), std::wstring(path.substr(extension))};
}

std::wstring lastComponent(std::wstring_view path) {
    const PathParts parts = splitPath(path);
    return parts.name + parts.extension;
}

std::wstring folderOf(std::wstring_view path) {
    const std::size_t top = topOf(path).size();
    const std::size_t separator = path.find_last_of(separators);
    const std::wstring_view folder = path.substr(0, std::max(separator == none ? 0 : separator, top));
    const std::wstring_view trimmed = withoutTrailingSeparators(folder);
    const std::wstring_view share = shareOf(path);
    return std::wstring(!share.empty() && trimmed.size() <= top ? share : trimmed);
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
    if (folder.empty() || isAbsolute(name)) return std::wstring(name);
    if (name.empty()) return std::wstring(folder);
    std::wstring path(withoutTrailingSeparators(folder));
    if (!endsWithSeparator(path)) path += joiningSeparator(folder);
    path += name;
    return path;
}

std::wstring foldPath(std::wstring_view path) {
    const std::wstring_view ending = path.substr(path.find_last_of(separators) + 1);
    const bool lastIsDropped = ending == L"." || ending == L"..";
    std::wstring result(topOf(path));
    result += spelled(foldedComponentsOf(path), !lastIsDropped);
    // "a/../C:/b" leads to something in this folder whose name looks like a drive.
    const bool nowHasATop = isAbsolute(result) && !isAbsolute(path);
    return nowHasATop ? L"." + std::wstring(1, path[path.find_first_of(separators)]) + result : result;
}

bool sameDrive(std::wstring_view left, std::wstring_view right) { return equalIgnoringCase(driveOf(left), driveOf(right)); }

std::wstring relativeTo(std::wstring_view path, std::wstring_view root) {
    if (!isRooted(path) || !isRooted(root) || !sameDrive(path, root) || !sameShare(path, root)) {
        return std::wstring(path);
    }
    const bool ignoringCase = !driveOf(root).empty();
    const auto isSame = [&](const Component& left, const Component& right) {
        return ignoringCase ? equalIgnoringCase(left.name, right.name) : left.name == right.name;
    };
    const std::vector<Component> names = foldedComponentsOf(path);
    const std::vector<Component> rootNames = foldedComponentsOf(root);
    const auto fork = std::mismatch(names.begin(), names.end(), rootNames.begin(), rootNames.end(), isSame);
    const std::wstring separator(1, joiningSeparator(root));
    std::vector<Component> way(static_cast<std::size_t>(rootNames.end() - fork.second), {L"..", separator});
    way.insert(way.end(), fork.first, names.end());
    const std::wstring relative = spelled(way, false);
    // A name like "T:dome.obj" would be taken for a path on a drive.
    return isAbsolute(relative) ? L"." + separator + relative : relative;
}

}  // namespace XMLConfig::detail
