#include "platform/Terminal.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <streambuf>
#include <string>

#include "platform/Utf8.h"
#include "platform/windows/System.h"

#include <fcntl.h>
#include <io.h>

namespace XMLConfig::detail {
namespace {

constexpr DWORD followsSequences = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which older headers lack

bool isConsole(DWORD stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0;
}

bool isTerminal(DWORD stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0 && (mode & followsSequences) != 0;
}

/// Wide text, for the console's code page lacks characters, and in pieces that it takes, none of which cuts a character.
bool writeToConsole(DWORD stream, std::string_view text) {
    constexpr std::size_t mostAtOnce = 8000;
    const std::wstring wide = wideFromUtf8(text);
    for (std::size_t at = 0; at < wide.size();) {
        std::size_t count = std::min(mostAtOnce, wide.size() - at);
        const bool isCut = at + count < wide.size() && wide[at + count - 1] >= 0xD800 && wide[at + count - 1] <= 0xDBFF;
        if (isCut) --count;
        DWORD written = 0;
        if (::WriteConsoleW(::GetStdHandle(stream), wide.data() + at, static_cast<DWORD>(count), &written, nullptr) == 0 ||
            written == 0)
            return false;
        at += written;
    }
    return true;
}

/// Gathers what a stream writes until it is flushed, so that no character reaches the console in two parts.
class ConsoleBuffer : public std::streambuf {
public:
    ConsoleBuffer(std::ostream& of, DWORD stream) : m_of(of), m_stream(stream), m_before(of.rdbuf(this)) {
        DWORD mode = 0;
        if (::GetConsoleMode(::GetStdHandle(stream), &mode) != 0)
            ::SetConsoleMode(::GetStdHandle(stream), mode | followsSequences);
    }
    ~ConsoleBuffer() override {
        m_of.flush();
        m_of.rdbuf(m_before);
    }
    ConsoleBuffer(const ConsoleBuffer&) = delete;
    ConsoleBuffer& operator=(const ConsoleBuffer&) = delete;

protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        m_text.append(text, static_cast<std::size_t>(size));
        return size;
    }
    int_type overflow(int_type character) override {
        if (!traits_type::eq_int_type(character, traits_type::eof())) m_text += traits_type::to_char_type(character);
        return traits_type::not_eof(character);
    }
    int sync() override {
        const bool isWritten = writeToConsole(m_stream, m_text);
        m_text.clear();
        return isWritten ? 0 : -1;
    }

private:
    std::ostream& m_of;
    DWORD m_stream;
    std::streambuf* m_before;
    std::string m_text;
};

}  // namespace

bool isErrorATerminal() { return isTerminal(STD_ERROR_HANDLE); }
bool isOutputATerminal() { return isTerminal(STD_OUTPUT_HANDLE); }

void writeToError(std::string_view text) {
    if (isConsole(STD_ERROR_HANDLE)) {
        writeToConsole(STD_ERROR_HANDLE, text);
    } else {
        std::fwrite(text.data(), 1, text.size(), stderr);
        std::fflush(stderr);
    }
}

void prepareStandardStreams() {
    for (std::FILE* const file : {stdin, stdout, stderr}) ::_setmode(::_fileno(file), _O_BINARY);
    if (isConsole(STD_OUTPUT_HANDLE)) static ConsoleBuffer output(std::cout, STD_OUTPUT_HANDLE);
    if (isConsole(STD_ERROR_HANDLE)) static ConsoleBuffer errors(std::cerr, STD_ERROR_HANDLE);
}

void outliveReader() {}

}  // namespace XMLConfig::detail
