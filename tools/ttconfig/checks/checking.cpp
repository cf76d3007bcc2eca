// Checking: finds what the author of a settings text cannot have meant.
// Entry points: checkSettings().
// Owns: the walk through the text in file order.
// Covered by tests/tools/ttconfig/findings/checking_test.cpp and checkrules_test.cpp.

#include "ttconfig/findings/checking.h"

#include <fmt/format.h>

#include <algorithm>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/context.h"
#include "ttconfig/checks/remarks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::IgnoredLine;
using standin::IgnoredReason;
using standin::SettingsEntry;
using standin::SettingsHeader;
using standin::SettingsSection;
using standin::SettingsText;

// Something on a line to check.
struct Subject {
    enum Kind : std::uint32_t { CarriageReturns, Header, Entry, Outside, Ignored };

    std::uint32_t line;
    Kind kind;
    std::uint32_t section;  // the index of its section; for carriage returns, the column of the first
    std::uint32_t number;   // its index in its list; for carriage returns, how many there are
};

bool hasCarriageReturn(std::string_view text) {
    return text.find('\r') != std::string_view::npos;
}

class Walk {
public:
    Walk(const SettingsText& settings, const standin::PlatformData* platform, const FindingSink& sink,
         std::size_t mostOfARule)
        : text(settings), context(settings, platform), remarks(sink, mostOfARule) {}

    // Returns how many findings of each rule were left out.
    std::vector<std::size_t> run() {
        if (text.hasByteOrderMark()) {
            say(RuleId::ByteOrderMark, {1, 1}, 0,
                "the file starts with a byte order mark; save it as UTF-8 without one");
        }
        gather();
        std::uint32_t line = 1;
        for (const Subject& subject : subjects) {
            if (subject.line != line) remarks.endLine();
            line = subject.line;
            look(subject);
        }
        remarks.endLine();
        return remarks.notAdmitted();
    }

private:
    void say(RuleId rule, Place place, std::size_t length, std::string message) {
        if (remarks.admits(rule)) remarks.say(rule, place, length, std::move(message));
    }

    template <typename List>
    void gather(const List& list, Subject::Kind kind, std::uint32_t section) {
        std::uint32_t number = 0;
        for (const auto& each : list)
            subjects.push_back({each.line, kind, section, number++});
    }

    void gather() {
        std::size_t count = text.entriesOutside().size() + text.ignoredLines().size();
        for (const SettingsSection& section : text.sections())
            count += section.headers.size() + section.entries.size();
        subjects.reserve(count);
        gather(text.entriesOutside(), Subject::Outside, 0);
        gather(text.ignoredLines(), Subject::Ignored, 0);
        std::uint32_t number = 0;
        for (const SettingsSection& section : text.sections()) {
            gather(section.headers, Subject::Header, number);
            gather(section.entries, Subject::Entry, number);
            ++number;
        }
        gatherCarriageReturns();
        std::sort(subjects.begin(), subjects.end(), [](const Subject& left, const Subject& right) {
            return left.line != right.line ? left.line < right.line : left.kind < right.kind;
        });
    }

    // One subject per line, however many lone carriage returns the line has.
    void gatherCarriageReturns() {
        const std::string_view bytes = text.bytes();
        std::size_t lineStart = 0;
        std::size_t counted = 0;
        std::uint32_t line = 1;
        for (std::size_t at = bytes.find('\r'); at != std::string_view::npos; at = bytes.find('\r', at + 1)) {
            if (at + 1 < bytes.size() && bytes[at + 1] == '\n') continue;
            for (std::size_t end = bytes.find('\n', counted); end < at; end = bytes.find('\n', counted)) {
                counted = lineStart = end + 1;
                ++line;
            }
            counted = at;
            const bool isKnown =
                !subjects.empty() && subjects.back().kind == Subject::CarriageReturns && subjects.back().line == line;
            if (isKnown) {
                ++subjects.back().number;
            } else {
                subjects.push_back({line, Subject::CarriageReturns, static_cast<std::uint32_t>(at - lineStart) + 1, 1});
            }
        }
    }

