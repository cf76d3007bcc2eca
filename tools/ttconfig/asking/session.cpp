// The session: answers requests, one JSON object per line.
// Entry points: answerLine(), runSession().
// Owns: the records and handles of the session.
// Covered by tests/tools/ttconfig/asking/session_test.cpp and the golden sessions.

#include "ttconfig/asking/session.h"

#include <exception>

#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nesting.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/widenumbers.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostErrorBytes = 500;

// The JSON library's message, without its exception number and without the line number, which is always 1.
std::string parseTrouble(const Argument::exception& trouble) {
    std::string_view text = trouble.what();
    if (const auto end = text.find("] "); end != std::string_view::npos) text.remove_prefix(end + 2);
    for (const std::string_view prefix : {"parse error at line 1, ", "parse error: "}) {
        if (text.substr(0, prefix.size()) == prefix) text.remove_prefix(prefix.size());
    }
    return "not JSON: " + std::string(text);
}

Argument parseRequest(std::string_view line) {
    if (isNestedTooDeep(line)) throw CallRefused("nested deeper than " + std::to_string(kDeepestNesting) + " levels");
    // The parser would stop at the NUL byte and ignore the rest of the line.
    if (line.find('\0') != std::string_view::npos) throw CallRefused("not JSON: a NUL byte");
    try {
        try {
            return Argument::parse(line);
        } catch (const Argument::out_of_range&) {
            // A number too large for a double suits no argument, but the request's id must still be readable.
            return Argument::parse(withoutWideNumbers(line));
        }
    } catch (const Argument::exception& trouble) {
        throw CallRefused(parseTrouble(trouble));
    }
}

Answer answerRequest(const CallTable& table, CallState& state, const Argument& request) {
    const auto call = request.find("call");
    if (call == request.end()) throw CallRefused("a request needs a member \"call\"");
    if (!call->is_string()) throw CallRefused("\"call\" is the name of an operation, a text");
    static const Arguments kNoArguments;
    const auto args = request.find("args");
    if (args != request.end() && !args->is_array()) throw CallRefused("\"args\" is an array");
    const Arguments& arguments = args == request.end() ? kNoArguments : args->get_ref<const Arguments&>();
    return table.answer(state, call->get_ref<const std::string&>(), arguments);
}

// Carries out a request. Sets id as soon as it is known, so that a refusal can carry it too.
Answer answerTo(const CallTable& table, CallState& state, std::string_view line, Argument& id) {
    const Argument request = parseRequest(line);
    if (!request.is_object()) throw CallRefused("a request is an object such as {\"call\": NAME, \"args\": [...]}");
    if (const auto found = request.find("id"); found != request.end()) id = *found;
    return answerRequest(table, state, request);
}

}  // namespace

std::string answerLine(const CallTable& table, CallState& state, std::string_view line) {
    Answer answer = Answer::object();
    Argument id(Argument::value_t::discarded);
    std::string error;
    try {
        answer["ok"] = answerTo(table, state, line, id);
    } catch (const CallRefused& refused) {
        error = refused.what();
    } catch (const std::exception& failure) {
        error = std::string("exception: ") + failure.what();
    } catch (...) {
        error = "exception of an unknown type";
    }
    if (!error.empty()) {
        answer.clear();
        answer["error"] = cutText(error, kMostErrorBytes);
    }
    if (!id.is_discarded()) answer["id"] = Answer(id);
    return answerJson(answer);
}

void runSession(std::istream& input, Output& output) {
    CallState state;
    std::string line;
    while (std::getline(input, line)) {
        if (!output.write(answerLine(callTable(), state, line) + '\n')) return;
    }
}

}  // namespace ttconfig
