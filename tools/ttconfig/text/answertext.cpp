// Answers as text: formats values for people and for programs.
// Entry points: answerText(), textJson(), answerJson().
// Covered by tests/tools/ttconfig/text/text_test.cpp.

#include "ttconfig/text/answertext.h"

#include <cstdint>

#include "ttconfig/text/utf8.h"

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
    if (answer.is_array()) {
        for (const Answer& item : answer)
            text.append(&item == &answer.front() ? "" : ",").append(nestedText(item));
        return text;
    }
    bool first = true;
    for (const auto& item : answer.items()) {
        text.append(first ? "" : ",").append(item.key()).append(":").append(nestedText(item.value()));
        first = false;
    }
    return text;
}

}  // namespace

std::string answerText(const Answer& answer) {
    if (answer.is_null()) return "none";
    if (answer.is_string()) return answer.get_ref<const std::string&>();
    if (answer.is_number_integer()) {
        return answer.is_number_unsigned() ? std::to_string(answer.get<std::uint64_t>())
                                           : std::to_string(answer.get<std::int64_t>());
    }
    if (answer.is_structured()) return membersText(answer);
    return answer.dump();
}

std::string textJson(std::string_view text) {
    std::string json = "\"";
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
        length = utf8Length(text);
        const char first = text.front();
        if (length == 0 || (first >= '\0' && first < ' ')) {
            // This is rare: let the JSON library write the rest of the text.
            return json + answerJson(std::string(text)).substr(1);
        }
        if (first == '"' || first == '\\') json += '\\';
        json += text.substr(0, length);
    }
    return json + '"';
}

std::string answerJson(const Answer& answer) {
    return answer.dump(-1, ' ', false, Answer::error_handler_t::replace);
}

}  // namespace ttconfig
