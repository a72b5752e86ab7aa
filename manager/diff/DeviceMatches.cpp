#include "manager/diff/DeviceMatches.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "base/Angles.h"
#include "manager/DeviceAddresses.h"
#include "platform/Numbers.h"

namespace XMLConfig::detail {
namespace {

/// Gives something by which a device can be recognised, such as its name; empty where the device lacks that.
using Key = std::wstring (*)(const Device& device);

std::wstring textBelow(const ElementView& element, const std::wstring& tag) { return element.child(tag).text(); }

ElementView snippetOf(const Device& device) { return device.section.child(L"DeviceSnippet").firstChild(); }

std::wstring idKey(const Device& device) { return device.id; }
std::wstring oldIDKey(const Device& device) { return textBelow(device.section, L"OldSectionID"); }

std::wstring macKey(const Device& device) {
    const ElementView& section = device.section;
    for (const std::wstring& text :
         {deviceIDOf(device.id).value_or(DeviceID{}).address, textBelow(snippetOf(device), L"macAddress"),
          textBelow(section.child(L"Connection"), L"MAC_Address"), textBelow(section, L"Projector_MAC_Address")}) {
        std::wstring mac = digitsOfMAC(text);
        if (!mac.empty()) return mac;
    }
    return {};
}

std::wstring serialKey(const Device& device) { return textBelow(snippetOf(device), L"serialNumber"); }

bool begins(const std::wstring& text, const std::wstring& start) { return text.compare(0, start.size(), start) == 0; }

/// A name that somebody gave: not the one that every new device gets.
std::wstring nameKey(const Device& device) {
    const std::wstring name = textBelow(device.section, L"Name");
    return begins(name, L"Channel_") || begins(name, L"Camera_") ? std::wstring() : name;
}

std::wstring connectionKey(const Device& device) {
    const ElementView snippet = snippetOf(device);
    const ElementView connection = snippet.child(L"connection");
    const std::wstring address = textBelow(connection, L"address");
    const std::wstring port = textBelow(connection, L"port");
    if (address.empty() && port.empty()) return {};
    return address + L" " + port + L" " + textBelow(snippet, L"id");
}

/// The angles of a projector's channel in radians: yaw, pitch, and the four edges.
using Angles = std::array<double, 6>;

bool angleAt(const ElementView& device, std::initializer_list<const wchar_t*> path, double& angle) {
    ElementView element = device;
    for (const wchar_t* const tag : path) element = element.child(tag);
    angle = leadingDouble(element.text());
    return element && std::isfinite(angle);
}

/// False where it has no channel. The yaw is the one within half a turn.
bool readAngles(const ElementView& device, Angles& angles) {
    const ElementView channel = device.child(L"Channel_Extents");
    const bool isThere =
        angleAt(channel, {L"Heading", L"Yaw"}, angles[0]) && angleAt(channel, {L"Heading", L"Pitch"}, angles[1]) &&
        angleAt(channel, {L"HFOV", L"Left"}, angles[2]) && angleAt(channel, {L"HFOV", L"Right"}, angles[3]) &&
        angleAt(channel, {L"VFOV", L"Top"}, angles[4]) && angleAt(channel, {L"VFOV", L"Bottom"}, angles[5]);
    angles[0] = std::remainder(angles[0], fullTurn);
    return isThere;
}

/// Whether two channels are the same: heading within a degree, edges within a tenth of one.
bool areOneChannel(const Angles& one, const Angles& other) {
    if (std::abs(std::remainder(one[0] - other[0], fullTurn)) > degree) return false;
    for (std::size_t i = 1; i < one.size(); ++i)
        if (!(std::abs(one[i] - other[i]) <= (i < 2 ? 1.0 : 0.1) * degree)) return false;
    return true;
}

constexpr std::size_t none = static_cast<std::size_t>(-1);

struct AnglesOfDevice {
    Angles angles;
    std::size_t device;
};

/// The channels of the devices that have no partner yet, sorted by yaw: only neighbours within a degree are compared.
class ChannelSearch {
public:
    ChannelSearch(const std::vector<Device>& devices, const std::vector<std::size_t>& partners) {
        for (std::size_t i = 0; i < devices.size(); ++i) {
            AnglesOfDevice channel{{}, i};
            if (partners[i] == none && readAngles(devices[i].section, channel.angles)) m_sorted.push_back(channel);
        }
        const auto isFurtherLeft = [](const AnglesOfDevice& one, const AnglesOfDevice& other) {
            return one.angles[0] < other.angles[0];
        };
        std::sort(m_sorted.begin(), m_sorted.end(), isFurtherLeft);
    }

    [[nodiscard]] const std::vector<AnglesOfDevice>& all() const { return m_sorted; }

