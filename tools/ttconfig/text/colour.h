#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// The values of --color.
enum class Colouring { Auto, Always, Never };

// What a piece of an answer is, which decides its colour.
enum class Tint {
    Place,  // file:line:column
    Error,  // a severity
    Warning,
    Note,
    Good,     // what appeared, came true or passed
    Bad,      // what disappeared, became false or failed
    Heading,  // a heading above other lines
    Dim,      // less important details
};

// Colours pieces of an answer, or leaves them unchanged.
class Colours {
public:
    // Leaves everything unchanged.
    Colours() = default;
    explicit Colours(bool inColour) : on(inColour) {}

    // The piece between the codes that switch its colour on and off; an empty piece stays empty.
    std::string operator()(Tint tint, std::string_view piece) const;

    bool areOn() const { return on; }

private:
    bool on = false;
};

}  // namespace ttconfig