    void look(const Subject& subject) {
        switch (subject.kind) {
            case Subject::CarriageReturns:
                return lookAtCarriageReturns(subject);
            case Subject::Header:
                return lookAtHeader(text.sections()[subject.section], subject.number);
            case Subject::Entry: {
                const SettingsSection& section = text.sections()[subject.section];
                return lookAtEntry(section.name, section.entries[subject.number]);
            }
            case Subject::Outside:
                return lookAtOutside(text.entriesOutside()[subject.number]);
            case Subject::Ignored:
                return lookAtIgnored(text.ignoredLines()[subject.number]);
        }
    }

    void lookAtCarriageReturns(const Subject& subject) {
        const std::string others =
            subject.number == 1 ? std::string() : fmt::format(", the first of {} in this line", subject.number);
        say(RuleId::LoneCarriageReturn, {subject.line, subject.section}, 1,
            fmt::format("a CR without an LF ends no line{}: what follows belongs to this line; save the file "
                        "with LF or CR LF line ends",
                        others));
    }

    void lookAtOutside(const SettingsEntry& entry) {
        if (hasCarriageReturn(entry.value) || hasCarriageReturn(entry.key)) return;
        EntryRemarks(entry, remarks)
            .say(RuleId::KeyOutsideSections, entry.key,
                 fmt::format("{} stands in front of the first section and is never read; move it below its header",
                             shownText(entry.key)));
    }

    void lookAtIgnored(const IgnoredLine& ignored);
    void lookAtHeader(const SettingsSection& section, std::uint32_t number);
    void lookAtEntry(std::string_view section, const SettingsEntry& entry);
    std::string entryMeant(std::string_view line) const;
    void sayUnknownKey(std::string_view section, EntryRemarks& entry);
    void lookAtValue(const SettingKey& row, EntryRemarks& entry);

    const SettingsText& text;
    SettingsContext context;
    LineRemarks remarks;
    std::vector<Subject> subjects;
};

// The key=value line that was meant by a line with ":" or only blanks between a key and a value; empty for any other
// line.
std::string Walk::entryMeant(std::string_view line) const {
    const std::string_view key = line.substr(0, line.find_first_of(": \t"));
    const bool isKey = context.names.rowAnywhere(key) != nullptr || platformSwitchIndex(key) != kPlatformSwitchCount;
    const std::size_t value = line.find_first_not_of(": \t", key.size());
    return isKey && value != std::string_view::npos ? fmt::format("{}={}", key, line.substr(value)) : std::string();
}

void Walk::lookAtIgnored(const IgnoredLine& ignored) {
    if (hasCarriageReturn(ignored.text)) return;
    const Place place{ignored.line, ignored.column};
    const auto tell = [&](RuleId rule, std::string_view message) {
        if (!remarks.admits(rule)) return;
        remarks.say(rule, place, ignored.text.size(), fmt::format("{} {}", shownText(ignored.text), message));
    };
    switch (ignored.reason) {
        case IgnoredReason::kNoEqualSign: {
            // Only an odd character at the start or a full-width "=" may have kept the line from being read as
            // key=value. Elsewhere in a sentence, such characters are normal.
            const auto cause = causeIn(ignored.text);
            const bool decides = cause && (cause->where.data() == ignored.text.data() ||
                                           ignored.text.find("\xEF\xBC\x9D") != std::string_view::npos);
            if (decides && cause->rule != RuleId::BlankInList) {
                return say(cause->rule, place, cause->where.size(),
                           fmt::format("{}: {} is neither a section nor key=value, and is passed over", cause->what,
                                       shownText(ignored.text)));
            }
            const bool isPartOfValue = ignored.text.find_first_not_of("0123456789,;:|.+- \t") == std::string_view::npos;
            return tell(RuleId::NoKeyValueLine,
                        "is neither a comment, a section nor key=value, and is passed over" +
                            orWrite(entryMeant(ignored.text), isPartOfValue ? "a value stands on one line with its key"
                                                                            : "put a ; in front of remarks"));
        }
        case IgnoredReason::kNoKey:
            return tell(RuleId::NothingBeforeEquals,
                        "has nothing in front of the =, and is passed over; write the key");
        case IgnoredReason::kOpenHeader:
            return tell(RuleId::OpenHeader, "has no ] and is no header: the section before it goes on; close it");
        case IgnoredReason::kBehindHeader:
            return tell(RuleId::TextBehindHeader, "stands behind a header and is passed over; give it its own line");
    }
}

