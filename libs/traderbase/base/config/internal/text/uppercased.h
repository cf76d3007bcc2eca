#pragma once

#include <algorithm>
#include <string>

#include <ttplatform/text.h>

// Markets and codes in upper case, which is how limit tables hold them and how they mostly come.

namespace ttservice::internal {

// The text in upper case. Where there is no letter to change it is the text itself, uncopied, and has to outlive this.
class UpperCased {
public:
    explicit UpperCased(const std::string& text) : upper(&text) {
        if (isUnchanged(text)) return;
        changed = utils::toUpper(text);
        upper = &changed;
    }
    UpperCased(const UpperCased&) = delete;
    UpperCased& operator=(const UpperCased&) = delete;

    const std::string& text() const { return *upper; }

private:
    // Bytes above 127 are left to the platform to say.
    static bool isUnchanged(const std::string& text) {
        return std::none_of(text.begin(), text.end(),
                            [](unsigned char c) { return (c >= 'a' && c <= 'z') || c > 127; });
    }

    std::string changed;
    const std::string* upper;
};

}  // namespace ttservice::internal
