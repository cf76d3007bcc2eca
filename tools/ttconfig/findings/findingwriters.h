#pragma once

#include <standin/settingstext.h>

#include <string>
#include <string_view>

#include "ttconfig/findings/finding.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/text/colour.h"

namespace ttconfig {

// Writes findings as they come, file by file and in pieces, so that memory does not grow with their number.
class FindingWriter {
public:
    explicit FindingWriter(Output& target) : output(target) {}
    virtual ~FindingWriter() = default;
    FindingWriter(const FindingWriter&) = delete;
    FindingWriter& operator=(const FindingWriter&) = delete;

    virtual void begin() {}
    // The text must live until the next file begins.
    virtual void beginFile(const std::string& path, const standin::SettingsText& text) = 0;
    virtual void add(const Finding& finding) = 0;
    // A file that cannot be checked; the message says why and is also reported elsewhere.
    virtual void addUnusable(const std::string& /*path*/, const std::string& /*message*/) {}
    // more says in words what was left out; empty when nothing was.
    virtual void endFile(const std::string& /*more*/) {}
    virtual void end() {}

    // Writes what is still buffered. Returns false when the reader has gone.
    bool flush();

protected:
    void write(std::string_view text);

private:
    Output& output;
    std::string waiting;
    bool isRead = true;
};

// Writes "file:line:column: severity: message [rule]" for each finding, and a line for each file without any. Control
// characters in file names become escapes, as in messages.
class TextWriter : public FindingWriter {
public:
    TextWriter(Output& target, Colours inColours) : FindingWriter(target), colours(inColours) {}

    void beginFile(const std::string& path, const standin::SettingsText& text) override;
    void add(const Finding& finding) override;
    void endFile(const std::string& more) override;

private:
    const Colours colours;
    std::string file;
    bool any = false;
};

// Writes one array of objects.
class JsonWriter : public FindingWriter {
public:
    explicit JsonWriter(Output& target) : FindingWriter(target) {}

    void begin() override;
    void beginFile(const std::string& path, const standin::SettingsText& text) override;
    void add(const Finding& finding) override;
    void end() override;

private:
    std::string file;  // as JSON
    bool any = false;
};

}  // namespace ttconfig
