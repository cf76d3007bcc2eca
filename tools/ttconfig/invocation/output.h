#pragma once

#include <string_view>

namespace ttconfig {

// Standard output, reserved for answers: while this object lives, anything else printed there (by a script's print,
// say) goes to standard error instead.
class Output {
public:
    Output();
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // Writes the whole text at once, unbuffered. Returns false when the reader has gone; throws Fault when writing
    // fails for any other reason.
    bool write(std::string_view text);

    bool isTerminal() const;

private:
    int descriptor;
};

}  // namespace ttconfig
