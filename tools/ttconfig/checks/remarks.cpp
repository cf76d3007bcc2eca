// Remarks: collects the findings about a line and about an entry.
// Entry points: LineRemarks, EntryRemarks, named().
// Owns: the findings of one line.
// Covered by tests/tools/ttconfig/findings/checking_test.cpp.

#include "ttconfig/checks/remarks.h"

#include <fmt/format.h>

#include <algorithm>

#include "ttconfig/advice/advice.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostWaiting = 4096;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

bool beginsWord(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return false;
    const char c = text[start];
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

bool beginsComment(std::string_view value, std::size_t at, Semicolons semicolons) {
    if (value[at] == '#') return true;
    if (value[at] != ';' || semicolons == Semicolons::Separate) return false;
    return semicolons == Semicolons::Comment || beginsWord(value.substr(at + 1));
}

}  // namespace

bool LineRemarks::admits(RuleId rule) {
    const auto number = static_cast<std::size_t>(rule);
    const bool isWanted = counts[number] < most;
    ++(isWanted ? counts : leftOut)[number];
    return isWanted;
}

void LineRemarks::say(RuleId rule, Place place, std::size_t length, std::string message, std::optional<Place> related) {
    if (findings.size() >= kMostWaiting) endLine();
    const Rule& row = ruleOf(rule);
    findings.push_back(
        {row.name, row.severity, place, static_cast<std::uint32_t>(length), std::move(message), related});
}

void LineRemarks::endLine() {
    if (findings.size() > 1) {
        std::stable_sort(findings.begin(), findings.end(),
                         [](const Finding& left, const Finding& right) { return left.place < right.place; });
    }
    for (Finding& finding : findings)
        sink(std::move(finding));
    findings.clear();
}

EntryRemarks::EntryRemarks(const standin::SettingsEntry& subject, LineRemarks& target)
    : row(subject), line(target), plainKey(isPlain(subject.key)), plainValue(isPlain(subject.value)) {}

Place EntryRemarks::placeOf(std::string_view piece) const {
    // The value follows the key on the same line.
    return piece.data() >= row.value.data() ? placeInValue(row, piece) : placeInKey(row, piece);
}

std::optional<EntryRemarks::Reason> EntryRemarks::reasonOf(RuleId rule, std::string_view piece) {
    if (reachesComment(piece)) {
        if (commentTold || !line.admits(RuleId::CommentBehindValue)) return std::nullopt;
        commentTold = true;
        const std::string_view comment = row.value.substr(row.value.find_first_not_of(" \t", commentAt));
        return Reason{RuleId::CommentBehindValue, comment,
                      fmt::format("{} is part of the value and no comment: ", shownText(comment))};
    }
    const bool isInValue = piece.data() >= row.value.data();
    std::optional<Cause> cause;
    if (!(isInValue ? plainValue : plainKey)) cause = causeIn(piece);
    if (!line.admits(cause ? cause->rule : rule)) return std::nullopt;
    if (!cause) return Reason{rule, piece, {}};
    return Reason{cause->rule, cause->where, cause->what + ": "};
}

void EntryRemarks::tell(const Reason& reason, std::string_view piece, const std::string& consequence) {
    line.say(reason.rule, placeOf(reason.where), reason.where.size(),
             reason.what + shownText(piece) + ' ' + consequence, std::nullopt);
}

void EntryRemarks::text(std::string_view piece, FullWidth fullWidth) {
    const bool isInValue = piece.data() >= row.value.data();
    if (isInValue ? plainValue : plainKey) return;
    const bool isOdd = reachesComment(piece) || causeIn(piece, fullWidth).has_value();
    // wrong() reports the comment or the odd character found here, never the rule passed to it.
    if (!isOdd) return;
    wrong(RuleId::InvisibleCharacter, piece, [&] {
        const std::string ascii = inAscii(piece);
        return "is taken as it stands" + orWrite(ascii != piece && isPlain(ascii) ? ascii : "", "write it without");
    });
}

bool EntryRemarks::isQuoted() {
    const std::string_view all = row.value;
    if (all.size() < 2) return false;
    if ((all.front() == '"' || all.front() == '\'') && all.back() == all.front()) {
        say(RuleId::QuotedValue, all, "the quotes are part of the value; write it without them");
        return true;
    }
    const std::size_t bracket = std::string_view("[{(").find(all.front());
    if (bracket == std::string_view::npos || all.back() != std::string_view("]})")[bracket]) return false;
    say(RuleId::QuotedValue, all, "the brackets are part of the value; write it without them");
    return true;
}

void EntryRemarks::lookForComment(Semicolons semicolons) {
    const std::string_view all = row.value;
    if (plainValue && (all.empty() || (all.front() != '#' && all.front() != ';'))) return;
    for (std::size_t at = all.find_first_of("#;"); at != std::string_view::npos; at = all.find_first_of("#;", at + 1)) {
        if ((at > 0 && !isBlank(all[at - 1])) || !beginsComment(all, at, semicolons)) continue;
        commentAt = at == 0 ? 0 : all.find_last_not_of(" \t", at - 1) + 1;
        return;
    }
}

bool EntryRemarks::reachesComment(std::string_view piece) const {
    if (commentAt == std::string_view::npos || piece.data() < row.value.data()) return false;
    return static_cast<std::size_t>(piece.data() - row.value.data()) + piece.size() > commentAt;
}

std::string named(Place place) {
    return fmt::format("line {}, column {}", place.line, place.column);
}

}  // namespace ttconfig
