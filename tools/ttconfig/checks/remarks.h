#pragma once

#include <standin/settingstext.h>

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ttconfig/advice/causes.h"
#include "ttconfig/findings/checking.h"
#include "ttconfig/findings/rules.h"

namespace ttconfig {

// The findings of the line being looked at, handed on in the order of their columns when the line is done. A line with
// very many findings is handed on in parts, so that memory stays bounded.
class LineRemarks {
public:
    LineRemarks(const FindingSink& target, std::size_t mostOfARule)
        : sink(target), most(mostOfARule), counts(kRuleCount), leftOut(kRuleCount) {}

    // Whether a finding of the rule is still wanted. One that is not is counted here, and nobody need put its message
    // together.
    bool admits(RuleId rule);
    // How many were not, by the numbers of the rules.
    const std::vector<std::size_t>& notAdmitted() const { return leftOut; }

    // A finding that was admitted.
    void say(RuleId rule, Place place, std::size_t length, std::string message,
             std::optional<Place> related = std::nullopt);
    void endLine();

private:
    const FindingSink& sink;
    const std::size_t most;
    std::vector<Finding> findings;
    std::vector<std::size_t> counts;
    std::vector<std::size_t> leftOut;
};

// Whether a ";" behind a blank begins what looks like a comment: only where the value's list has another separator, or
// words cannot stand in it.
enum class Semicolons { Comment, CommentBeforeWords, Separate };

// What there is to say about one entry. Pieces are views into its key or value.
class EntryRemarks {
public:
    EntryRemarks(const standin::SettingsEntry& subject, LineRemarks& target);

    const standin::SettingsEntry& entry() const { return row; }
    std::string_view value() const { return row.value; }
    Place placeOf(std::string_view piece) const;

    // A finding about a piece. The message is a text, or something that makes one when it is wanted.
    template <typename Message>
    void say(RuleId rule, std::string_view piece, const Message& message, std::optional<Place> related = std::nullopt) {
        if (line.admits(rule)) line.say(rule, placeOf(piece), piece.size(), made(message), related);
    }

    // A piece that does not do what it is there for. Where its characters show why, that is the finding; otherwise the
    // rule. The consequence goes on from the piece, as in "is no platform ID and is passed over"; it is a text, or
    // something that makes one when it is wanted.
    template <typename Consequence>
    void wrong(RuleId rule, std::string_view piece, const Consequence& consequence) {
        if (const auto reason = reasonOf(rule, piece)) tell(*reason, piece, made(consequence));
    }

    // A piece that is taken as it stands: a finding only when something is wrong with its characters.
    void text(std::string_view piece, FullWidth fullWidth = FullWidth::Wrong);

    // Says so, and answers true, when the whole value is in quotes or brackets.
    bool isQuoted();
    // Looks for a comment behind the value; pieces that reach into one are then told as that, once.
    void lookForComment(Semicolons semicolons);

private:
    // What is told about a piece: the rule, where, and what is in front of the piece in the message.
    struct Reason {
        RuleId rule;
        std::string_view where;
        std::string what;
    };

    template <typename Text>
    static std::string made(const Text& text) {
        if constexpr (std::is_invocable_v<Text>) {
            return text();
        } else {
            return std::string(text);
        }
    }

    // Nothing when the finding is not wanted, or told already.
    std::optional<Reason> reasonOf(RuleId rule, std::string_view piece);
    void tell(const Reason& reason, std::string_view piece, const std::string& consequence);
    bool reachesComment(std::string_view piece) const;

    const standin::SettingsEntry& row;
    LineRemarks& line;
    bool plainKey;
    bool plainValue;
    std::size_t commentAt = std::string_view::npos;  // in the value, with the blanks in front of it
    bool commentTold = false;
};

// "line 12" or "line 12, column 7": another place as messages name it.
std::string named(Place place);

}  // namespace ttconfig
