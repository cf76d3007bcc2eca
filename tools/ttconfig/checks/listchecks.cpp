// List checks: reports what is wrong with the names in a list, whatever they name.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include "ttconfig/checks/listchecks.h"

#include <fmt/format.h>
#include <ttplatform/text.h>

#include <algorithm>

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

// The entry with ":" in place of its only separator; empty when that is not what is wrong.
std::string withColon(std::string_view entry) {
    constexpr std::string_view kSigns = "=,|/ ";
    std::string ascii = inAscii(entry);
    if (std::count(ascii.begin(), ascii.end(), ':') == 1) return ascii;
    const std::size_t sign = entry.find_first_of(kSigns);
    const bool isOne = sign != std::string_view::npos && sign > 0 && sign + 1 < entry.size() &&
                       entry.find_first_of(kSigns, sign + 1) == std::string_view::npos;
    return isOne ? withSigns(entry, kSigns, ':') : std::string();
}

// The entry split into several, each with one ":"; empty when that is not what is wrong.
std::string asSeveral(std::string_view entry) {
    const std::string several = withSigns(entry, ",", ';');
    bool areGood = true;
    ttservice::internal::splitKeepEmpty(several, ';', [&areGood](std::string_view each) {
        areGood = areGood && std::count(each.begin(), each.end(), ':') == 1;
    });
    return areGood ? several : std::string();
}

}  // namespace

void SeenNames::check(EntryRemarks& remarks, std::string_view name, std::string_view consequence) {
    const Place place = remarks.placeOf(name);
    const auto [known, isNew] = places.emplace(name, place);
    if (isNew || name.empty()) return;
    remarks.say(RuleId::RepeatedInList, name,
                fmt::format("{} is listed already at {}; {}", shownText(name), named(known->second), consequence),
                known->second);
}

void checkName(EntryRemarks& remarks, std::string_view name, std::string_view otherSeparators,
               std::string_view separator) {
    if (name.empty()) {
        return remarks.say(RuleId::EmptyItemCounts, name,
                           "an empty item counts here, with an empty name; take the separator out");
    }
    const std::string_view inner = withoutBlanks(name);
    if (inner.find_first_of(otherSeparators) == std::string_view::npos) return remarks.text(name);
    remarks.wrong(RuleId::WrongSeparator, name, [&] {
        return fmt::format("is one name, as names are separated by {} here{}", shownText(separator),
                           orWrite(withSigns(inner, otherSeparators, separator.front()), "write them so"));
    });
}

void checkCode(EntryRemarks& remarks, std::string_view code, std::string_view otherSeparators) {
    const std::string_view alone = codeBehindMarket(code);
    if (alone.empty()) return checkName(remarks, code, otherSeparators, ",");
    remarks.say(RuleId::UnreachableRow, code, [&] {
        return fmt::format("no question reaches {} here: codes stand without their market{}", shownText(code),
                           orWrite(alone, "take it off"));
    });
}

bool checkMarket(EntryRemarks& remarks, const MarketNames& names, std::string_view market) {
    if (names.knows(market) || causeIn(market)) return true;
    const std::string upper = utils::toUpper(std::string(market));
    if (names.knows(upper)) {
        remarks.say(RuleId::UnreachableRow, market, [&] {
            return fmt::format("no question reaches a market {} here: letter case counts; write {}", shownText(market),
                               visibleText(upper));
        });
    } else {
        remarks.say(RuleId::UnknownMarket, market, [&] {
            return fmt::format("{} is a market that {}{}", shownText(market), names.namers(), names.didYouMean(upper));
        });
    }
    return false;
}

void checkColons(EntryRemarks& remarks, std::string_view entry, std::string_view advice) {
    if (entry.find(':') == std::string_view::npos) {
        remarks.wrong(RuleId::EntryWithoutColon, entry,
                      [&] { return "has no \":\" and is passed over" + orWrite(withColon(entry), advice); });
    } else {
        remarks.wrong(RuleId::TooManyColons, entry,
                      [&] { return "has more than one \":\" and is passed over" + orWrite(asSeveral(entry), advice); });
    }
}

}  // namespace ttconfig
