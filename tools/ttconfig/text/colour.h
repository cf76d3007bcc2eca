#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// What --color says.
enum class Colouring { Auto, Always, Never };

// What a piece of an answer is, as far as colour is concerned.
enum class Tint {
    Place,  // file:line:column
    Error,  // the word of a severity
    Warning,
    Note,
    Good,     // what appeared, came true or passed
    Bad,      // what disappeared, became false or failed
    Heading,  // a name above others
    Dim,      // what need not be read
};

// Puts pieces of an answer in colour, or leaves them as they are.
class Colours {
public:
    // Leaves everything as it is.
    Colours() = default;
    explicit Colours(bool inColour) : on(inColour) {}

    // The piece with what switches the colour on and off around it; an empty piece stays empty.
    std::string operator()(Tint tint, std::string_view piece) const;

    bool areOn() const { return on; }

private:
    bool on = false;
};

}  // namespace ttconfig
