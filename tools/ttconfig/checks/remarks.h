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

// The findings on the current line, passed on in column order when the line is done. A line with very many findings is
// passed on in parts, so that memory stays bounded.
class LineRemarks {
public:
    LineRemarks(const FindingSink& target, std::size_t mostOfARule)
        : sink(target), most(mostOfARule), counts(kRuleCount), leftOut(kRuleCount) {}

    // Whether another finding of the rule is wanted. If not, it is counted here, and the caller need not build its
    // message.
    bool admits(RuleId rule);
    // How many findings of each rule were not wanted, indexed by the number of the rule.
    const std::vector<std::size_t>& notAdmitted() const { return leftOut; }

    // Adds a finding that admits() has accepted.
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

// How to treat a ";" after a blank: as the start of a comment; as one only before a word, in lists that also separate
// items by ";"; or always as a separator.
enum class Semicolons { Comment, CommentBeforeWords, Separate };

// Reports findings about one entry. Pieces are views into its key or value.
class EntryRemarks {
public:
    EntryRemarks(const standin::SettingsEntry& subject, LineRemarks& target);

    const standin::SettingsEntry& entry() const { return row; }
    std::string_view value() const { return row.value; }
    Place placeOf(std::string_view piece) const;

    // Reports a finding about a piece. The message is a text, or a function that makes one if the finding is wanted.
    template <typename Message>
    void say(RuleId rule, std::string_view piece, const Message& message, std::optional<Place> related = std::nullopt) {
        if (line.admits(rule)) line.say(rule, placeOf(piece), piece.size(), made(message), related);
    }

    // Reports a piece that does not have its intended effect. If its characters show why, the finding is about them;
    // otherwise it is the rule's. The consequence continues the sentence after the piece, as in "is no platform ID and
    // is passed over". It is a text, or a function that makes one if the finding is wanted.
    template <typename Consequence>
    void wrong(RuleId rule, std::string_view piece, const Consequence& consequence) {
        if (const auto reason = reasonOf(rule, piece)) tell(*reason, piece, made(consequence));
    }

    // Checks a piece that is taken as written. Reports only odd characters in it, or a comment that it reaches into.
    void text(std::string_view piece, FullWidth fullWidth = FullWidth::Wrong);

    // Whether the whole value is in quotes or brackets. Reports it.
    bool isQuoted();
    // Looks for a comment after the value. Pieces that reach into it are then reported once, as a comment.
    void lookForComment(Semicolons semicolons);

private:
    // Why a piece is reported: the rule, the place, and the text before the piece in the message.
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

    // Nothing when the finding is not wanted or was already reported.
    std::optional<Reason> reasonOf(RuleId rule, std::string_view piece);
    void tell(const Reason& reason, std::string_view piece, const std::string& consequence);
    bool reachesComment(std::string_view piece) const;

    const standin::SettingsEntry& row;
    LineRemarks& line;
    bool plainKey;
    bool plainValue;
    std::size_t commentAt = std::string_view::npos;  // offset in the value of the comment and the blanks before it
    bool commentTold = false;
};

// "line 12" or "line 12, column 7", for messages that mention another place.
std::string named(Place place);

}  // namespace ttconfig
