// Product checks: reports what is wrong with the lists of futures, ETFs and funds.
// Entry points: checkTag(), checkProductGroups(), checkMarketCodes(), checkFunds().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/text/digits.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/listchecks.h"
#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// --- the tag

// The value with ":" after the platform's number; empty when it does not start with one.
std::string tagMeant(std::string_view value) {
    const std::size_t sign = value.find_first_of(",;=/ ");
    if (sign == std::string_view::npos || !isWholeNumber(value.substr(0, sign))) return {};
    return std::string(value.substr(0, sign)) + ':' + withSigns(value.substr(sign + 1), ";/ ", ',');
}

// --- groups

class GroupCheck {
public:
    GroupCheck(EntryRemarks& target, SettingsContext& all) : remarks(target), context(all) {}

    void check(const GroupEntry& group) {
        const std::uint32_t number = context.groups++;
        forEachProductOf(group, [&](std::string_view product) {
            checkName(remarks, product, kOtherSigns, ",");
            if (!product.empty()) enter(product, number, group);
        });
        ++groups;
        const bool isOne = group.first.size() == group.text.size();
        if (isOne && !group.text.empty() && group.text.find_first_of(kOtherSigns) == std::string_view::npos)
            alone.push_back(group.text);
    }

    // Reports groups of one product, which have no effect.
    void end() {
        if (alone.size() == groups && groups > 1) {
            return remarks.say(RuleId::GroupOfOne, remarks.value(), [&] {
                return "groups of one product change nothing" +
                       orWrite(withSigns(remarks.value(), ";", ','), "products of a group are separated by \",\"");
            });
        }
        for (const std::string_view product : alone) {
            remarks.say(RuleId::GroupOfOne, product, [&] {
                return fmt::format(
                    "the group of {} alone changes nothing; write its other products behind it, with "
                    "\",\" between them, or take it out",
                    shownText(product));
            });
        }
    }

private:
    void enter(std::string_view product, std::uint32_t number, const GroupEntry& group) {
        const GroupPlace here{remarks.placeOf(product), number,
                              isFirstOf(group, product) ? std::string_view() : group.first};
        const auto [known, isNew] = context.products.emplace(product, here);
        if (isNew) return;
        GroupPlace& former = known->second;
        if (former.group == number) {
            remarks.say(
                RuleId::RepeatedInList, product,
                [&] {
                    return fmt::format("{} stands in the group already at {}; once is enough", shownText(product),
                                       named(former.place));
                },
                former.place);
            return;
        }
        if (former.countsWith.empty()) former.countsWith = here.countsWith;
        const std::string_view counts = former.countsWith.empty() ? product : former.countsWith;
        remarks.say(
            RuleId::ProductInTwoGroups, product,
            [&] {
                return fmt::format(
                    "{} stands in another group already at {}; its margin goes by {} alone, take one out",
                    shownText(product), named(former.place), shownText(counts));
            },
            former.place);
    }

    static constexpr std::string_view kOtherSigns = "|/:+& ";

    EntryRemarks& remarks;
    SettingsContext& context;
    std::size_t groups = 0;
    std::vector<std::string_view> alone;
};

// --- funds

// The fund as its market directly followed by its code; empty unless the text contains both.
std::string fundMeant(std::string_view fund) {
    std::string meant = limitItemMeant(withSigns(fund, "-", '.'));
    meant.erase(std::remove(meant.begin(), meant.end(), '-'), meant.end());
    return meant;
}

void checkFund(EntryRemarks& remarks, const MarketNames& markets, std::string_view fund, bool isAlone) {
    if (isSameUpper(fund, "ALL")) {
        if (isAlone && fund == "ALL") return;
        remarks.wrong(RuleId::AllBesideFunds, fund,
                      isAlone ? "is a fund of that name; write ALL in capitals for all of them"
                              : "is a fund of that name beside others; let ALL stand alone, or take it out");
    } else if (fund == "*" || fund == "全部" || isSameUpper(fund, "ANY")) {
        remarks.wrong(RuleId::AllBesideFunds, fund,
                      "is a fund of that name; write ALL, and nothing else, for all of them");
    } else if (fund.empty() || fund.find_first_of(";|") != std::string_view::npos) {
        checkName(remarks, fund, ";|", ",");
    } else if (isDigit(fund.front())) {
        remarks.wrong(RuleId::FundForm, fund, [&] {
            return "has no market in front, so that it is no fund" + orWrite(fundMeant(fund), "write the market there");
        });
    } else if (fund.find_first_of("-:./_ ") != std::string_view::npos) {
        remarks.wrong(RuleId::FundForm, fund, [&] {
            return "is no fund: market and code have nothing between them" +
                   orWrite(fundMeant(fund), "take the sign out");
        });
    } else {
        remarks.text(fund);
        const auto digit = std::find_if(fund.begin(), fund.end(), isDigit) - fund.begin();
        checkMarket(remarks, markets, fund.substr(0, static_cast<std::size_t>(digit)));
    }
}

// Checks a key that is a platform ID.
void checkPlatformKey(EntryRemarks& remarks, std::string_view key) {
    if (!isNumberList(key, ",;|/ ")) {
        checkLooseNumber(remarks, key, NumberKind::Integer, "the platform ID");
        return;
    }
    remarks.wrong(RuleId::WrongSeparator, key, [&] {
        return fmt::format("is not several platforms: the platform ID reads as {}; write a line for each",
                           looseInt(key));
    });
}

