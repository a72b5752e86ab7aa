#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace XMLConfig::detail {

/// A number that tells two contents apart, but for about one pair in 2^64. It guards against accidents, not against malice.
/// The pieces in which the bytes come do not matter.
class ContentHash {
public:
    void add(std::string_view bytes) {
        m_size += bytes.size();
        while (!bytes.empty()) {
            if (m_pendingSize == 0) bytes = addWords(bytes);
            bytes = addPending(bytes);
        }
    }
    [[nodiscard]] std::uint64_t value() const { return mixed(mixed(m_hash, m_pending), m_size); }

private:
    static constexpr std::size_t wordSize = sizeof(std::uint64_t);

    static std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
        constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
        hash = (hash ^ word) * odd;
        return hash ^ (hash >> 32U);
    }
    /// Takes all whole words; gives what is left.
    std::string_view addWords(std::string_view bytes) {
        const std::size_t end = bytes.size() / wordSize * wordSize;
        std::uint64_t hash = m_hash;
        for (std::size_t i = 0; i < end; i += wordSize) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes.data() + i, wordSize);
            hash = mixed(hash, word);
        }
        m_hash = hash;
        return bytes.substr(end);
    }
    /// Takes what begins a word or completes one; gives what is left.
    std::string_view addPending(std::string_view bytes) {
        const std::size_t count = std::min(bytes.size(), wordSize - m_pendingSize);
        if (count == 0) return bytes;
        std::memcpy(reinterpret_cast<char*>(&m_pending) + m_pendingSize, bytes.data(), count);
        m_pendingSize += count;
        if (m_pendingSize == wordSize) {
            m_hash = mixed(m_hash, m_pending);
            m_pending = 0;
            m_pendingSize = 0;
        }
        return bytes.substr(count);
    }

    std::uint64_t m_hash = 0;
    std::uint64_t m_pending = 0;
    std::size_t m_pendingSize = 0;
    std::uint64_t m_size = 0;
};

}  // namespace XMLConfig::detail
