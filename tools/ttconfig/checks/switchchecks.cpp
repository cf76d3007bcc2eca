// Switch checks: reports what is wrong with the value of a platform switch.
// Entry points: checkSwitch().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <unordered_map>

#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

bool isOneOfWords(std::string_view value, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [value](std::string_view word) { return isSameUpper(word, value); });
}

// Whether the piece is a range such as "12-15".
bool isRange(std::string_view piece) {
    const std::size_t sign = piece.find_first_of("-~", 1);
    return sign != std::string_view::npos && isWholeNumber(piece.substr(0, sign)) &&
           isWholeNumber(piece.substr(std::min(piece.find_first_not_of("-~", sign), piece.size())));
}

// Whether the value looks like an answer to a yes/no question and not like a list of platforms. Reports it.
bool isFlagLike(EntryRemarks& remarks, SettingsContext& context) {
    const std::string_view value = remarks.value();
    if (!flagMeant(value).empty()) {
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
    constexpr std::string_view kOtherSigns = ",;|/.\t ";
    const std::string ascii = inAscii(piece);
    if (piece.find(':') != std::string_view::npos) {
        remarks.wrong(RuleId::SwitchWithValues, piece,
                      "has values, which a switch does not take, and is passed over; list the platforms alone");
    } else if (isNumberList(ascii, kOtherSigns)) {
        remarks.wrong(RuleId::WrongSeparator, piece, [&] {
            return "is one piece and no platform ID, and is passed over" +
                   orWrite(withSigns(ascii, kOtherSigns, ','), "separate platforms by \",\"");
        });
    } else if (isRange(piece)) {
        remarks.wrong(RuleId::BadPlatformId, piece,
                      "is no platform ID, and is passed over: there are no ranges; list each platform");
    } else if (isOneOfWords(piece, {"all", "any", "*", "default", "others"})) {
        remarks.wrong(RuleId::BadPlatformId, piece,
                      "is no platform ID, and is passed over: nothing stands for all platforms; list each of them");
    } else if (isOneOfWords(piece, {"none", "null", "nil", "nobody", "-"})) {
        remarks.wrong(RuleId::BadPlatformId, piece,
                      "is no platform ID, and is passed over; leave the value empty for nobody");
    } else {
        checkPlatformId(remarks, piece, "is passed over", "write whole numbers with \",\" between them");
    }
}

}  // namespace

void checkSwitch(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Comment);
    if (isFlagLike(remarks, context)) return;
    std::unordered_map<int, Place> seen;
    forEachListed(remarks.entry(), [&](const ListedPlatform& listed) {
        if (!listed.platform) return checkBadPiece(remarks, listed.piece);
        const auto [known, isNew] = seen.emplace(*listed.platform, listed.place);
        if (isNew) return;
        remarks.say(
            RuleId::RepeatedInList, listed.piece,
            fmt::format("platform {} is listed already at {}; once is enough", *listed.platform, named(known->second)),
            known->second);
    });
}

}  // namespace ttconfig
