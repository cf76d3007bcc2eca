// Answer findings: checks the texts that scripts answer.
// Entry points: marketListFindings(), sessionTextFindings(), vendorTextFindings().
// Covered by tests/tools/ttconfig/scripts/answerfindings_test.cpp.

#include "ttconfig/scripts/answerfindings.h"

#include <mongo/bson/bson.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "traderbase/base/config/internal/scripts/algorithmrecord.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "traderbase/base/config/internal/scripts/tradingsessions.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/calls/records.h"
#include "ttconfig/text/clocktext.h"
#include "ttconfig/text/showntext.h"

namespace bson = mongo;

namespace ttconfig {

namespace {

using namespace ttservice::internal;

using Findings = std::vector<std::string>;

constexpr std::size_t kMostTroubleBytes = 200;

// Why a text is not strict JSON, with the place; nothing when it is.
std::optional<std::string> jsonTrouble(const std::string& text) {
    try {
        static_cast<void>(preparedJson(text));  // throws before deep nesting reaches the parser
        [[maybe_unused]] const Argument parsed = Argument::parse(text);
        return std::nullopt;
    } catch (const Argument::exception& trouble) {
        std::string_view what = trouble.what();
        for (const std::string_view mark : {"] ", "parse error at ", "parse error: "}) {
            const std::size_t at = what.find(mark);
            if (at != std::string_view::npos) what.remove_prefix(at + mark.size());
        }
        return cutText(withReplacedBytes(std::string(what)), kMostTroubleBytes);
    } catch (const RefusedJson& trouble) {
        return trouble.what();
    }
}

// The object that the client reads from the text. Adds findings about the text as a whole.
std::optional<bson::BSONObj> readAnswer(const std::string& text, Findings& findings) {
    if (text.empty()) {
        findings.push_back("answers an empty text");
        return std::nullopt;
    }
    if (text.find('\0') != std::string::npos) findings.push_back("the answer is cut at its NUL byte");
    const std::optional<std::string> trouble = jsonTrouble(text);
    std::optional<bson::BSONObj> object = readJsonObject(text);
    if (!object) {
        findings.push_back("the answer is no JSON object" + (trouble ? ": " + *trouble : std::string()));
    } else if (trouble) {
        findings.push_back("the answer is no strict JSON, though the client takes it: " + *trouble);
    }
    return object;
}

// --- session texts

bool isClockTime(std::string_view name) {
    if (name.empty() || name.size() > 6 || name.find_first_not_of("0123456789") != std::string_view::npos) return false;
    const int number = looseInt(name);
    return number / 10000 < 24 && number / 100 % 100 < 60 && number % 100 < 60;
}

std::string shownStatus(const bson::BSONElement& value) {
    return cutText(value.toString(false), 40);
}

void examineStatus(const bson::BSONElement& field, Findings& findings) {
    if (field.type() == bson::NumberInt) return;
    const std::string counts = " counts as " + std::to_string(sessionStatus(field));
    findings.push_back("at " + shownText(field.fieldName()) + ": the status " + shownStatus(field) +
                       " is no whole number of 32 bits and" + counts);
}

// The status that applies at each clock time.
std::map<int, int> readPoints(const bson::BSONObj& object, Findings& findings) {
    std::map<int, int> statusAt;
    for (bson::BSONObjIterator fields(object); fields.more();) {
        const bson::BSONElement field = fields.next();
        const std::string name = field.fieldName();
        const int clockTime = looseInt(name);
        const int second = secondOfClockTime(clockTime);
        if (!isClockTime(name)) {
            findings.push_back(shownText(name) + " is no clock time HHMMSS; it counts as " + clockText(second));
        } else if (statusAt.count(clockTime) > 0) {
            findings.push_back(clockText(second) + " is given twice; the last status counts");
        }
        examineStatus(field, findings);
        statusAt[clockTime] = sessionStatus(field);
    }
    return statusAt;
}

// Follows the opens and closes of a day. The first close of the day may end a night session, and a market that opens at
// midnight may stay open past the next midnight.
class DayWalk {
public:
    void pass(int second, int status) {
        if (status == kSessionOpens) {
            if (open) say("opened again at " + clockText(second) + "; the session of " + clockText(*open) + " is lost");
            if (!seen) opensAtMidnight = second == 0;
            open = second;
            seen = true;
        } else if (status == kSessionCloses || status == kSessionClosesToo) {
            if (!open && !seen && !earlyClose) {
                earlyClose = second;
            } else if (!open) {
                sayUnopened(second);
            }
            open.reset();
        }
    }

    Findings end() {
        if (open && !earlyClose && !opensAtMidnight) {
            say("the session that opens at " + clockText(*open) + " never closes; it counts as open until midnight");
        }
        if (earlyClose && !open) sayUnopened(*earlyClose);
        return std::move(findings);
    }

private:
    void say(std::string finding) { findings.push_back(std::move(finding)); }
    void sayUnopened(int second) { say("closed at " + clockText(second) + " without having been opened"); }

    bool seen = false;  // an open has been seen
    bool opensAtMidnight = false;
    std::optional<int> open;
    std::optional<int> earlyClose;  // a close before any open: ends the night session, if there is one
    Findings findings;
};

// --- vendors' answers

Findings contentFindings(const bson::BSONObj& object, const std::string& text) {
    const bson::BSONElement content = object.getField("content");
    if (content.eoo()) return {"the answer has no member \"content\""};
    if (!content.isABSONObj()) return {"\"content\" is neither an object nor a list: " + shownStatus(content)};
    try {
        static_cast<void>(algorithmRecord(text));
        return {};
    } catch (const std::exception& refused) {
        return {"\"content\" makes no record: " + cutText(refused.what(), kMostTroubleBytes)};
    }
}

}  // namespace

std::vector<std::string> marketListFindings(const std::string& text, std::vector<std::string>& markets) {
    Findings findings;
    const std::optional<bson::BSONObj> object = readAnswer(text, findings);
    if (!object) return findings;
    std::set<std::string> seen;
    for (bson::BSONObjIterator fields(*object); fields.more();) {
        const std::string market = fields.next().fieldName();
        if (seen.insert(market).second) {
            markets.push_back(market);
        } else {
            findings.push_back("market " + shownText(market) + " is listed twice");
        }
    }
    if (markets.empty()) findings.push_back("no market is listed");
    return findings;
}

std::vector<std::string> sessionTextFindings(const std::string& text) {
    Findings findings;
    const std::optional<bson::BSONObj> object = readAnswer(text, findings);
    if (!object) return findings;
    DayWalk day;
    for (const auto& [clockTime, status] : readPoints(*object, findings))
        day.pass(secondOfClockTime(clockTime), status);
    const Findings ofTheDay = day.end();
    findings.insert(findings.end(), ofTheDay.begin(), ofTheDay.end());
    return findings;
}

std::vector<std::string> vendorTextFindings(const std::string& text) {
    Findings findings;
    const std::optional<bson::BSONObj> object = readAnswer(text, findings);
    if (!object) return findings;
    const Findings ofTheContent = contentFindings(*object, text);
    findings.insert(findings.end(), ofTheContent.begin(), ofTheContent.end());
    return findings;
}

}  // namespace ttconfig
