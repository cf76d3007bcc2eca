#pragma once

#include <sys/types.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"

namespace tests {

// A headless Chromium in a process of its own, spoken to through a pair of pipes in its debugging protocol. It reaches
// no network. Whatever goes wrong with it throws std::runtime_error, a minute without an answer as well.
class Browser {
public:
    // Whether there is a Chromium on this machine.
    static bool isInstalled();

    Browser();
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    ~Browser();

    // Opens a file and waits until it is loaded.
    void open(const std::string& path);

    // The value of an expression in the page; of a promise, what it comes to.
    nlohmann::json evaluate(const std::string& expression);
    std::string text(const std::string& expression) { return evaluate(expression).get<std::string>(); }

    // A key pressed and released, as a person does: "Tab", "ArrowDown", "/"; modifiers as the protocol has them.
    void press(const std::string& key, int modifiers = 0);
    // Text put in where the focus is.
    void type(const std::string& words);

    static constexpr int kControl = 2;

    // How the page is to be seen: scheme "light" or "dark", medium "screen" or "print".
    void show(const std::string& scheme, const std::string& medium = "screen");
    // The page on paper, as bytes of a PDF file in base 64.
    std::string printed();
    // Writes a picture of what is in sight.
    void takePicture(const std::string& path);

    // What scripts and the browser complained about since the page was opened, and every address that the page asked
    // for besides its own.
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
