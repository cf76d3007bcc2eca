#pragma once

#include <iostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace ttconfig {

// While it lives, holds back the lines about pieces of values that the store writes to standard error: every value of a
// key that is not a switch causes one, and real mistakes are reported elsewhere. Other lines are passed on at the end.
// A value of a million bad pieces causes a million lines, so those are dropped at once.
class QuietLoad {
public:
    QuietLoad() : screen(std::cerr.rdbuf(&lines)) {}
    QuietLoad(const QuietLoad&) = delete;
    QuietLoad& operator=(const QuietLoad&) = delete;
    ~QuietLoad() {
        std::cerr.rdbuf(screen);
        std::cerr << lines.others();
    }

private:
    class OtherLines : public std::streambuf {
    public:
        // A last line without an end gets one.
        std::string others() {
            if (!open.empty()) write("\n");
            return kept;
        }

    protected:
        std::streamsize xsputn(const char* bytes, std::streamsize count) override {
            write({bytes, static_cast<std::size_t>(count)});
            return count;
        }
        int_type overflow(int_type byte) override {
            const char written = traits_type::to_char_type(byte);
            if (!traits_type::eq_int_type(byte, traits_type::eof())) write({&written, 1});
            return traits_type::not_eof(byte);
        }

    private:
        void write(std::string_view bytes) {
            for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
                open.append(bytes.substr(0, end + 1));
                if (open.rfind("get bson value error, ", 0) != 0) kept += open;
                open.clear();
                bytes.remove_prefix(end + 1);
            }
            open.append(bytes);
        }

        std::string open;
        std::string kept;
    };

    OtherLines lines;
    std::streambuf* screen;
};

}  // namespace ttconfig
