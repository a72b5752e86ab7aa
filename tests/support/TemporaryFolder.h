#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

#include "platform/Text.h"

/// A path as the library takes it and back; the standard library's own conversion fails under the "C" locale.
inline std::wstring wideOf(const std::filesystem::path& path) { return XMLConfig::detail::fromUtf8(path.u8string()); }
inline std::filesystem::path pathOf(const std::wstring& path) {
    return std::filesystem::u8path(XMLConfig::detail::toUtf8(path));
}

/// A folder of a test's own below the temporary folder; gone with everything in it when destroyed.
class TemporaryFolder {
public:
    TemporaryFolder() {
        static std::atomic<unsigned> made{0};
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() /
                     ("xmlconfig-test-" + std::to_string(random()) + "-" + std::to_string(made++));
        } while (!std::filesystem::create_directory(m_path));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    /// The full path of a file of that name (it need not exist).
    std::filesystem::path at(const std::wstring& name) const { return m_path / pathOf(name); }
    /// The same as the library takes it.
    std::wstring file(const std::wstring& name) const { return wideOf(at(name)); }
    /// Writes a file and returns its full path.
    std::wstring write(const std::wstring& name, const std::string& bytes) const {
        std::ofstream out(at(name), std::ios::binary | std::ios::trunc);
        out << bytes;
        out.close();
        if (!out) throw std::runtime_error("cannot write a test file");
        return file(name);
    }
    std::string read(const std::wstring& name) const { return readFile(at(name)); }
    bool has(const std::wstring& name) const { return std::filesystem::exists(std::filesystem::symlink_status(at(name))); }
    /// Number of entries in the folder, hidden ones included.
    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(m_path), std::filesystem::directory_iterator()));
    }

    static std::string readFile(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        if (!in) throw std::runtime_error("cannot read a test file");
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

private:
    std::filesystem::path m_path;
};
