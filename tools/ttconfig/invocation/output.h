#pragma once

#include <string_view>

namespace ttconfig {

// Standard output, for answers alone: as long as it lives, whatever anybody else prints there (a script's print, say)
// goes to the standard error stream instead.
class Output {
public:
    Output();
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // Writes the whole text at once, unbuffered. False when nobody reads it any longer; throws Fault when it cannot be
    // written for another reason.
    bool write(std::string_view text);

    // Whether a person looks at it.
    bool isTerminal() const;

private:
    int descriptor;
};

}  // namespace ttconfig
