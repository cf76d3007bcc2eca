#pragma once

#include <string_view>

namespace ttconfig {

// The files of page/, which the build embeds in the program.
struct PagePieces {
    std::string_view markup;  // with the placeholders @POLICY@, @TITLE@, @STYLE@, @DATA@ and @SCRIPT@
    std::string_view style;
    std::string_view script;
    std::string_view styleHash;  // "sha256-...", as content security policies name what they allow
    std::string_view scriptHash;
};

extern const PagePieces kPagePieces;

}  // namespace ttconfig
