#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "store/ConfigInfo.h"
#include "store/Document.h"
#include "store/DocumentWriter.h"

/// What must hold for every input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// A file of this process's own that holds the bytes. It is written plainly: flushes would take most of the time.
inline std::wstring fuzzFile(const std::string& bytes) {
    namespace detail = XMLConfig::detail;
    static const std::wstring path =
        detail::joinPath(detail::temporaryFolder(), L"fuzz-" + detail::formatInteger(detail::processId()) + L".skorrax");
    std::FILE* const file = std::fopen(detail::toUtf8(path).c_str(), "wb");
    require(file != nullptr, "the folder for temporary files");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
    return path;
}

/// The text that a save of the document writes.
inline std::string savedText(ConfigInfo& document) {
    using namespace XMLConfig::detail;
    return gather([&](const ByteSink& sink) { writeDocument(Document::of(document).tree(), sink); });
}

/// Takes an input apart. After its end everything is 0.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : m_bytes(bytes), m_left(size) {}

    bool isOver() const { return m_left == 0; }
    std::uint8_t byte() {
        if (m_left == 0) return 0;
        --m_left;
        return *m_bytes++;
    }
    template <typename Value>
    const Value& anyOf(const std::vector<Value>& values) {
        return values[byte() % values.size()];
    }
    /// All that is left, read as UTF-8.
    std::wstring rest() {
        const std::string text(reinterpret_cast<const char*>(m_bytes), m_left);
        m_left = 0;
        return XMLConfig::detail::fromUtf8(text);
    }
    /// The next few characters; a length comes first.
    std::wstring text() {
        std::string text;
        for (std::size_t count = byte() % 24; count > 0 && !isOver(); --count) text += static_cast<char>(byte());
        return XMLConfig::detail::fromUtf8(text);
    }

private:
    const std::uint8_t* m_bytes;
    std::size_t m_left;
};