// --- fixed prices

// Checks entries of the form market:code,code.
class MarketCodesCheck {
public:
    MarketCodesCheck(EntryRemarks& target, const MarketNames& marketNames) : remarks(target), names(marketNames) {}

    void check(const MarketCodesEntry& entry) {
        if (entry.text.empty()) return checkName(remarks, entry.text, {}, ";");
        if (entry.outcome == EntryOutcome::MarketIsCodes) return sayMarketIsCodes(entry.text);
        checkMarketOf(entry);
        const auto [known, isNew] = markets.emplace(entry.market, remarks.placeOf(entry.market));
        if (!isNew) {
            remarks.say(RuleId::RepeatedItem, entry.market,
                        fmt::format("{} has codes already at {}; these later ones alone count, put them together",
                                    shownText(entry.market), named(known->second)),
                        known->second);
        }
        SeenNames seen;
        forEachCodeOf(entry, [&](std::string_view code) {
            if (code.find(':') != std::string_view::npos) {
                return remarks.wrong(RuleId::TooManyColons, code, "is one code; markets are separated by \";\"");
            }
            checkName(remarks, code, "|/ ", ",");
            seen.check(remarks, code);
        });
    }

private:
    void sayMarketIsCodes(std::string_view text) {
        remarks.wrong(RuleId::EntryWithoutColon, text, [&] {
            const bool isCode = !markets.empty() && isDigit(text.front());
            const std::string meant = withSigns(limitItemMeant(withSigns(text, "-", '.')), "-", ':');
            return "has no \":\" and is taken for the market and for its codes" +
                   orWrite(meant, isCode ? "codes are separated by \",\"" : "write market:code,code");
        });
    }

    void checkMarketOf(const MarketCodesEntry& entry) {
        if (entry.market.find_first_of(",|") != std::string_view::npos || entry.market.empty()) {
            return checkName(remarks, entry.market, ",|", ";");
        }
        if (isNamedMarket(entry.codes) && isDigit(entry.market.front())) {
            return remarks.say(RuleId::UnreachableRow, entry.text, [&] {
                return fmt::format("no question reaches {} here: the market stands in front of the code{}",
                                   shownText(entry.text),
                                   orWrite(fmt::format("{}:{}", entry.codes, entry.market), "write it there"));
            });
        }
        remarks.text(entry.market);
        checkMarket(remarks, names, entry.market);
    }

    EntryRemarks& remarks;
    const MarketNames& names;
    std::unordered_map<std::string_view, Place> markets;
};

}  // namespace

void checkTag(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Comment);
    if (remarks.value().empty()) return;
    const TagEntry entry = tagEntry(remarks.value());
    if (entry.outcome == EntryOutcome::KeptFormer) {
        return remarks.wrong(RuleId::EntryWithoutColon, entry.text, [&] {
            return "has no \":\", so that tag and times stay as they were" +
                   orWrite(tagMeant(entry.text), "write tag:time,time");
        });
    }
    const auto platform = strictInt(entry.tag);
    if (!platform || std::to_string(*platform) != entry.tag) {
        remarks.wrong(RuleId::TagWithoutPlatform, entry.tag, [&] {
            return fmt::format("is not how a platform's number is written, so that no platform has the tag; {}",
                               writeNumber(entry.tag, NumberKind::Integer, "write the number of one platform"));
        });
    }
    SeenNames seen;
    forEachTimeOf(entry, [&](std::string_view time) {
        checkName(remarks, time, ";|", ",");
        seen.check(remarks, time);
    });
    const auto used = static_cast<std::size_t>(entry.times.data() - entry.text.data()) + entry.times.size();
    if (used == entry.text.size()) return;
    remarks.wrong(RuleId::TooManyColons, entry.text.substr(used),
                  "is ignored: there is one \":\", behind the tag; write the times without it");
}

void checkProductGroups(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Separate);
    remarks.text(remarks.entry().key);
    GroupCheck groups(remarks, context);
    forEachEntry(kCombinations, remarks.value(), [&groups](const GroupEntry& group) { groups.check(group); });
    groups.end();
}

void checkMarketCodes(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Separate);
    MarketCodesCheck checks(remarks, context.markets);
    forEachEntry(kFixedPriceFunds, remarks.value(), [&checks](const MarketCodesEntry& entry) { checks.check(entry); });
}

void checkFunds(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    const std::string_view key = remarks.entry().key;
    checkPlatformKey(remarks, key);
    const standin::SettingsEntry* counts = context.fundsOf(looseInt(key));
    if (counts != nullptr && counts != &remarks.entry()) {
        remarks.say(
            RuleId::RepeatedItem, key,
            [&] {
                return fmt::format("{} is platform {}, whose funds are those at {}; put them together", shownText(key),
                                   looseInt(key), named(keyPlace(*counts)));
            },
            keyPlace(*counts));
    }
    if (remarks.value().empty()) return;
    const bool isAlone = remarks.value().find(',') == std::string_view::npos;
    SeenNames seen;
    forEachEntry(kLendingFirstFunds, remarks.value(), [&](std::string_view fund) {
        checkFund(remarks, context.markets, fund, isAlone);
        seen.check(remarks, fund);
    });
}

}  // namespace ttconfig
