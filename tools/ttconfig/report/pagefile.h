#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// A file that is written completely or not at all: the draft is written beside its target and replaces it at the end.
// The old file stays in place until then. Links are followed.
class PageFile {
public:
    // Throws Fault when something other than a file is there, and when no draft can be created beside it.
    explicit PageFile(const std::string& path);
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;
    // Removes the draft of a file that was not finished.
    ~PageFile();

    // Throws Fault when writing fails, for example because the disk is full.
    void write(std::string_view text);

    // Moves the draft to its target. Throws Fault when that fails.
    void finish();

private:
    [[noreturn]] void fail(int error);

    std::string shownPath;  // as given
    std::string target;
    std::string draft;
    int descriptor = -1;
};

}  // namespace ttconfig
