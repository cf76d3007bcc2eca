#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ttplatform/export.h"

namespace utils {

// Reader of an INI-style settings file. Call parse() once, then query; any number of threads may query at once.
//
// The configuration library relies on these rules, so a host's own reader must keep them:
//  - sections and keys match exactly as written, including letter case;
//  - values are the file's bytes, without conversion;
//  - when a section holds a key more than once, read() returns the first value, and getProperties() lists the key once,
//    at its first place; a section that appears again continues the earlier one.
class TTPLATFORM_API Configuration {
public:
    // An empty configuration. Both arguments exist for the sake of existing callers and have no effect.
    explicit Configuration(const std::string& path = std::string(), bool flag = true);
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration();

    // Reads the file at path and replaces what was read before. Returns false when it is not a readable regular file;
    // the configuration is then empty. When memory runs out, including the system's memory for opening the file, it
    // throws std::bad_alloc and never returns false: callers treat false as an empty file, so every setting would fall
    // back to its default.
    bool parse(std::string path);

    // The keys of a section, each once, in file order; empty when the file has no such section.
    std::vector<std::string> getProperties(const std::string& section) const;

    // The value of a key; empty for a missing section or key.
    std::string read(const std::string& section, const std::string& key) const;

    // The value as a 32-bit decimal integer: an optional sign, digits, and nothing else. Returns fallback for a missing
    // key and for any other text.
    int readInt(const std::string& section, const std::string& key, int fallback) const;

    // The value as a decimal number of the form 1, -0.5 or 2.5e3. Returns fallback for a missing key and for any other
    // text. The decimal separator is a point in every locale.
    double readDouble(const std::string& section, const std::string& key, double fallback) const;

private:
    struct Contents;
    std::unique_ptr<Contents> contents;
};

}  // namespace utils
