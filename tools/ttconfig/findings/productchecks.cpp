// Product checks: answers what is wrong with the lists of futures, ETFs and funds.
// Doors: checkTag(), checkProductGroups(), checkMarketCodes(), checkFunds().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <unordered_map>

#include "traderbase/base/config/internal/catalogueentries.h"
#include "ttconfig/findings/listchecks.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// --- groups

class GroupCheck {
public:
    GroupCheck(EntryRemarks& target, SettingsContext& all) : remarks(target), context(all) {}

    void check(std::string_view group) {
        const std::uint32_t number = context.groups++;
        std::string_view first;
        bool isFirst = true;
        splitKeepEmpty(group, ',', [&](std::string_view product) {
            if (isFirst) first = product;
            checkName(remarks, product, "|/:", ",");
            if (!product.empty()) enter(product, number, first, isFirst);
            isFirst = false;
        });
    }

private:
    void enter(std::string_view product, std::uint32_t number, std::string_view first, bool isFirst) {
        const GroupPlace here{remarks.placeOf(product), number, first, isFirst ? std::string_view() : first};
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

    EntryRemarks& remarks;
    SettingsContext& context;
};

// --- funds

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

void checkFund(EntryRemarks& remarks, std::string_view fund, bool isAlone) {
    if (isSameUpper(fund, "ALL")) {
        if (isAlone && fund == "ALL") return;
        remarks.wrong(RuleId::AllBesideFunds, fund,
                      isAlone ? "is a fund of that name; write ALL in capitals for all of them"
                              : "is a fund of that name beside others; let ALL stand alone, or take it out");
    } else if (fund.empty() || fund.find_first_of(";|") != std::string_view::npos) {
        checkName(remarks, fund, ";|", ",");
    } else if (isDigit(fund.front())) {
        remarks.wrong(RuleId::FundForm, fund, "has no market, so that it is no fund; write the market in front");
    } else if (fund.find_first_of("-:./_") != std::string_view::npos) {
        remarks.wrong(RuleId::FundForm, fund,
                      "is no fund: market and code have nothing between them; take the sign out");
    } else {
        remarks.text(fund);
    }
}

}  // namespace

void checkTag(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Comment);
    if (remarks.value().empty()) return;
    const TagEntry entry = tagEntry(remarks.value());
    if (entry.outcome == EntryOutcome::KeptFormer) {
        return remarks.wrong(RuleId::EntryWithoutColon, entry.text,
                             "has no \":\", so that tag and times stay as they were; write tag:time,time");
    }
    const auto platform = strictInt(entry.tag);
    if (!platform || std::to_string(*platform) != entry.tag) {
        remarks.wrong(RuleId::TagWithoutPlatform, entry.tag,
                      "is not how a platform's number is written, so that no platform has the tag");
    }
    SeenNames seen;
    splitKeepEmpty(entry.times, ',', [&](std::string_view time) {
        checkName(remarks, time, ";|", ",");
        seen.check(remarks, time);
    });
    const auto used = static_cast<std::size_t>(entry.times.data() - entry.text.data()) + entry.times.size();
    if (used == entry.text.size()) return;
    remarks.wrong(RuleId::TooManyColons, entry.text.substr(used),
                  "is ignored: there is one \":\", behind the tag; write the times without");
}

void checkProductGroups(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Separate);
    remarks.text(remarks.entry().key);
    GroupCheck groups(remarks, context);
    splitKeepEmpty(remarks.value(), ';', [&groups](std::string_view group) { groups.check(group); });
}

void checkMarketCodes(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Separate);
    if (remarks.value().empty()) return;
    std::unordered_map<std::string_view, Place> markets;
    forEachEntry(remarks.value(), marketCodesEntry, [&](const MarketCodesEntry& entry) {
        if (entry.text.empty()) return checkName(remarks, entry.text, {}, ";");
        if (entry.outcome == EntryOutcome::MarketIsCodes) {
            return remarks.wrong(RuleId::EntryWithoutColon, entry.text,
                                 "has no \":\" and is taken for the market and for its codes; write market:code,code");
        }
        checkName(remarks, entry.market, ",|", ";");
        const auto [known, isNew] = markets.emplace(entry.market, remarks.placeOf(entry.market));
        if (!isNew) {
            remarks.say(RuleId::RepeatedItem, entry.market,
                        fmt::format("{} has codes already at {}; these later ones alone count, put them together",
                                    shownText(entry.market), named(known->second)),
                        known->second);
        }
        SeenNames seen;
        splitKeepEmpty(entry.codes, ',', [&](std::string_view code) {
            if (code.find(':') != std::string_view::npos) {
                return remarks.wrong(RuleId::TooManyColons, code, "is one code; markets are separated by \";\"");
            }
            checkName(remarks, code, "|/", ",");
            seen.check(remarks, code);
        });
    });
}

void checkFunds(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    const std::string_view key = remarks.entry().key;
    checkLooseNumber(remarks, key, LooseKind::Integer, "the platform ID");
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
    splitKeepEmpty(remarks.value(), ',', [&](std::string_view fund) {
        checkFund(remarks, fund, isAlone);
        seen.check(remarks, fund);
    });
}

}  // namespace ttconfig
