#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace ttconfig {

// The text made safe between tags: &, <, > and quotes become entities, bytes that are not UTF-8 become U+FFFD.
std::string markupText(std::string_view text);

// Streams JSON into a script element: no text in it can end the element or start a comment, and bytes that are not
// UTF-8 become U+FFFD. Holds only a small buffer, however long the output. Members and elements of the two outer levels
// start a new line. Callers must end what they begin, and write names only where names belong.
class JsonStream {
public:
    using Sink = std::function<void(std::string_view)>;

    explicit JsonStream(Sink whereTo);
    JsonStream(const JsonStream&) = delete;
    JsonStream& operator=(const JsonStream&) = delete;

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    void name(std::string_view memberName);

    void text(std::string_view value);
    void integer(std::int64_t value);
    // NaN and infinities, which JSON cannot write as numbers, are written as texts.
    void decimal(double value);
    void flag(bool value);
    void null();
    // Writes a value that is JSON already.
    void written(std::string_view json);

    // Passes the rest of the buffer to the sink.
    void flush();

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void put(std::string_view piece);
    void putEscaped(std::string_view value);

    Sink sink;
    std::string buffer;
    int depth = 0;
    bool needsComma = false;
    bool followsName = false;
};

}  // namespace ttconfig