    /// The only one with such a channel; null where there is none, and where there are several. Where half a turn to the
    /// left is half a turn to the right, neighbours are at both ends.
    [[nodiscard]] const AnglesOfDevice* findOnly(const Angles& angles) const {
        const AnglesOfDevice* found = nullptr;
        for (const double turn : {-fullTurn, 0.0, fullTurn}) {
            const auto [first, last] = nearYaw(angles[0] + turn);
            for (std::size_t i = first; i < last; ++i) {
                if (!areOneChannel(m_sorted[i].angles, angles)) continue;
                if (found != nullptr) return nullptr;
                found = &m_sorted[i];
            }
        }
        return found;
    }

private:
    [[nodiscard]] std::pair<std::size_t, std::size_t> nearYaw(double yaw) const {
        constexpr double near = degree + 1e-9;  // whom areOneChannel takes for one, whatever is rounded
        const auto isLeftOf = [](const AnglesOfDevice& channel, double angle) { return channel.angles[0] < angle; };
        const auto isRightOf = [](double angle, const AnglesOfDevice& channel) { return angle < channel.angles[0]; };
        const auto first = std::lower_bound(m_sorted.begin(), m_sorted.end(), yaw - near, isLeftOf);
        const auto last = std::upper_bound(first, m_sorted.end(), yaw + near, isRightOf);
        return {static_cast<std::size_t>(first - m_sorted.begin()), static_cast<std::size_t>(last - m_sorted.begin())};
    }

    std::vector<AnglesOfDevice> m_sorted;
};

class Matcher {
public:
    Matcher(const std::vector<Device>& old, const std::vector<Device>& now) : m_old(old), m_now(now) {
        m_partnerOfOld.assign(old.size(), none);
        m_partnerOfNew.assign(now.size(), none);
        m_by.assign(now.size(), L"ID");
    }

    /// Pairs those that have one ID and one place, which most have in most comparisons: nothing is looked up for them.
    void joinInStep() {
        for (std::size_t i = 0; i < std::min(m_old.size(), m_now.size()); ++i)
            if (m_old[i].id == m_now[i].id) pair(i, i, L"ID");
    }

    /// Pairs an old device with a new one where both have the same key, `oldKey` of the old one and `newKey` of the new one,
    /// and no other device on either side has it.
    void join(Key oldKey, Key newKey, const wchar_t* by) {
        const Places oldPlaces = places(m_old, m_partnerOfOld, oldKey);
        for (const auto& [key, now] : places(m_now, m_partnerOfNew, newKey)) {
            const auto old = oldPlaces.find(key);
            if (now != ambiguous && old != oldPlaces.end() && old->second != ambiguous) pair(old->second, now, by);
        }
    }

    /// Joins what shows the same part of the picture, where nothing else on either side shows it too.
    void joinChannels() {
        const ChannelSearch olds(m_old, m_partnerOfOld);
        const ChannelSearch news(m_now, m_partnerOfNew);
        for (const AnglesOfDevice& now : news.all()) {
            const AnglesOfDevice* const old = olds.findOnly(now.angles);
            if (old != nullptr && news.findOnly(old->angles) == &now) pair(old->device, now.device, L"place");
        }
    }

    std::vector<DeviceMatch> result() const {
        std::vector<DeviceMatch> matches;
        for (std::size_t i = 0; i < m_now.size(); ++i) {
            const std::size_t old = m_partnerOfNew[i];
            matches.push_back({old == none ? nullptr : &m_old[old], &m_now[i], m_by[i]});
        }
        for (std::size_t i = 0; i < m_old.size(); ++i)
            if (m_partnerOfOld[i] == none) matches.push_back({&m_old[i], nullptr});
        return matches;
    }

private:
    static constexpr std::size_t ambiguous = static_cast<std::size_t>(-2);
    using Places = std::unordered_map<std::wstring, std::size_t>;

    static Places places(const std::vector<Device>& devices, const std::vector<std::size_t>& partners, Key key) {
        Places result;
        for (std::size_t i = 0; i < devices.size(); ++i) {
            if (partners[i] != none) continue;
            const std::wstring text = key(devices[i]);
            if (text.empty()) continue;
            const auto [place, isFirst] = result.emplace(text, i);
            if (!isFirst) place->second = ambiguous;
        }
        return result;
    }

    void pair(std::size_t old, std::size_t now, const wchar_t* by) {
        m_partnerOfOld[old] = now;
        m_partnerOfNew[now] = old;
        m_by[now] = by;
    }

    const std::vector<Device>& m_old;
    const std::vector<Device>& m_now;
    std::vector<std::size_t> m_partnerOfOld;
    std::vector<std::size_t> m_partnerOfNew;
    std::vector<const wchar_t*> m_by;
};

}  // namespace

std::vector<DeviceMatch> matchDevices(const std::vector<Device>& olds, const std::vector<Device>& news,
                                      const std::wstring& tag) {
    Matcher matcher(olds, news);
    matcher.joinInStep();
    matcher.join(idKey, idKey, L"ID");
    matcher.join(idKey, oldIDKey, L"OldSectionID");
    matcher.join(oldIDKey, idKey, L"OldSectionID");
    matcher.join(macKey, macKey, L"MAC address");
    matcher.join(serialKey, serialKey, L"serial number");
    matcher.join(nameKey, nameKey, L"name");
    if (tag == L"Projector") {
        matcher.join(connectionKey, connectionKey, L"place");
        matcher.joinChannels();
    }
    return matcher.result();
}

}  // namespace XMLConfig::detail
