#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

#include "tests/support/TemporaryFolder.h"

/// While it lives, numbers of the C and of the C++ library have a decimal comma, points between thousands and German texts.
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
        static const TemporaryFolder folder;
        static const std::string command =
            "localedef -i de_DE -f UTF-8 '" + (folder.path() / "de_DE.UTF-8").string() + "' > /dev/null 2>&1";
        static const int built = std::system(command.c_str());
        if (built != 0) return;
        ::setenv("LOCPATH", folder.path().c_str(), 1);
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        ::unsetenv("LOCPATH");
#endif
    }

    std::locale m_cppBefore;
};
