#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "manager/layout/Image.h"
#include "manager/layout/Parts.h"

namespace XMLConfig::detail {
namespace {

/// The narrowest box, along the axes, around the directions of length 1 that a channel shows.
struct Box {
    std::array<double, 3> from{};
    std::array<double, 3> to{};
};

std::array<double, 3> coordinates(const Vector& v) { return {v.x, v.y, v.z}; }

/// A cap around a channel: all directions at most `radius` from `centre`.
struct Cap {
    Vector centre;
    double radius = 0.0;
};

Cap capAround(const std::array<Vector, 4>& corners, const Vector& centre) {
    double least = 1.0;
    for (const Vector& corner : corners) least = std::min(least, dot(centre, unit(corner)));
    return {centre, std::acos(std::max(-1.0, least))};
}

/// Less than half of all directions, always: the line of sight is less than 90 degrees from each corner.
Cap capOf(const Channel& channel) {
    const std::array<Vector, 4> corners = cornersOf(channel);
    Vector sum;
    for (const Vector& corner : corners) sum = plus(sum, unit(corner));
    const Cap cap = capAround(corners, unit(sum));
    return cap.radius < pi / 2.0 ? cap : capAround(corners, channel.sight);
}

Box boxOf(const Cap& cap) {
    constexpr double rounding = 1e-9;
    Box box;
    const std::array<double, 3> centre = coordinates(cap.centre);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double angle = std::acos(std::clamp(centre[axis], -1.0, 1.0));
        box.from[axis] = std::cos(std::min(pi, angle + cap.radius)) - rounding;
        box.to[axis] = std::cos(std::max(0.0, angle - cap.radius)) + rounding;
    }
    return box;
}

struct Candidate {
    std::size_t index = 0;  ///< of the channel
    Planes planes;
    Box box;
    std::size_t partners = 0;
};

bool doBoxesMeet(const Box& a, const Box& b) {
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (a.from[axis] > b.to[axis] || b.from[axis] > a.to[axis]) return false;
    return true;
}

/// The axis along which the channels lie furthest apart.
std::size_t widestAxis(const std::vector<Candidate>& candidates) {
    std::array<double, 3> spreads{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double sum = 0.0;
        double squares = 0.0;
        for (const Candidate& candidate : candidates) {
            const double middle = candidate.box.from[axis] + candidate.box.to[axis];
            sum += middle;
            squares += middle * middle;
        }
        spreads[axis] = squares - sum * sum / static_cast<double>(candidates.size());
    }
    return static_cast<std::size_t>(std::max_element(spreads.begin(), spreads.end()) - spreads.begin());
}

/// The pairs by their first channels, and those of one by their second; no two are of the same channels.
std::vector<ChannelPair> inOrder(const std::vector<ChannelPair>& pairs) {
    struct Place {
        std::size_t first;
        std::size_t second;
        std::size_t number;
    };
    std::vector<Place> places;
    places.reserve(pairs.size());
    for (const ChannelPair& pair : pairs) places.push_back({pair.first, pair.second, places.size()});
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.first != b.first ? a.first < b.first : a.second < b.second; });
    std::vector<ChannelPair> sorted;
    sorted.reserve(pairs.size());
    for (const Place& place : places) sorted.push_back(pairs[place.number]);
    return sorted;
}

/// Sweeps along one axis: compares each channel only with those whose boxes overlap its own there.
class Sweep {
public:
    Sweep(const std::vector<Channel>& channels, std::vector<Candidate>& candidates)
        : m_channels(channels), m_candidates(candidates), m_axis(widestAxis(candidates)) {}

    std::vector<ChannelPair> run() {
        std::vector<std::pair<double, std::size_t>> beginnings;  // sorted instead of the candidates, which are large
        for (std::size_t i = 0; i < m_candidates.size(); ++i) beginnings.emplace_back(m_candidates[i].box.from[m_axis], i);
        std::sort(beginnings.begin(), beginnings.end());
        for (const auto& [from, number] : beginnings) take(m_candidates[number]);
        return inOrder(m_pairs);
    }

private:
    void take(Candidate& candidate) {
        const auto isOver = [&](const Candidate* open) {
            return open->box.to[m_axis] < candidate.box.from[m_axis] || open->partners >= mostNeighbours;
        };
        m_open.erase(std::remove_if(m_open.begin(), m_open.end(), isOver), m_open.end());
        for (Candidate* const open : m_open) {
            if (candidate.partners >= mostNeighbours) return;
            if (doBoxesMeet(open->box, candidate.box)) compare(*open, candidate);
        }
        m_open.push_back(&candidate);
    }

    void compare(Candidate& one, Candidate& other) {
        Candidate& first = one.index < other.index ? one : other;
        Candidate& second = one.index < other.index ? other : one;
        const ChannelPair pair{first.index, second.index, overlapOn(m_channels[first.index], second.planes),
                               overlapOn(m_channels[second.index], first.planes)};
        if (std::max(pair.ofFirst.area, pair.ofSecond.area) < leastArea) return;
        m_pairs.push_back(pair);
        ++first.partners;
        ++second.partners;
    }

    const std::vector<Channel>& m_channels;
    std::vector<Candidate>& m_candidates;
    std::size_t m_axis;
    std::vector<Candidate*> m_open;
    std::vector<ChannelPair> m_pairs;
};

}  // namespace

std::vector<ChannelPair> findPairs(std::vector<Channel>& channels) {
    std::vector<Candidate> candidates;
    candidates.reserve(channels.size());
    for (std::size_t i = 0; i < channels.size(); ++i)
        if (channels[i].state == ChannelState::Usable)
            candidates.push_back({i, planesOf(channels[i]), boxOf(capOf(channels[i])), 0});
    if (candidates.empty()) return {};
    std::vector<ChannelPair> pairs = Sweep(channels, candidates).run();
    for (const Candidate& candidate : candidates) channels[candidate.index].isCrowded = candidate.partners >= mostNeighbours;
    return pairs;
}

}  // namespace XMLConfig::detail
