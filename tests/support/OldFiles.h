#pragma once

#include <string>
#include <vector>

#include "tests/support/RandomChoice.h"

/// A configuration file of some older release, well-formed but as odd as files get: missing and repeated items,
/// non-numbers, markup in values, repeated identifiers and MAC addresses, unknown camera types, sections without
/// identifiers, snippets that are there already, elements and comments that the library does not know.
struct OldFile {
    std::string text;
    double version = 0.0;
    /// Elements and comments that no conversion names, as they are written, in document order; those of camera
    /// sections that the conversion to 9.0 removes are left out.
    std::vector<std::string> kept;
};

/// Makes the same files from the same seed everywhere.
class OldFiles : RandomChoice {
public:
    explicit OldFiles(unsigned seed) : RandomChoice(seed) {}
    OldFile make();

private:
    std::string item(const std::string& key, const std::string& value) const;
    std::string items(const std::vector<const char*>& keys);
    std::string unknown(std::vector<std::string>& kept);
    std::string identifier();
    std::string projector(std::vector<std::string>& kept);
    std::string camera(std::vector<std::string>& kept);
    std::string fixed(const std::string& name, const std::vector<const char*>& keys, std::vector<std::string>& kept);
    std::string section(std::size_t kind, std::vector<std::string>& kept);

    unsigned m_unknown = 0;
};
