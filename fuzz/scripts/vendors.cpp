// A vendor's answer of arbitrary bytes: the text is kept, at most one record results, and if the text is strict JSON,
// the record has the same content.

#include <ttplatform/algorithmsparams.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/target.h"
#include "traderbase/base/config/algorithmparamconfig.h"

namespace {

using fuzz::require;
using ttservice::AlgorithmParamConfig;
using Json = nlohmann::json;

// Detects JSON that the library may read differently: members with a special meaning there, anything that it rejects,
// and repeated names.
class PlainCheck {
public:
    // Parses the text; the result is discarded unless the text is plain.
    static Json read(std::string_view text) {
        if (text.find('\0') != std::string_view::npos) return Json(Json::value_t::discarded);
        PlainCheck check;
        std::vector<std::vector<std::string>> names;
        const auto note = [&](int depth, Json::parse_event_t event, Json& parsed) {
            check.isPlain = check.isPlain && depth < 90;
            if (event == Json::parse_event_t::object_start) names.emplace_back();
            if (event == Json::parse_event_t::object_end && !names.empty()) names.pop_back();
            if (event == Json::parse_event_t::key) check.addName(names.back(), parsed.get<std::string>());
            return true;
        };
        Json value = Json::parse(text, note, false);
        return check.isPlain ? value : Json(Json::value_t::discarded);
    }

private:
    void addName(std::vector<std::string>& names, const std::string& name) {
        isPlain = isPlain && name.find('$') == std::string::npos && name.find('\0') == std::string::npos;
        for (const std::string& other : names)
            isPlain = isPlain && other != name;
        names.push_back(name);
    }

    bool isPlain = true;
};

bool isSame(const Json& left, const Json& right);

bool isSameNumber(double left, double right) {
    // The library reads subnormal numbers as 0.
    const auto flushed = [](double number) {
        return std::abs(number) < std::numeric_limits<double>::min() ? 0.0 : number;
    };
    return flushed(left) == flushed(right);
}

bool isSameList(const Json& left, const Json& right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!isSame(left[i], right[i])) return false;
    }
    return true;
}

bool isSameObject(const Json& left, const Json& right) {
    if (left.size() != right.size()) return false;
    for (const auto& member : left.items()) {
        const auto found = right.find(member.key());
        if (found == right.end() || !isSame(member.value(), *found)) return false;
    }
    return true;
}

bool isSame(const Json& left, const Json& right) {
    if (left.is_number() && right.is_number()) return isSameNumber(left.get<double>(), right.get<double>());
    if (left.type() != right.type()) return false;
    if (left.is_array()) return isSameList(left, right);
    return left.is_object() ? isSameObject(left, right) : left == right;
}

void checkRecord(const CAlgorithmsParams& record, std::string_view text) {
    const Json shown = Json::parse(fuzz::withPlainBytes(record.contentJson()), nullptr, false);
    require(shown.is_object(), "a record's content is a JSON object", text);
    const Json answer = PlainCheck::read(text);
    if (!answer.is_object() || !answer.contains("content") || !answer["content"].is_object()) return;
    const Json content = Json::parse(record.contentJson(), nullptr, false);
    require(isSame(content, answer["content"]), "the record is the content", text);
    const std::string name = answer["content"].contains("name") ? answer["content"]["name"].get<std::string>() : "";
    require(record.name == name, "the record bears its name", text);
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    const boost::shared_ptr<AlgorithmParamConfig> catalogue = AlgorithmParamConfig::instance();
    static const AlgorithmParamConfig empty = *catalogue;
    *catalogue = empty;

    const std::string text(input);
    catalogue->readCiticConfig(text);
    std::string kept;
    catalogue->getCiticOriginalStr(kept);
    require(kept == text, "the text is kept", text);
    const auto records = catalogue->getAlgoritmsParams();
    require(records.size() <= 1, "one text is one record at most", text);
    if (!records.empty()) {
        require(catalogue->getAlgoParam(records[0]->name) == records[0], "a record is found by its name", text);
        checkRecord(*records[0], input);
        static_cast<void>(records[0]->toLog());
        return;
    }
    const Json answer = PlainCheck::read(input);
    if (answer.is_object() && answer.contains("content") && answer["content"].is_object()) {
        require(answer["content"].contains("name") && !answer["content"]["name"].is_string(),
                "a plain answer gives a record", text);
    }
}

TT_FUZZ_TARGET
