#pragma once

#include <string_view>

namespace ttconfig {

// The files of page/, which the build puts into the program.
struct PagePieces {
    std::string_view markup;  // with @POLICY@, @TITLE@, @STYLE@, @DATA@ and @SCRIPT@ where the rest belongs
    std::string_view style;
    std::string_view script;
    std::string_view styleHash;  // "sha256-...", as a content security policy names what it lets in
    std::string_view scriptHash;
};

extern const PagePieces kPagePieces;

}  // namespace ttconfig
