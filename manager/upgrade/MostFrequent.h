#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <tuple>
#include <type_traits>
#include <vector>

#include "store/ValueTypes.h"

namespace XMLConfig::detail {

inline bool isSame(int left, int right) { return left == right; }
inline bool isSame(double left, double right) { return std::fabs(left - right) < 1e-10; }
inline bool isSame(const Point_2Dim<int>& left, const Point_2Dim<int>& right) { return left == right; }

inline bool isBefore(int left, int right) { return left < right; }
inline bool isBefore(double left, double right) { return left < right; }
inline bool isBefore(const Point_2Dim<int>& left, const Point_2Dim<int>& right) {
    return std::tie(left.x, left.y) < std::tie(right.x, right.y);
}

/// Values in groups of those that are the same as the group's first one, its founder.
template <typename Value>
class Groups {
public:
    void add(const Value& value) {
        const std::size_t known = find(value);
        if (known < m_groups.size()) {
            ++m_groups[known].votes;
            return;
        }
        number(value);
        m_groups.push_back({value, 1});
    }

    /// The founder of the largest group, of the earliest of them on a tie. There must be one.
    [[nodiscard]] const Value& largest() const {
        const auto fewer = [](const Group& left, const Group& right) { return left.votes < right.votes; };
        return std::max_element(m_groups.begin(), m_groups.end(), fewer)->founder;
    }

private:
    struct Group {
        Value founder;
        std::size_t votes;
    };
    struct Ascending {
        bool operator()(const Value& left, const Value& right) const { return isBefore(left, right); }
    };

    // A number that is not even the same as itself, such as "nan", is found by nobody and would spoil the order.
    void number(const Value& founder) {
        if constexpr (std::is_floating_point_v<Value>) {
            if (!isSame(founder, founder)) return;
        }
        m_numbers.emplace(founder, m_groups.size());
    }

    // The earliest group whose founder is the same. No two founders are, so that only the nearest on each side can be; on
    // the left one that is not equal, which only numbers with a tolerance have.
    std::size_t find(const Value& value) const {
        if constexpr (std::is_floating_point_v<Value>) {
            if (!isSame(value, value)) return m_groups.size();
        }
        const auto next = m_numbers.lower_bound(value);
        const bool isNext = next != m_numbers.end() && isSame(next->first, value);
        const std::size_t found = isNext ? next->second : m_groups.size();
        if constexpr (std::is_floating_point_v<Value>) return std::min(found, findBefore(next, value));
        return found;
    }

    std::size_t findBefore(typename std::map<Value, std::size_t, Ascending>::const_iterator next, const Value& value) const {
        if (next == m_numbers.begin()) return m_groups.size();
        const auto last = std::prev(next);
        return isSame(last->first, value) ? last->second : m_groups.size();
    }

    std::vector<Group> m_groups;
    std::map<Value, std::size_t, Ascending> m_numbers;
};

/// The value that most of them have, the one met first on a tie. There must be one.
template <typename Value>
Value mostFrequent(const std::vector<Value>& values) {
    Groups<Value> groups;
    for (const Value& value : values) groups.add(value);
    return groups.largest();
}

}  // namespace XMLConfig::detail
