#include "tests/tools/ttconfig/report/browser.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tests {

namespace {

using Json = nlohmann::json;

constexpr int kMostMilliseconds = 60000;

// Chromium takes commands on descriptor 3 and answers on 4.
[[noreturn]] void becomeBrowser(int commands, int answers, const std::string& profile) {
    // Move the pipes out of the way of descriptors 3 and 4.
    const int in = fcntl(commands, F_DUPFD, 10);
    const int out = fcntl(answers, F_DUPFD, 10);
    dup2(in, 3);
    dup2(out, 4);
    const int nowhere = open("/dev/null", O_RDWR);
    for (int stream = 0; stream < 3; ++stream)
        dup2(nowhere, stream);
    setenv("HOME", profile.c_str(), 1);
    const std::string data = "--user-data-dir=" + profile;
    execlp("chromium", "chromium", "--headless", "--no-sandbox", "--disable-gpu", "--remote-debugging-pipe",
           "--window-size=1400,900", "--host-resolver-rules=MAP * ~NOTFOUND", "--disable-background-networking",
           "--disable-dev-shm-usage", "--no-first-run", data.c_str(), "about:blank", nullptr);
    _exit(127);
}

// What the protocol needs to know about a key besides its name.
int keyCode(const std::string& key) {
    static const std::pair<const char*, int> kCodes[] = {
        {"Tab", 9},         {"Enter", 13},     {"Escape", 27}, {" ", 32},         {"PageUp", 33},
        {"PageDown", 34},   {"End", 35},       {"Home", 36},   {"ArrowLeft", 37}, {"ArrowUp", 38},
        {"ArrowRight", 39}, {"ArrowDown", 40}, {"/", 191}};
    for (const auto& [name, code] : kCodes) {
        if (key == name) return code;
    }
    throw std::runtime_error("no code for the key " + key);
}

// The text at a path in a message; empty when there is none.
std::string textAt(const Json& message, const char* place) {
    const Json::json_pointer pointer(place);
    if (!message.contains(pointer)) return {};
    const Json& text = message.at(pointer);
    return text.is_string() ? text.get<std::string>() : std::string();
}

std::string bytesOfBase64(const std::string& text) {
    static const std::string kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char letter : text) {
        const auto value = kLetters.find(letter);
        if (value == std::string::npos) break;
        bits = (bits << 6U | static_cast<unsigned>(value)) & 0xFFFFFFU;
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> static_cast<unsigned>(count) & 0xFFU);
    }
    return bytes;
}

}  // namespace

bool Browser::isInstalled() {
    return std::system("command -v chromium >/dev/null 2>&1") == 0;  // NOLINT(cert-env33-c)
}

Browser::Browser() {
    std::array<int, 2> commands{};
    std::array<int, 2> answers{};
    if (pipe(commands.data()) != 0 || pipe(answers.data()) != 0) throw std::runtime_error("no pipe");
    std::signal(SIGPIPE, SIG_IGN);
    process = fork();
    if (process == 0) becomeBrowser(commands[0], answers[1], profile.path(""));
    close(commands[0]);
    close(answers[1]);
    toBrowser = commands[1];
    fromBrowser = answers[0];
    fcntl(toBrowser, F_SETFD, FD_CLOEXEC);
    fcntl(fromBrowser, F_SETFD, FD_CLOEXEC);
    session = call("Target.attachToTarget", {{"targetId", firstPage()}, {"flatten", true}}).at("sessionId");
    for (const char* domain : {"Page", "Runtime", "Network", "Log"})
        call(std::string(domain) + ".enable");
}