void Walk::lookAtHeader(const SettingsSection& section, std::uint32_t number) {
    const std::string_view name = section.name;
    const SettingsHeader& header = section.headers[number];
    const Place place{header.line, header.nameColumn};
    if (hasCarriageReturn(name)) return;
    if (context.names.isSection(name)) {
        if (number > 0 || name != keys::notQueryAlgoPerm.section) return;
        return say(RuleId::SectionWithoutEffect, place, name.size(),
                   fmt::format("the keys of [{}] are read, but no question is answered from them; list the "
                               "platforms under the key {} of [{}]",
                               name, name, kMainSection));
    }
    if (number > 0) return;
    const std::string lost = fmt::format("so that its {} key{} never read", section.entries.size(),
                                         section.entries.size() == 1 ? " is" : "s are");
    if (const auto cause = causeIn(name); cause && cause->rule != RuleId::BlankInList) {
        return say(
            cause->rule, {place.line, place.column + static_cast<std::uint32_t>(cause->where.data() - name.data())},
            cause->where.size(), fmt::format("{}: nothing reads a section {}, {}", cause->what, shownText(name), lost));
    }
    NameIndex& index = context.names.sectionIndex();
    const std::string_view other = index.inOtherCase(name);
    if (!other.empty()) {
        return say(RuleId::SectionLetterCase, place, name.size(),
                   fmt::format("nothing reads a section {}, {}; write [{}]", shownText(name), lost, other));
    }
    say(RuleId::UnknownSection, place, name.size(),
        fmt::format("nothing reads a section {}, {}{}", shownText(name), lost, index.didYouMean(name)));
}

void Walk::lookAtEntry(std::string_view section, const SettingsEntry& entry) {
    if (!context.names.isSection(section) || section == keys::notQueryAlgoPerm.section) return;
    if (hasCarriageReturn(entry.value) || hasCarriageReturn(entry.key)) return;
    EntryRemarks about(entry, remarks);
    if (entry.repeated) {
        const SettingsEntry& first = *text.findEntry(section, entry.key);
        return about.say(
            RuleId::RepeatedKey, entry.key,
            [&] {
                return fmt::format("{} is written already at {}, and that one counts; take one out",
                                   shownText(entry.key), named(keyPlace(first)));
            },
            keyPlace(first));
    }
    const bool isMain = section == kMainSection;
    const SettingKey* row = context.names.rowOf(section, entry.key);
    const bool isSwitch = row == nullptr && isMain && platformSwitchIndex(entry.key) != kPlatformSwitchCount;
    if (row == nullptr && !isSwitch) return sayUnknownKey(section, about);
    if (row != nullptr && row->feeds.empty()) {
        return about.say(RuleId::KeyWithoutEffect, entry.key, [&] {
            return fmt::format("{} is without effect; take it out. {}", shownText(entry.key), row->meaning);
        });
    }
    if (about.isQuoted()) return;
    if (isSwitch) return checkSwitch(about, context);
    lookAtValue(*row, about);
}

