#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryFolder.h"

/// While it lives, numbers of the C and of the C++ library have a decimal comma and points between
/// thousands.
class GermanLocale {
public:
    GermanLocale() : m_cppBefore(std::locale::global(std::locale(std::locale::classic(), new GermanNumbers))) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German_Germany.1252", "German"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) break;
        }
        if (!isOfTheCLibraryToo()) buildAndSet();
    }
    ~GermanLocale() {
        std::locale::global(m_cppBefore);
        std::setlocale(LC_ALL, "C");
    }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

    /// False where no such locale is installed and none can be built: then only the C++ library is German.
    static bool isOfTheCLibraryToo() { return std::string(std::localeconv()->decimal_point) == ","; }

private:
    struct GermanNumbers : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    static void buildAndSet() {
#if !defined(_WIN32)
        // Only the form of numbers is German: the whole locale takes seconds to build.
        static const TemporaryFolder folder;
        std::string source = "LC_NUMERIC\ncopy \"de_DE\"\nEND LC_NUMERIC\n";
        for (const std::string category : {"CTYPE", "COLLATE", "MONETARY", "MESSAGES", "TIME"}) {
            source += "LC_" + category + "\ncopy \"POSIX\"\nEND LC_" + category + "\n";
        }
        folder.write(L"source", source);
        const std::string path = folder.path().string();
        static const int built = std::system(
            ("localedef -c -i '" + path + "/source' -f UTF-8 '" + path + "/de_DE.UTF-8' > /dev/null 2>&1").c_str());
        if (built == -1) return;  // other results tell of the categories left out too; whether it serves is seen below
        const EnvironmentVariable place("LOCPATH", path);
        std::setlocale(LC_ALL, "de_DE.UTF-8");
#endif
    }

    std::locale m_cppBefore;
};
