#pragma once

#include <cstddef>
#include <random>
#include <vector>

/// Choices that are the same everywhere for the same seed.
class RandomChoice {
public:
    explicit RandomChoice(unsigned seed) : m_random(seed) {}

    /// From 0 up to the limit, without it.
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    bool oneIn(std::size_t cases) { return below(cases) == 0; }
    template <typename Value>
    Value anyOf(const std::vector<Value>& values) {
        return values[below(values.size())];
    }

private:
    std::mt19937 m_random;
};
