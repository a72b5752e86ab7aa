#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "manager/layout/Parts.h"
#include "manager/layout/Vector.h"

namespace XMLConfig::detail {
namespace {

constexpr double rounding = 1e-9;

using Indices = std::vector<std::size_t>;

double widthOf(const Channel& channel) { return channel.levelField.to - channel.levelField.from; }
double heightOf(const Channel& channel) { return channel.uprightField.to - channel.uprightField.from; }

/// Sorts channels by an angle; those with equal angles stay in document order.
template <typename Angle>
void sortBy(Indices& indices, const Angle& angle) {
    std::vector<std::pair<double, std::size_t>> places;
    places.reserve(indices.size());
    for (const std::size_t index : indices) places.emplace_back(angle(index), index);
    std::sort(places.begin(), places.end());
    std::transform(places.begin(), places.end(), indices.begin(), [](const auto& place) { return place.second; });
}

class RowFinder {
public:
    RowFinder(const std::vector<Channel>& channels, const std::vector<ChannelPair>& pairs)
        : m_channels(channels), m_pairs(pairs) {}

    [[nodiscard]] std::vector<ChannelRow> run() const {
        Indices usable;
        for (std::size_t i = 0; i < m_channels.size(); ++i)
            if (m_channels[i].state == ChannelState::Usable) usable.push_back(i);
        sortBy(usable, [this](std::size_t i) { return m_channels[i].pitch; });
        std::vector<ChannelRow> rows;
        for (const std::size_t index : usable) {
            if (rows.empty() || !isLevel(rows.back().channels.front(), index)) rows.emplace_back();
            rows.back().channels.push_back(index);
        }
        for (ChannelRow& row : rows) arrange(row);
        return rows;
    }

private:
    [[nodiscard]] bool isLevel(std::size_t lowest, std::size_t index) const {
        const double smaller = std::min(heightOf(m_channels[lowest]), heightOf(m_channels[index]));
        return m_channels[index].pitch - m_channels[lowest].pitch < smaller / 2.0;
    }

    /// The yaw from half a turn to the left to half a turn to the right.
    [[nodiscard]] double headingIn(std::size_t index) const { return std::remainder(m_channels[index].yaw, fullTurn); }

    /// The angle clockwise from where the one ends to where the other begins; negative where they overlap.
    [[nodiscard]] double distance(std::size_t left, std::size_t right) const {
        return turnBetween(left, right) + m_channels[right].levelField.from - m_channels[left].levelField.to;
    }

    [[nodiscard]] double turnBetween(std::size_t left, std::size_t right) const {
        const double turned = headingIn(right) - headingIn(left);
        return turned < -rounding ? turned + fullTurn : turned;
    }

    void arrange(ChannelRow& row) const {
        Indices& indices = row.channels;
        sortBy(indices, [this](std::size_t i) { return headingIn(i); });
        if (indices.size() < 2) return;
        std::size_t first = 0;
        double widest = -std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < indices.size(); ++i) {
            const double before = distance(indices[(i + indices.size() - 1) % indices.size()], indices[i]);
            if (before <= widest) continue;
            widest = before;
            first = i;
        }
        std::rotate(indices.begin(), indices.begin() + static_cast<std::ptrdiff_t>(first), indices.end());
        const double narrower = std::min(widthOf(m_channels[indices.back()]), widthOf(m_channels[indices.front()]));
        row.isClosed = widest < narrower;
        for (std::size_t i = 1; i < indices.size(); ++i) addGap(row, indices[i - 1], indices[i]);
        if (row.isClosed) addGap(row, indices.back(), indices.front());
    }

    void addGap(ChannelRow& row, std::size_t left, std::size_t right) const {
        if (doMiddlesMeet(left, right)) return;
        const double width = distance(left, right);
        if (width > rounding) row.gaps.push_back({left, right, width});
    }

    [[nodiscard]] bool doMiddlesMeet(std::size_t one, std::size_t other) const {
        if (m_channels[one].isCrowded || m_channels[other].isCrowded) return true;
        const auto wanted = std::minmax(one, other);
        const auto isBefore = [](const ChannelPair& pair, const std::pair<std::size_t, std::size_t>& place) {
            return std::make_pair(pair.first, pair.second) < place;
        };
        const std::pair<std::size_t, std::size_t> place(wanted.first, wanted.second);
        const auto found = std::lower_bound(m_pairs.begin(), m_pairs.end(), place, isBefore);
        if (found == m_pairs.end() || found->first != place.first || found->second != place.second) return false;
        return found->ofFirst.level > 0.0 || found->ofSecond.level > 0.0;
    }

    const std::vector<Channel>& m_channels;
    const std::vector<ChannelPair>& m_pairs;
};

}  // namespace

std::vector<ChannelRow> findRows(const std::vector<Channel>& channels, const std::vector<ChannelPair>& pairs) {
    return RowFinder(channels, pairs).run();
}

}  // namespace XMLConfig::detail
