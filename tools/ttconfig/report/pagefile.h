#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// A file that is written whole or not at all: beside the place where it is wanted, and put there in the end. What stood
// there before stays as it is until then. A link is followed.
class PageFile {
public:
    // Throws Fault when something else than a file stands there and when no file can be made beside it.
    explicit PageFile(const std::string& path);
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;
    // Leaves no trace of a file that was not finished.
    ~PageFile();

    // Throws Fault when it cannot be written, because the disk is full for example.
    void write(std::string_view text);

    // Puts the file in its place. Throws Fault when that cannot be done.
    void finish();

private:
    [[noreturn]] void fail(int error);

    std::string shownPath;  // as it was given
    std::string target;
    std::string draft;
    int descriptor = -1;
};

}  // namespace ttconfig
