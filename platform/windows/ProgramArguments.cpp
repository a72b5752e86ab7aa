#include "platform/ProgramArguments.h"

#include "platform/Utf8.h"
#include "platform/windows/System.h"

#include <shellapi.h>

namespace XMLConfig {
namespace {

bool isHighSurrogate(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Three bytes that are no UTF-8: as U+FFFD the word would name another file, and nobody would notice.
std::string bytesOfLone(wchar_t surrogate) {
    const unsigned value = surrogate;
    return {'\xED', static_cast<char>(0x80 | ((value >> 6) & 0x3F)), static_cast<char>(0x80 | (value & 0x3F))};
}

std::string bytesOf(std::wstring_view word) {
    std::string bytes;
    while (!word.empty()) {
        const bool isPair = word.size() > 1 && isHighSurrogate(word[0]) && isLowSurrogate(word[1]);
        const bool isLone = !isPair && (isHighSurrogate(word[0]) || isLowSurrogate(word[0]));
        const std::wstring_view character = word.substr(0, isPair ? 2 : 1);
        bytes += isLone ? bytesOfLone(word[0]) : utf8FromWide(character);
        word.remove_prefix(character.size());
    }
    return bytes;
}

}  // namespace

std::vector<std::string> utf8Arguments(int /*count*/, char** /*words*/) {
    int count = 0;
    const std::unique_ptr<wchar_t*, detail::LocalMemory> words(::CommandLineToArgvW(::GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(bytesOf(words.get()[i]));
    return arguments;
}

}  // namespace XMLConfig
