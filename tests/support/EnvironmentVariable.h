#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// A variable of this process's environment for as long as a test needs it; then what it was before.
class EnvironmentVariable {
public:
    /// Not set.
    explicit EnvironmentVariable(const std::string& name) : m_name(name), m_before(valueOf(name)) { unset(); }
    EnvironmentVariable(const std::string& name, const std::string& value) : EnvironmentVariable(name) { set(value); }
    ~EnvironmentVariable() {
        if (m_before) set(*m_before);
        else unset();
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

    std::optional<std::string> value() const { return valueOf(m_name); }

    static std::optional<std::string> valueOf(const std::string& name) {
        const char* const value = std::getenv(name.c_str());
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

private:
#ifdef _WIN32
    void set(const std::string& value) const { _putenv_s(m_name.c_str(), value.c_str()); }
    void unset() const { _putenv_s(m_name.c_str(), ""); }
#else
    void set(const std::string& value) const { setenv(m_name.c_str(), value.c_str(), 1); }
    void unset() const { unsetenv(m_name.c_str()); }
#endif

    std::string m_name;
    std::optional<std::string> m_before;
};
