#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <log4cxx/spi/loggingevent.h>

/// One line of the log: its logger's name, its level's name and its text, all UTF-8.
struct LogLine {
    std::string logger;
    std::string level;
    std::string text;

    bool operator==(const LogLine& other) const {
        return logger == other.logger && level == other.level && text == other.text;
    }
    friend std::ostream& operator<<(std::ostream& out, const LogLine& line) {
        return out << '{' << line.logger << ", " << line.level << ", " << line.text << '}';
    }
};

/// Gathers what the library logs, from TRACE up, as long as it lives.
class LogCapture {
public:
    LogCapture() : m_root(log4cxx::Logger::getLogger("Ulvano")), m_level(m_root->getLevel()) {
        m_root->setLevel(log4cxx::Level::getTrace());
        m_root->addAppender(m_appender);
        m_additivity = m_root->getAdditivity();
        m_root->setAdditivity(false);
    }
    ~LogCapture() {
        m_root->setAdditivity(m_additivity);
        m_root->removeAppender(m_appender);
        m_root->setLevel(m_level);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<LogLine>& lines() const { return m_appender->lines; }
    /// The lines of one logger.
    std::vector<LogLine> linesOf(const std::string& logger) const {
        std::vector<LogLine> found;
        for (const LogLine& line : lines())
            if (line.logger == logger) found.push_back(line);
        return found;
    }
    void clear() { m_appender->lines.clear(); }

private:
    class Appender : public log4cxx::AppenderSkeleton {
    public:
        void close() override {}
        bool requiresLayout() const override { return false; }

        std::vector<LogLine> lines;

    protected:
        void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool&) override {
            lines.push_back({event->getLoggerName(), event->getLevel()->toString(), event->getRenderedMessage()});
        }
    };

    log4cxx::LoggerPtr m_root;
    log4cxx::LevelPtr m_level;
    bool m_additivity = true;
    std::shared_ptr<Appender> m_appender = std::make_shared<Appender>();
};
