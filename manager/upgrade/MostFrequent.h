#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <tuple>
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
        // What is not even the same as itself, such as "nan", is found by nobody and would spoil the order.
        if (isSame(value, value)) m_numbers.emplace(value, m_groups.size());
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
    struct Before {
        bool operator()(const Value& left, const Value& right) const { return isBefore(left, right); }
    };

    // The earliest group whose founder is the same. No two founders are, so that only the nearest on each side can be.
    std::size_t find(const Value& value) const {
        std::size_t found = m_groups.size();
        if (!isSame(value, value)) return found;
        const auto next = m_numbers.lower_bound(value);
        if (next != m_numbers.end() && isSame(next->first, value)) found = next->second;
        if (next == m_numbers.begin()) return found;
        const auto last = std::prev(next);
        return isSame(last->first, value) ? std::min(found, last->second) : found;
    }

    std::vector<Group> m_groups;
    std::map<Value, std::size_t, Before> m_numbers;
};

/// The value that most of them have, the one met first on a tie. There must be one.
template <typename Value>
Value mostFrequent(const std::vector<Value>& values) {
    Groups<Value> groups;
    for (const Value& value : values) groups.add(value);
    return groups.largest();
}

}  // namespace XMLConfig::detail
