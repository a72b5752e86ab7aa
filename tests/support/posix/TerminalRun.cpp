#include "tests/support/TerminalRun.h"

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

#include "tests/support/ToolRun.h"

namespace {

/// The file descriptors of a terminal: the side that shows what the programs at the other side write.
class Terminal {
public:
    Terminal() : m_screen(::posix_openpt(O_RDWR | O_NOCTTY)) {
        if (m_screen < 0 || ::grantpt(m_screen) != 0 || ::unlockpt(m_screen) != 0) return;
        const char* const name = ::ptsname(m_screen);  // NOLINT(concurrency-mt-unsafe)
        if (name == nullptr) return;
        m_name = name;
        m_kept = ::open(name, O_RDWR | O_NOCTTY);
    }
    ~Terminal() {
        if (m_kept >= 0) ::close(m_kept);
        if (m_screen >= 0) ::close(m_screen);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    [[nodiscard]] bool isThere() const { return m_kept >= 0; }
    [[nodiscard]] const std::string& name() const { return m_name; }

    /// What was written so far. The system hands it on in its own time: all of it has come when the mark after it has.
    [[nodiscard]] std::string shown() const {
        const std::string mark = "<end>";
        std::string text;
        std::size_t end = std::string::npos;
        for (ssize_t size = ::write(m_kept, mark.data(), mark.size()); size > 0 && end == std::string::npos;) {
            char piece[4096];
            size = ::read(m_screen, piece, sizeof piece);
            if (size > 0) text.append(piece, static_cast<std::size_t>(size));
            end = text.find(mark);
        }
        return text.substr(0, end);
    }

private:
    int m_screen;
    int m_kept = -1;
    std::string m_name;
};

}  // namespace

std::optional<TerminalRun> runOnATerminal(const std::vector<std::string>& arguments, ToTerminal stream,
                                          const std::string& environment) {
    const Terminal terminal;
    if (!terminal.isThere()) return std::nullopt;
    std::string command = environment + " " + shellQuoted(toolPath());
    for (const std::string& argument : arguments) command += " " + shellQuoted(argument);
    const bool isOutput = stream == ToTerminal::Output;
    command += " > " + (isOutput ? terminal.name() : "/dev/null") + " 2> " + (isOutput ? "/dev/null" : terminal.name());
    const int status = shellStatus(command);
    return TerminalRun{status, terminal.shown()};
}
