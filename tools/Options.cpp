#include "tools/Options.h"

#include <CLI/App.hpp>

namespace tool {

Option::Option(CLI::Option& option) : m_option(&option) {}

Option& Option::required() {
    m_option->required();
    return *this;
}

Option& Option::valueName(const std::string& name) {
    m_option->option_text((m_option->get_items_expected_max() == 0 ? "" : " ") + name);
    return *this;
}

Option& Option::separatedBy(char separator) {
    m_option->delimiter(separator)->allow_extra_args(false);
    return *this;
}

Option& Option::between(unsigned least, unsigned most) {
    m_option->check(CLI::Range(least, most));
    return *this;
}

Option& Option::oneOf(const std::vector<std::string>& words) {
    m_option->check(CLI::IsMember(words));
    return *this;
}

Option& Option::notEmpty(const std::string& fault) {
    m_option->check([fault](const std::string& text) { return text.empty() ? fault : std::string(); });
    return *this;
}

Option& Option::excludes(const Option& other) {
    m_option->excludes(other.m_option);
    return *this;
}

Options::Options(CLI::App& app) : m_app(app) {}

Option Options::flag(const std::string& names, bool& isGiven, const std::string& meaning) {
    return Option(*m_app.add_flag(names, isGiven, meaning));
}

Option Options::flag(const std::string& names, std::string& value, const std::string& meaning) {
    return Option(*m_app.add_flag(names, value, meaning));
}

Option Options::value(const std::string& names, std::string& value, const std::string& meaning) {
    return Option(*m_app.add_option(names, value, meaning));
}
Option Options::value(const std::string& names, std::optional<std::string>& value, const std::string& meaning) {
    return Option(*m_app.add_option(names, value, meaning));
}
Option Options::value(const std::string& names, std::optional<double>& value, const std::string& meaning) {
    return Option(*m_app.add_option(names, value, meaning));
}
Option Options::value(const std::string& names, unsigned& value, const std::string& meaning) {
    return Option(*m_app.add_option(names, value, meaning));
}
Option Options::value(const std::string& names, std::vector<std::string>& values, const std::string& meaning) {
    return Option(*m_app.add_option(names, values, meaning));
}

void Options::footer(const std::string& text) { m_app.footer(text); }

}  // namespace tool
