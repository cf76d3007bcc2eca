// Wanted answers: answers whether an answer is the one that somebody expected.
// Doors: Wanted, withoutRecordNumbers().
// Owns: nothing.
// Covered by tests/tools/ttconfig/whynot_test.cpp.

#include "ttconfig/reasons/wanted.h"

#include <utility>

#include "traderbase/base/config/internal/splitting.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nesting.h"

namespace ttconfig {

namespace {

std::optional<Answer> asJson(const std::string& text) {
    if (isNestedTooDeep(text)) return std::nullopt;
    Answer value = Answer::parse(text, nullptr, false);
    if (value.is_discarded()) return std::nullopt;
    return value;
}

// The numbers of a record that holds nothing else.
const Answer* numbersOf(const Answer& answer) {
    return answer.is_object() && answer.size() == 1 && answer.contains("fields") ? &answer.at("fields") : nullptr;
}

// Objects are compared whatever the order of their members.
bool isSame(const Answer& answer, const Answer& wanted) {
    return Argument(answer) == Argument(wanted);
}

}  // namespace

Answer withoutRecordNumbers(const Answer& answer) {
    if (answer.is_array()) {
        Answer items = Answer::array();
        for (const Answer& item : answer)
            items.push_back(withoutRecordNumbers(item));
        return items;
    }
    if (!answer.is_object()) return answer;
    Answer members = Answer::object();
    auto& list = members.get_ref<Answer::object_t&>();
    for (const auto& [name, member] : answer.items()) {
        if (name != "@") list.push_back({name, withoutRecordNumbers(member)});
    }
    return members;
}

Wanted::Wanted(std::string text) : written(std::move(text)), value(asJson(written)) {
    if (value) value = withoutRecordNumbers(*value);
}

bool Wanted::matches(const Answer& answer) const {
    const Answer plain = withoutRecordNumbers(answer);
    if (answerText(plain) == written) return true;
    const Answer* numbers = numbersOf(plain);
    if (numbers != nullptr && answerText(*numbers) == written) return true;
    if (!value) return false;
    return isSame(plain, *value) || (numbers != nullptr && isSame(*numbers, *value));
}

std::optional<bool> Wanted::flag() const {
    if (!value || !value->is_boolean()) return std::nullopt;
    return value->get<bool>();
}

std::string Wanted::text() const {
    return value && value->is_string() ? value->get<std::string>() : written;
}

std::vector<std::string> Wanted::items() const {
    std::vector<std::string> all;
    if (value && value->is_structured()) {
        const Answer* numbers = numbersOf(*value);
        for (const Answer& item : numbers == nullptr ? *value : *numbers)
            all.push_back(answerText(item));
        return all;
    }
    const std::string whole = text();
    if (whole.empty()) return all;
    ttservice::internal::splitKeepEmpty(whole, ',', [&all](std::string_view item) { all.emplace_back(item); });
    return all;
}

}  // namespace ttconfig
