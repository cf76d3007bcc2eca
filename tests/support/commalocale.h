#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

#include "tests/support/tempfile.h"

namespace tests {

// While it lives, the process's C locale has a decimal comma, and its C++ locale also groups digits. When no such
// locale is installed, the system's localedef compiles one into a folder of its own.
class CommaLocale {
public:
    CommaLocale() : grouped(std::locale::global(std::locale(std::locale::classic(), new Digits))) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) return;
        }
        const std::string target = folder.path("de_DE.UTF-8");
        const std::string command = "localedef -i de_DE -f UTF-8 '" + target + "' >/dev/null 2>&1";
        if (std::system(command.c_str()) > 1) return;   // NOLINT(cert-env33-c): 1 means warnings
        setenv("LOCPATH", folder.path("").c_str(), 1);  // NOLINT(concurrency-mt-unsafe): before any thread
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::setlocale(LC_ALL, "C");
        std::locale::global(grouped);
    }

    // Whether the C library now writes a decimal comma.
    bool isSet() const { return std::string(std::localeconv()->decimal_point) == ","; }

private:
    struct Digits : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    TempFolder folder;
    std::locale grouped;
};

}  // namespace tests
