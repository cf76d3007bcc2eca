// Market times from arbitrary bytes: as texts passed to the store, and as answers of a script. The first line of an
// input is the script's market list, the rest is the session text of every market.

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/target.h"
#include "tests/support/slowsessions.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/tradingsessions.h"
#include "traderbase/base/config/internal/store/storeslot.h"

namespace {

using fuzz::require;
using Json = nlohmann::json;
using Sessions = std::vector<std::pair<int, int>>;

// Returns the content of the files, whatever it is.
constexpr const char* kScript = R"(
local function whole(name)
    local file = io.open(name, "rb")
    local text = file:read("*a")
    file:close()
    return text
end
function getMarkets() return whole("../list") end
function getMarketTradeDuration() return whole("../sessions") end
)";

// The second of the day of a clock time such as 93000; none if it is not a valid time or not written plainly.
std::optional<int> clockTime(const std::string& name) {
    const bool isPlain = !name.empty() && name.size() <= 6 &&
                         std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
    if (!isPlain) return std::nullopt;
    const int time = std::stoi(name);
    return time < 240000 && time / 100 % 100 < 60 && time % 100 < 60 ? std::optional<int>(time) : std::nullopt;
}

// The status at each clock time of a plain session text: strict JSON with nothing but clock times and whole numbers.
// None for any other text.
std::optional<std::map<int, int>> plainStatus(std::string_view text) {
    std::map<int, int> statusAt;
    std::optional<int> time;
    bool isPlain = text.find('\0') == std::string_view::npos;
    const auto note = [&](int depth, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::key) {
            time = clockTime(parsed.get<std::string>());
            isPlain = isPlain && depth == 1 && time;
        } else if (event == Json::parse_event_t::value) {
            isPlain = isPlain && depth == 1 && parsed.is_number_integer() && time &&
                      (!parsed.is_number_unsigned() || parsed.get<std::uint64_t>() < (std::uint64_t{1} << 63));
            if (isPlain) statusAt[*time] = static_cast<int>(parsed.get<std::int64_t>());
        } else if (event == Json::parse_event_t::array_start) {
            isPlain = false;
        }
        return true;
    };
    const Json whole = Json::parse(text, note, false);
    return isPlain && whole.is_object() ? std::optional<std::map<int, int>>(statusAt) : std::nullopt;
}

void checkSessions(const Sessions& sessions, std::string_view text) {
    for (const auto& [start, end] : sessions) {
        require(start >= 0, "a session does not start before midnight", text);
        // A clock time is an int of the form HHMMSS, so its hours are at most 214748.
        require(start < 214749 * 3600 && end < 214749 * 3600, "times are those of the clock", text);
    }
    if (const auto statusAt = plainStatus(text)) {
        require(sessions == tests::slowSessions(*statusAt), "a walk through every second says the same", text);
    }
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    static const std::string script = folder.write("script.lua", kScript);
    const SilentErrors silent;
    const auto store = ttservice::internal::StoreSlot::build();
    require(store->getTradingTime("M").empty(), "without a script there are no sessions");

    const std::string whole(input);
    const std::size_t end = std::min(whole.find('\n'), whole.size());
    const std::string list = whole.substr(0, end);
    const std::string text = whole.substr(std::min(end + 1, whole.size()));
    store->initMarketTradingTime(
        std::map<std::string, std::string>{{"M", text}, {"N", R"({"93000": 50})"}, {"", list}});
    const Sessions sessions = store->getTradingTime("M");
    checkSessions(sessions, text);
    require(store->getTradingTime("N") == Sessions{{34200, 86400}}, "a market does not spoil another");

    // A script without markets changes nothing; otherwise all its markets have the one session text.
    folder.write("list", list);
    folder.write("sessions", text);
    store->initMarketTradingTime(script);
    const bool isKept = store->getTradingTime("N") == Sessions{{34200, 86400}};
    for (const char* market : {"M", "SH", "SZ", "0"}) {
        const Sessions found = store->getTradingTime(market);
        require(isKept || found.empty() || found == sessions, "texts and scripts give the same sessions", text);
    }
}

TT_FUZZ_TARGET
