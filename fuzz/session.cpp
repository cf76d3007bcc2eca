// The session protocol: lines of any bytes, each answered by one line of well-formed JSON, as the protocol says it,
// with the request's own id.

#include "ttconfig/session.h"

#include <standin/platformdatafile.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "fuzz/scratchfolder.h"
#include "fuzz/sessioncalls.h"
#include "fuzz/target.h"

namespace {

using fuzz::require;
using Json = nlohmann::json;

std::string sample(const std::string& name) {
    std::ostringstream bytes;
    bytes << std::ifstream(TT_SOURCE_DIR "/samples/" + name, std::ios::binary).rdbuf();
    return bytes.str();
}

// A client's folder with the samples in it, entered once.
void enterFolder() {
    static const fuzz::ScratchFolder folder;
    static const bool isFilled = [] {
        folder.write("bin/settings.ini", sample("settings.ini"));
        folder.write("bin/MarketTime.lua", sample("luaScripts/MarketTime.lua"));
        folder.write("bin/AlgoParams.lua", sample("luaScripts/AlgoParams.lua"));
        std::string error;
        return standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error);
    }();
    require(isFilled, "the sample platform loads");
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

    // The JSON library takes a NUL for the end of the text; the session does not.
    const bool hasNul = line.find('\0') != std::string_view::npos;
    const Json request = hasNul ? Json(Json::value_t::discarded) : Json::parse(line, nullptr, false);
    // The parser takes a NUL for the end of the line; the session refuses it.
    if (request.is_discarded() || line.find('\0') != std::string_view::npos) {
        // A number that no double can hold is the one thing that the session puts up with.
        require(!isOk || line.find_first_of("0123456789") != std::string_view::npos, "what is no JSON is refused",
                line);
    } else if (!request.is_object()) {
        require(!isOk && object.count("id") == 0, "what is no request is refused", line);
    } else if (!isOk || object.contains("id")) {
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
