// The session protocol on arbitrary lines: each is answered by one line of well-formed JSON that follows the protocol
// and carries the request's id.

#include "ttconfig/asking/session.h"

#include <standin/platformdatafile.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "fuzz/session/sessioncalls.h"
#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/target.h"

namespace {

using fuzz::require;
using Json = nlohmann::json;

// Creates and enters a client's folder, once, with the samples and the files that the golden sessions use.
void enterFolder() {
    static const fuzz::ScratchFolder folder;
    static const bool isFilled = [] {
        constexpr const char* kSamples = TT_SOURCE_DIR "/samples/";
        constexpr const char* kSessions = TT_SOURCE_DIR "/tests/tools/ttconfig/sessions/";
        folder.copy(kSessions + std::string("settings"), "bin");
        folder.copy(kSessions + std::string("luaScripts"), "luaScripts");
        folder.copy(kSamples + std::string("settings.ini"), "bin");
        folder.copy(kSamples + std::string("luaScripts"), "bin");
        std::string error;
        return standin::installPlatformFile(kSamples + std::string("platform.json"), error);
    }();
    require(isFilled, "the sample platform loads");
}

// Finds the place where the parser rejects a text because a number is too large for a double.
struct WideNumber : nlohmann::json_sax<Json> {
    std::size_t end = 0;
    std::string digits;

    bool null() override { return true; }
    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(number_integer_t /*value*/) override { return true; }
    bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
    bool string(string_t& /*value*/) override { return true; }
    bool binary(binary_t& /*value*/) override { return true; }
    bool start_object(std::size_t /*size*/) override { return true; }
    bool key(string_t& /*value*/) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t /*size*/) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t position, const std::string& token, const Json::exception& trouble) override {
        constexpr int kNumberOverflow = 406;
        if (trouble.id == kNumberOverflow) {
            end = position;
            digits = token;
        }
        return false;
    }
};

// Parses a request line, with null for each number too large for a double; discarded if the line is not JSON.
Json readRequest(std::string_view line) {
    // The JSON library treats a NUL as the end of the text; the session does not.
    if (line.find('\0') != std::string_view::npos) return Json(Json::value_t::discarded);
    std::string text(line);
    for (;;) {
        WideNumber wide;
        if (Json::sax_parse(text, &wide) || wide.end == 0) return Json::parse(text, nullptr, false);
        const std::size_t begin = wide.end - wide.digits.size();
        require(text.compare(begin, wide.digits.size(), wide.digits) == 0, "a wide number is where it is said", line);
        text.replace(begin, wide.digits.size(), "null");
    }
}

void checkAnswer(const std::string& answer, std::string_view line) {
    require(answer.find('\n') == std::string::npos, "an answer is one line", line);
    const Json object = Json::parse(answer, nullptr, false);
    require(object.is_object(), "an answer is a JSON object", answer);
    const bool isOk = object.contains("ok");
    require(isOk != object.contains("error"), "an answer is ok or an error", answer);
    require(isOk || (object["error"].is_string() && !object["error"].get<std::string>().empty()),
            "an error says what was wrong", answer);
    require(object.size() == 1U + object.count("id"), "an answer has no other members", answer);

    const Json request = readRequest(line);
    if (request.is_discarded()) {
        require(!isOk && object.count("id") == 0, "what is no JSON is refused", line);
    } else if (!request.is_object()) {
        require(!isOk && object.count("id") == 0, "what is no request is refused", line);
    } else {
        const bool isTold = object.contains("id");
        require(!isTold || object["id"] == request["id"], "the id is echoed", line);
        require(isTold || !request.contains("id") || answer.find("nested deeper") != std::string::npos,
                "the id is not forgotten", line);
    }
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    enterFolder();
    const SilentErrors silent;
    startAnew();
    ttconfig::CallState state;
    while (!input.empty()) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        const std::string_view line = input.substr(0, end);
        input.remove_prefix(std::min(end + 1, input.size()));
        checkAnswer(ttconfig::answerLine(sessionCalls(), state, line), line);
    }
}

TT_FUZZ_TARGET
