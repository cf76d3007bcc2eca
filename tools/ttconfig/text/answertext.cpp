// Answers as text: answers how a value is shown to people and to programs.
// Doors: answerText(), answerJson().
// Owns: nothing.
// Covered by tests/tools/ttconfig/text_test.cpp.

#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

std::string membersText(const Answer& answer);

std::string nestedText(const Answer& answer) {
    if (answer.is_array()) return "[" + membersText(answer) + "]";
    if (answer.is_object()) return "{" + membersText(answer) + "}";
    return answerText(answer);
}

std::string membersText(const Answer& answer) {
    std::string text;
    bool first = true;
    for (const auto& item : answer.items()) {
        if (!first) text += ',';
        first = false;
        if (answer.is_object()) text += item.key() + ':';
        text += nestedText(item.value());
    }
    return text;
}

}  // namespace

std::string answerText(const Answer& answer) {
    if (answer.is_null()) return "none";
    if (answer.is_string()) return answer.get<std::string>();
    if (answer.is_structured()) return membersText(answer);
    return answer.dump();
}

std::string answerJson(const Answer& answer) {
    return answer.dump(-1, ' ', false, Answer::error_handler_t::replace);
}

}  // namespace ttconfig
