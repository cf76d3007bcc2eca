#pragma once

#include <sys/types.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"

namespace tests {

// A headless Chromium in a child process, controlled through two pipes with its debugging protocol. It has no network
// access. Any failure throws std::runtime_error, as does a minute without an answer.
class Browser {
public:
    // Whether Chromium is installed.
    static bool isInstalled();

    Browser();
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    ~Browser();

    // Opens a file and waits until it is loaded.
    void open(const std::string& path);

    // The value of an expression in the page; for a promise, its result.
    nlohmann::json evaluate(const std::string& expression);
    std::string text(const std::string& expression) { return evaluate(expression).get<std::string>(); }

    // Presses and releases a key: "Tab", "ArrowDown", "/"; modifiers as in the protocol.
    void press(const std::string& key, int modifiers = 0);
    // Inserts text at the focus.
    void type(const std::string& words);

    static constexpr int kControl = 2;

    // Sets how the page is shown: scheme "light" or "dark", medium "screen" or "print".
    void show(const std::string& scheme, const std::string& medium = "screen");
    // The printed page, as a PDF file in base 64.
    std::string printed();
    // Saves a picture of the visible part.
    void takePicture(const std::string& path);

    // Complaints of scripts and the browser since the page was opened, and every address that the page requested
    // besides its own.
    std::vector<std::string> complaints();

private:
    nlohmann::json call(const std::string& method, const nlohmann::json& parameters = nlohmann::json::object());
    std::string firstPage();
    nlohmann::json nextMessage();
    void send(const nlohmann::json& message);
    void note(const nlohmann::json& event);
    void waitFor(const std::string& event);

    TempFolder profile;
    pid_t process = -1;
    int toBrowser = -1;
    int fromBrowser = -1;
    int lastId = 0;
    std::string session;
    std::string received;
    std::string address;
    std::vector<std::string> seenEvents;
    std::vector<std::string> complained;
};

}  // namespace tests