void Walk::sayUnknownKey(std::string_view section, EntryRemarks& entry) {
    const std::string_view key = entry.entry().key;
    if (const auto cause = isPlain(key) ? std::nullopt : causeIn(key)) {
        return entry.say(cause->rule, cause->where,
                         fmt::format("{}: nothing reads a key {} in [{}]", cause->what, shownText(key), section));
    }
    NameIndex& index = context.names.keyIndex(section);
    const std::string_view other = index.inOtherCase(key);
    if (!other.empty()) {
        return entry.say(RuleId::KeyLetterCase, key, [&] {
            return fmt::format("nothing reads a key {} in [{}]; write {}", shownText(key), section, other);
        });
    }
    const SettingKey* row = context.names.rowAnywhere(key);
    const bool isSwitch = platformSwitchIndex(key) != kPlatformSwitchCount;
    if (row != nullptr || isSwitch) {
        return entry.say(RuleId::KeyInWrongSection, key, [&] {
            return fmt::format("nothing reads {} in [{}]; move it to [{}]", shownText(key), section,
                               row != nullptr ? row->section : kMainSection);
        });
    }
    const std::string_view answering = context.names.keyOfQuestion(key);
    if (!answering.empty()) {
        return entry.say(RuleId::UnknownKey, key, [&] {
            return fmt::format("{} is a question and no key; what it answers is said by {}", shownText(key), answering);
        });
    }
    if (context.names.isSection(key)) {
        return entry.say(RuleId::UnknownKey, key, [&] {
            return fmt::format("nothing reads a key {} in [{}]: it is a section; write [{}] on a line of its own",
                               shownText(key), section, key);
        });
    }
    entry.say(RuleId::UnknownKey, key, [&] {
        return fmt::format("nothing reads a key {} in [{}]{}", shownText(key), section, index.didYouMean(key));
    });
}

void Walk::lookAtValue(const SettingKey& row, EntryRemarks& entry) {
    switch (row.grammar) {
        case ValueGrammar::Flag:
        case ValueGrammar::Integer:
        case ValueGrammar::Text:
            return checkSingleValue(entry, row);
        case ValueGrammar::Decimal:
            return checkDecimalRow(entry, context, row);
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformInteger:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return checkPlatformValues(entry, row);
        case ValueGrammar::OrderLimitRow:
        case ValueGrammar::BlockTradeLimitRow:
        case ValueGrammar::StockRateRow:
        case ValueGrammar::ConnectRateRow:
            return checkLimitRow(entry, context, row);
        case ValueGrammar::FixedIncomeNumbers:
            return checkFixedIncome(entry, row);
        case ValueGrammar::PlatformRatioPairs:
            return checkConcentration(entry, row);
        case ValueGrammar::PlatformCodes:
            return checkCollateralSale(entry);
        case ValueGrammar::ProductGroups:
            return checkProductGroups(entry, context);
        case ValueGrammar::MarketCodes:
            return checkMarketCodes(entry, context);
        case ValueGrammar::Funds:
            return checkFunds(entry, context);
        case ValueGrammar::Contracts:
            return checkContracts(entry);
        case ValueGrammar::ContractTypes:
            return checkContractTypes(entry, context);
        case ValueGrammar::PairsBySemicolon:
            return checkPairs(entry);
        case ValueGrammar::TextsByCommaDropEmpty:
            return checkHttpProducts(entry, context);
        case ValueGrammar::TextsByComma:
            return checkTexts(entry, ',');
        case ValueGrammar::TextsBySemicolon:
            return checkTexts(entry, ';');
        case ValueGrammar::TagAndTimes:
            return checkTag(entry);
        case ValueGrammar::KeyAlone:
            return;
    }
}

}  // namespace

std::vector<std::size_t> checkSettings(const SettingsText& text, const standin::PlatformData* platform,
                                       const FindingSink& sink, std::size_t mostOfARule) {
    return Walk(text, platform, sink, mostOfARule).run();
}

std::vector<Finding> checkSettings(const SettingsText& text) {
    std::vector<Finding> findings;
    checkSettings(text, nullptr, [&findings](Finding&& finding) { findings.push_back(std::move(finding)); });
    return findings;
}

}  // namespace ttconfig
