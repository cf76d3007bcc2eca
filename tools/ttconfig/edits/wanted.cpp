// Wanted answers: tells whether an answer is the expected one.
// Entry points: Wanted, withoutRecordNumbers().
// Covered by tests/tools/ttconfig/explaining/whynot_test.cpp.

#include "ttconfig/edits/wanted.h"

#include <algorithm>
#include <utility>

#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
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

// The values of a record, without their names.
Answer valuesOf(const Answer& record) {
    if (!record.is_object()) return record;
    if (record.size() == 1 && record.contains("fields")) return record.at("fields");
    Answer values = Answer::array();
    for (const auto& [name, value] : record.items())
        values.push_back(value);
    return values;
}

std::vector<std::string> textsOf(const Answer& items) {
    std::vector<std::string> texts;
    for (const Answer& item : items)
        texts.push_back(answerText(item));
    return texts;
}

// Compares the answer as printed, because printing changes numbers that are not finite and bytes that are not UTF-8.
// The order of an object's members does not matter.
bool isSame(const Answer& answer, const Answer& wanted) {
    return Argument::parse(answerJson(answer)) == Argument(wanted);
}

// Whether the answer equals a list or record that was read from text. A number may be spelled differently.
bool isShown(const Answer& answer, const Answer& read) {
    if (!read.is_structured()) {
        if (!answer.is_number() || !read.is_string()) return answerText(answer) == answerText(read);
        return ttservice::internal::strictDouble(read.get_ref<const std::string&>()) == answer.get<double>();
    }
    if (!answer.is_structured() || answer.size() != read.size()) return false;
    if (answer.empty()) return true;
    if (answer.is_object() != read.is_object()) return false;
    return std::equal(answer.items().begin(), answer.items().end(), read.items().begin(),
                      [](const auto& left, const auto& right) {
                          return left.key() == right.key() && isShown(left.value(), right.value());
                      });
}

// Parses lists and records in the format of answerText(). Every item is read as a text.
class ShownAnswer {
public:
    explicit ShownAnswer(std::string_view text) : rest(text) {}

    // The items up to the end or to the closing bracket.
    Answer items() {
        Answer list = Answer::array();
        Answer record = Answer::object();
        bool isMore = !isAtEnd();
        while (isMore) {
            const std::string_view text = upTo(",:[]{}");
            if (take(':')) {
                record.get_ref<Answer::object_t&>().push_back({std::string(text), value(upTo(",[]{}"))});
            } else {
                list.push_back(value(text));
            }
            isMore = take(',');
        }
        return list.empty() && !record.empty() ? record : list;
    }

private:
    bool isAtEnd() const { return rest.empty() || rest.front() == ']' || rest.front() == '}'; }

    bool take(char byte) {
        const bool isThere = !rest.empty() && rest.front() == byte;
        if (isThere) rest.remove_prefix(1);
        return isThere;
    }

    // Takes the text before the next of these bytes.
    std::string_view upTo(const char* bytes) {
        const std::string_view text = rest.substr(0, rest.find_first_of(bytes));
        rest.remove_prefix(text.size());
        return text;
    }

    // The list or record that starts here; if none does, `text`, which has just been read.
    Answer value(std::string_view text) {
        if (!take('[') && !take('{')) return std::string(text);
        Answer inner = items();
        if (!rest.empty()) rest.remove_prefix(1);
        return inner;
    }

    std::string_view rest;
};

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
    const Answer values = valuesOf(plain);
    for (const Answer* shown : {&answer, &plain, &values}) {
        if (answerText(*shown) == written) return true;
    }
    if (value) return isSame(plain, *value) || isSame(values, *value);
    const Answer read = structure();
    return isShown(plain, read) || isShown(values, read);
}

bool Wanted::isPlainly(const Answer& answer) const {
    if (!matches(answer)) return false;
    if (value || !answer.is_array()) return true;
    return std::none_of(answer.begin(), answer.end(), [](const Answer& item) {
        return item.is_string() && item.get_ref<const std::string&>().find(',') != std::string::npos;
    });
}

std::optional<bool> Wanted::flag() const {
    if (!value || !value->is_boolean()) return std::nullopt;
    return value->get<bool>();
}

std::string Wanted::text() const {
    return value && value->is_string() ? value->get<std::string>() : written;
}

std::vector<std::string> Wanted::items() const {
    if (value && value->is_array()) return textsOf(*value);
    std::vector<std::string> all;
    const std::string whole = text();
    if (whole.empty()) return all;
    ttservice::internal::splitKeepEmpty(whole, ',', [&all](std::string_view item) { all.emplace_back(item); });
    return all;
}

Answer Wanted::structure() const {
    if (value) return value->is_structured() ? *value : Answer();
    if (isNone() || isNestedTooDeep(written)) return {};
    return withoutRecordNumbers(ShownAnswer(written).items());
}

std::vector<std::string> Wanted::values() const {
    const Answer read = structure();
    return read.is_object() ? textsOf(valuesOf(read)) : items();
}

}  // namespace ttconfig