Browser::~Browser() {
    close(toBrowser);  // Chromium exits when its command pipe closes
    close(fromBrowser);
    for (int i = 0; i < 50 && waitpid(process, nullptr, WNOHANG) == 0; ++i)
        usleep(100000);
    if (kill(process, 0) == 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

// Chromium's initial page, the only one that is painted as a person would see it.
std::string Browser::firstPage() {
    for (int i = 0; i < 100; ++i, usleep(50000)) {
        const Json targets = call("Target.getTargets");
        for (const Json& target : targets.at("targetInfos")) {
            if (target.at("type") == "page") return target.at("targetId");
        }
    }
    throw std::runtime_error("Chromium has no page");
}

void Browser::open(const std::string& path) {
    address = "file://" + path;
    complained.clear();
    seenEvents.clear();
    call("Page.navigate", {{"url", address}});
    waitFor("Page.loadEventFired");
}

Json Browser::evaluate(const std::string& expression) {
    const Json answer =
        call("Runtime.evaluate", {{"expression", expression}, {"awaitPromise", true}, {"returnByValue", true}});
    if (answer.contains("exceptionDetails")) throw std::runtime_error(answer.at("exceptionDetails").dump());
    const Json& result = answer.at("result");
    return result.contains("value") ? result.at("value") : Json();
}

void Browser::press(const std::string& key, int modifiers) {
    Json event = {{"type", "keyDown"}, {"key", key}, {"windowsVirtualKeyCode", keyCode(key)}, {"modifiers", modifiers}};
    if (key == "/" || key == " ") event["text"] = key;
    if (key == "Enter") event["text"] = "\r";
    call("Input.dispatchKeyEvent", event);
    event["type"] = "keyUp";
    event.erase("text");
    call("Input.dispatchKeyEvent", event);
}

void Browser::type(const std::string& words) {
    call("Input.insertText", {{"text", words}});
}

void Browser::show(const std::string& scheme, const std::string& medium) {
    const Json feature = {{"name", "prefers-color-scheme"}, {"value", scheme}};
    call("Emulation.setEmulatedMedia", {{"media", medium}, {"features", Json::array({feature})}});
}

std::string Browser::printed() {
    return call("Page.printToPDF").at("data").get<std::string>();
}

void Browser::takePicture(const std::string& path) {
    std::ofstream(path, std::ios::binary) << bytesOfBase64(call("Page.captureScreenshot").at("data"));
}

std::vector<std::string> Browser::complaints() {
    // When this question has been answered, pending events have arrived.
    evaluate("new Promise((done) => setTimeout(done, 50))");
    return complained;
}

Json Browser::call(const std::string& method, const Json& parameters) {
    Json message = {{"id", ++lastId}, {"method", method}, {"params", parameters}};
    if (!session.empty()) message["sessionId"] = session;
    send(message);
    while (true) {
        const Json answer = nextMessage();
        if (!answer.contains("id") || answer.at("id") != lastId) {
            note(answer);
            continue;
        }
        if (answer.contains("error")) throw std::runtime_error(method + ": " + answer.at("error").dump());
        return answer.at("result");
    }
}

void Browser::send(const Json& message) {
    const std::string text = message.dump() + '\0';
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t written = write(toBrowser, text.data() + done, text.size() - done);
        if (written <= 0) throw std::runtime_error("Chromium takes no commands");
        done += static_cast<std::size_t>(written);
    }
}

Json Browser::nextMessage() {
    while (received.find('\0') == std::string::npos) {
        pollfd waiting{fromBrowser, POLLIN, 0};
        if (poll(&waiting, 1, kMostMilliseconds) != 1) throw std::runtime_error("Chromium does not answer");
        std::array<char, 1 << 16> piece{};
        const ssize_t count = read(fromBrowser, piece.data(), piece.size());
        if (count <= 0) throw std::runtime_error("Chromium has ended");
        received.append(piece.data(), static_cast<std::size_t>(count));
    }
    const std::size_t end = received.find('\0');
    Json message = Json::parse(received.substr(0, end));
    received.erase(0, end + 1);
    return message;
}

void Browser::note(const Json& event) {
    const std::string method = textAt(event, "/method");
    seenEvents.push_back(method);
    if (method == "Runtime.exceptionThrown" || method == "Log.entryAdded" || method == "Runtime.consoleAPICalled") {
        complained.push_back(event.dump());
    }
    if (method == "Network.requestWillBeSent" || method == "Network.webSocketCreated") {
        const std::string url = textAt(event, "/params/request/url");
        if (url.substr(0, url.find('#')) != address) complained.push_back("asks for " + url);
    }
}

void Browser::waitFor(const std::string& event) {
    while (std::find(seenEvents.begin(), seenEvents.end(), event) == seenEvents.end())
        note(nextMessage());
}

}  // namespace tests
