#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ttplatform/export.h"

namespace utils {

// Reader of an INI-style settings file. Filled by one parse(), asked afterwards; any number of threads may ask at once.
//
// What the configuration library relies on, and so what a host's own reader must keep:
//  - sections and keys are matched exactly as written, letter case included;
//  - values are handed out as the file's bytes, without conversion;
//  - of a key that a section holds more than once, read() answers the first and getProperties() lists it once,
//    at its first place; a section that appears again continues the earlier one.
class TTPLATFORM_API Configuration {
public:
    // An empty configuration. Both arguments are taken for the sake of existing callers and change nothing.
    explicit Configuration(const std::string& path = std::string(), bool flag = true);
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration();

    // Reads the file at path and replaces what was read before. False when it is not a readable regular file; the
    // configuration is then empty. Memory that runs out, the system's for an open file included, is std::bad_alloc and
    // never false: callers take false for a file that says nothing, and every setting falls back to its default.
    bool parse(std::string path);

    // The keys of a section, each once, in file order; empty for a section that the file does not have.
    std::vector<std::string> getProperties(const std::string& section) const;

    // The value of a key; empty for a missing section or key.
    std::string read(const std::string& section, const std::string& key) const;

    // The value as a 32-bit decimal integer, an optional sign and digits and nothing else; fallback for a missing key
    // and for any other text.
    int readInt(const std::string& section, const std::string& key, int fallback) const;

    // The value as a decimal number in the form 1, -0.5 or 2.5e3; fallback for a missing key and for any other text.
    // The decimal sign is the point, whatever the process's locale.
    double readDouble(const std::string& section, const std::string& key, double fallback) const;

private:
    struct Contents;
    std::unique_ptr<Contents> contents;
};

}  // namespace utils
