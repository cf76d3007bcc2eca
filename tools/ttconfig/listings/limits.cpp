// The limits of an order: shows what an order-entry screen asks about one instrument, and what decided each answer.
// Entry points: runLimits().
// Covered by tests/tools/ttconfig/listings/limits_test.cpp.

#include "ttconfig/listings/limits.h"

#include <ttplatform/text.h>

#include <array>
#include <charconv>
#include <cmath>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/listings/limitfacts.h"
#include "ttconfig/settings/quietload.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

// Reasons are wrapped at this width, which makes lines of about 120 columns; long keys are cut.
constexpr std::size_t kReasonWidth = 78;
constexpr std::size_t kMostKeyBytes = 40;

// --- reasons

// "HGT-STOCK (market HGT or SSEHKEX): line 298 [HGTExchangeRateLimit] HGT-STOCK,SSEHKEX-STOCK"
std::string itemText(const LimitBasis& limit) {
    std::string item = limit.item;
    if (!limit.category.word.empty()) item += " (" + std::string(limit.category.rule) + ")";
    if (limit.row == nullptr) return "default, no row for " + item;
    return item + ": line " + std::to_string(limit.row->line) + " [" + std::string(limit.section) + "] " +
           cutText(limit.row->key, kMostKeyBytes);
}

std::string reasonText(const LimitFact& fact) {
    return fact.explanation.limit ? itemText(*fact.explanation.limit) : fact.explanation.rule;
}

Answer itemJson(const LimitBasis& limit) {
    Answer json = {{"by", limit.row != nullptr ? "row" : "default"}, {"item", limit.item}};
    if (!limit.category.word.empty()) {
        json["category"] = std::string(limit.category.word);
        json["categoryRule"] = std::string(limit.category.rule);
    }
    if (limit.row != nullptr) {
        json["section"] = std::string(limit.section);
        json["key"] = std::string(limit.row->key);
        json["value"] = std::string(limit.row->value);
        json["line"] = limit.row->line;
    }
    return json;
}

Answer reasonJson(const Explanation& explanation) {
    if (explanation.limit) return itemJson(*explanation.limit);
    const auto* rule = explanation.unitRule;
    if (rule == nullptr) return {{"by", "list"}, {"meaning", explanation.rule}};
    return {{"by", "rule"}, {"rule", std::string(rule->number)}, {"meaning", std::string(rule->meaning)}};
}

// --- text

// Rates are small; without an exponent they look as they do in a settings file.
std::string numberText(const Answer& number) {
    if (!number.is_number_float()) return answerText(number);
    const auto value = number.get<double>();
    const double size = std::fabs(value);
    const bool isPlain = size == 0.0 || (size >= 1e-9 && size < 1e12);
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   isPlain ? std::chars_format::fixed : std::chars_format::general);
    return {digits.data(), end.ptr};
}

// A quantity and its unit, the numbers of a record, or a value alone.
std::string factText(const Answer& answer) {
    if (!answer.is_array()) return answerText(answer);
    std::string text;
    for (const Answer& value : answer)
        text += (text.empty() ? "" : " ") + numberText(value);
    return text;
}

// The text wrapped into lines at blanks.
std::vector<std::string> brokenText(std::string_view text, std::size_t width) {
    std::vector<std::string> lines{""};
    ttservice::internal::splitKeepEmpty(text, ' ', [&](std::string_view word) {
        std::string& line = lines.back();
        if (line.empty()) {
            line = word;
        } else if (displayWidth(line) + 1 + displayWidth(word) <= width) {
            line += ' ' + std::string(word);
        } else {
            lines.emplace_back(word);
        }
    });
    return lines;
}

// Whether the answer is a rate record; a quantity with its unit has only two values.
bool isRates(const LimitFact& fact) {
    return fact.answer.is_array() && fact.answer.size() > 2;
}

std::string asked(const char* what, const std::optional<int>& number) {
    return number ? std::string(what) + ' ' + std::to_string(*number) : std::string("no ") + what;
}

std::string titleOf(const LimitQuestion& question) {
    const std::string given = question.market + ' ' + question.code;
    const std::string upper = utils::toUpper(given);
    return given + (given == upper ? "" : " (limits and rates: " + upper + ")") + ", " +
           asked("price type", question.priceType) + ", " + asked("operation", question.op);
}

// Limits and units with their reasons beside them, rates with theirs below.
std::string textOf(const LimitQuestion& question, const std::vector<LimitFact>& facts) {
    Table limits{"", titleOf(question), {"what", "answer", "reason"}, {}};
    Table rates{"", "Rates", {"what", "answer or reason"}, {}};
    for (const LimitFact& fact : facts) {
        const std::string reason = reasonText(fact);
        if (isRates(fact)) {
            rates.rows.push_back({fact.label, factText(fact.answer)});
            rates.rows.push_back({"", reason});
            continue;
        }
        std::string label = fact.label;
        std::string answer = factText(fact.answer);
        for (const std::string& line : brokenText(reason, kReasonWidth)) {
            limits.rows.push_back({label, answer, line});
            label.clear();
            answer.clear();
        }
    }
    return tableText(limits) + '\n' + tableText(rates);
}

// --- JSON

Answer jsonOf(const LimitQuestion& question, const std::vector<LimitFact>& facts) {
    Answer json = {{"market", question.market}, {"code", question.code}};
    json["priceType"] = question.priceType ? Answer(*question.priceType) : Answer(nullptr);
    json["op"] = question.op ? Answer(*question.op) : Answer(nullptr);
    for (const LimitFact& fact : facts)
        json[fact.name] = {{"answer", fact.answer}, {"reason", reasonJson(fact.explanation)}};
    return json;
}

void tellWhatIsMissing(const SharedOptions& options) {
    if (!options.settings) {
        std::cerr << "ttconfig: no --settings given: these are the answers without a settings file\n";
    }
    if (!options.platform) {
        std::cerr << "ttconfig: no --platform given: no type and no record of the instrument is known\n";
    }
}

}  // namespace

void runLimits(const CommandLine& commandLine, Output& output) {
    {
        const QuietLoad quiet;
        carryOut(commandLine.shared);
    }
    standin::SettingsText text;
    if (commandLine.shared.settings) standin::SettingsText::load(*commandLine.shared.settings, text);
    const LimitQuestion question{commandLine.words.at(0), commandLine.words.at(1), commandLine.priceType,
                                 commandLine.op};
    const std::vector<LimitFact> facts = limitFacts(text, question);
    tellWhatIsMissing(commandLine.shared);
    output.write(commandLine.format == Format::Json ? answerJson(jsonOf(question, facts)) + '\n'
                                                    : textOf(question, facts));
}

}  // namespace ttconfig
