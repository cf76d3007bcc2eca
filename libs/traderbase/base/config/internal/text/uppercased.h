#pragma once

#include <algorithm>
#include <string>

#include <ttplatform/text.h>

// Markets and codes in upper case, as limit tables store them. Most of them already are.

namespace ttservice::internal {

// The text in upper case. If there is nothing to change, it refers to the original, which must outlive it.
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
    // For bytes above 127 the platform decides.
    static bool isUnchanged(const std::string& text) {
        return std::none_of(text.begin(), text.end(),
                            [](unsigned char c) { return (c >= 'a' && c <= 'z') || c > 127; });
    }

    std::string changed;
    const std::string* upper;
};

}  // namespace ttservice::internal
