#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"

/// A file of this process's own that holds the fuzzer's bytes.
inline std::wstring fuzzFile(const std::uint8_t* bytes, std::size_t size) {
    namespace detail = XMLConfig::detail;
    const std::wstring path =
        detail::joinPath(detail::temporaryFolder(), L"fuzz-" + detail::formatInteger(detail::processId()) + L".skorrax");
    detail::replaceFile(path, {reinterpret_cast<const char*>(bytes), size});
    return path;
}

/// What must hold for every input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}
