// Script examination: asks a script everything that the client could ask.
// Entry points: examineScript().
// Covered by tests/tools/ttconfig/scripts/scriptcheck_test.cpp.

#include "ttconfig/scripts/scriptexamination.h"

#include <optional>
#include <vector>

#include "traderbase/base/config/internal/scripts/vendorblocks.h"
#include "ttconfig/calls/records.h"
#include "ttconfig/scripts/answerfindings.h"
#include "ttconfig/scripts/checkedscript.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using ttservice::internal::kVendorBlocks;
using ttservice::internal::VendorBlock;

constexpr const char* kMarketList = "getMarkets";
constexpr const char* kSessionTexts = "getMarketTradeDuration";

class Examination {
public:
    explicit Examination(const SendLine& send)
        : sendLine(send), script([this](const std::string& text) {
              this->send({{"printed", text}});
          }) {}

    void examine(const std::string& path) {
        send({{"doing", "running the script"}});
        ScriptTrouble trouble;
        if (!script.load(path, trouble)) return report("script", trouble);
        const bool marketTimes = script.defines(kMarketList) || script.defines(kSessionTexts);
        const bool algorithms = definesVendors();
        if (marketTimes) examineMarketTimes();
        if (algorithms) examineVendors();
        if (!marketTimes && !algorithms) {
            report("script", "defines none of the functions that the client calls: neither " +
                                 std::string(kMarketList) + " and " + kSessionTexts + " nor any vendor's");
        }
    }

private:
    void send(const Answer& message) { sendLine(answerJson(message)); }

    void report(const std::string& where, const std::string& message, int line = 0) {
        send({{"where", where}, {"line", line}, {"message", message}});
    }
    void report(const std::string& where, const ScriptTrouble& trouble) {
        const bool early = trouble.message.find("global 'printLog'") != std::string::npos;
        report(where, trouble.message + (early ? "; printLog is there when the script has run to its end" : ""),
               trouble.line);
    }
    void reportAll(const std::string& where, const std::vector<std::string>& findings) {
        for (const std::string& finding : findings)
            report(where, finding);
    }

    // The text that the function answers. When it answers none, reports why.
    std::optional<std::string> ask(const char* function, const std::string* argument) {
        const std::string where =
            argument == nullptr ? function : std::string(function) + "(" + shownText(*argument) + ")";
        if (!script.defines(function)) {
            report(function, "the function is missing");
            return std::nullopt;
        }
        send({{"doing", where}});
        const ScriptAnswer answer = script.call(function, argument);
        if (answer.kind == ScriptAnswer::Kind::Failed) report(where, answer.trouble);
        if (answer.kind == ScriptAnswer::Kind::NoText) report(where, "answers no text but a " + answer.text + " value");
        if (answer.kind != ScriptAnswer::Kind::Text) return std::nullopt;
        return answer.text;
    }

    void examineMarketTimes() {
        std::vector<std::string> markets;
        if (const auto list = ask(kMarketList, nullptr)) reportAll(kMarketList, marketListFindings(*list, markets));
        if (!script.defines(kSessionTexts)) {
            report(kSessionTexts, "the function is missing");
        } else {
            for (const std::string& market : markets) {
                if (const auto text = ask(kSessionTexts, &market)) {
                    reportAll("market " + shownText(market), sessionTextFindings(*text));
                }
            }
        }
        send({{"markets", markets.size()}});
    }

    bool definesVendors() {
        for (const VendorBlock& block : kVendorBlocks) {
            if (script.defines(block.function)) return true;
        }
        return false;
    }

    void examineVendors() {
        for (const VendorBlock& block : kVendorBlocks) {
            if (const auto text = ask(block.function, nullptr)) reportAll(block.function, vendorTextFindings(*text));
        }
        send({{"algorithms", std::size(kVendorBlocks)}});
    }

    const SendLine& sendLine;
    CheckedScript script;
};

}  // namespace

void examineScript(const std::string& path, const SendLine& send) {
    Examination(send).examine(path);
}

}  // namespace ttconfig
