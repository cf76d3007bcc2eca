// Switch checks: answers what is wrong with the value of a platform switch.
// Doors: checkSwitch().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "traderbase/base/config/internal/platformlist.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr std::string_view kPassedOver = "is passed over; write whole numbers with \",\" between them";

bool isYesOrNo(std::string_view value) {
    constexpr std::string_view kWords[] = {"true", "false", "yes", "no", "on", "off"};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [value](std::string_view word) { return isSameUpper(word, value); });
}

// A value of one piece that reads like the answer to a yes/no question; says so.
bool isFlagLike(EntryRemarks& remarks, SettingsContext& context) {
    const std::string_view value = remarks.value();
    if (isYesOrNo(value)) {
        remarks.say(RuleId::SwitchAsFlag, value, [&] {
            return fmt::format("{} is no list of platforms, so the switch lists nobody; list the platforms",
                               shownText(value));
        });
        return true;
    }
    if ((value != "0" && value != "1") || context.mentionsPlatform(value == "1" ? 1 : 0)) return false;
    remarks.say(RuleId::SwitchAsFlag, value, [&] {
        return fmt::format(
            "the switch lists platform {}, which nothing else in the file mentions; list the "
            "platforms it is on for, or leave the value empty for nobody",
            value);
    });
    return true;
}

void checkBadPiece(EntryRemarks& remarks, std::string_view piece) {
    if (piece.find(':') != std::string_view::npos) {
        remarks.wrong(RuleId::SwitchWithValues, piece,
                      "has values, which a switch does not take, and is passed over; list the platforms alone");
    } else if (isNumberList(piece, ";|/.\t ")) {
        remarks.wrong(RuleId::WrongSeparator, piece,
                      "is one piece and no platform ID, and is passed over; platforms are separated by \",\"");
    } else {
        checkPlatformId(remarks, piece, kPassedOver);
    }
}

}  // namespace

void checkSwitch(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Comment);
    if (isFlagLike(remarks, context)) return;
    std::unordered_map<int, Place> seen;
    forEachPlatformPiece(remarks.value(), [&](std::string_view piece, std::optional<int> id) {
        if (!id) return checkBadPiece(remarks, piece);
        const auto [known, isNew] = seen.emplace(*id, remarks.placeOf(piece));
        if (isNew) return;
        remarks.say(RuleId::RepeatedInList, piece,
                    fmt::format("platform {} is listed already at {}; once is enough", *id, named(known->second)),
                    known->second);
    });
}

}  // namespace ttconfig
