// The summary: shows what was loaded and what follows from it.
// Entry points: runSummary().
// Owns: the sample questions.
// Covered by tests/tools/ttconfig/listings/summary_test.cpp.

#include "ttconfig/listings/summary.h"

#include <algorithm>
#include <iterator>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/listings/settingsoverview.h"
#include "ttconfig/settings/quietload.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

// Text output shows at most this many rows of a table, a screen or two; JSON has them all.
constexpr std::size_t kMostRows = 120;

// Sample questions for a first look at a desk's settings, topic by topic: each is a call and its arguments.
const std::vector<std::vector<std::string>> kQuestions = {
    {"isNeedMaxAmountPts", "12"},
    {"isNeedMaxAmountPts", "205"},
    {"isChangeBrokerId", "21"},
    {"needReplaceCashRequired", "26"},
    {"isT0ForReturnStockPts", "47"},
    {"getCounterMaxCompactsRespNum", "47"},
    {"getCounterMaxCompactsRespNum", "12"},
    {"useCounterIpwanPos", "21"},
    {"useNewBondRules", "SH"},
    {"getFlowHistoryDays"},
    {"getHgtSgtPriceDiff"},
    {"getOrderLimit", "SH", "600000", "0"},
    {"getOrderLimit", "SH", "688001", "50"},
    {"getTradeMinUnit", "SH", "688001"},
    {"getStockUnit", "SH", "510300"},
    {"getTradingTime", "SH"},
    {"getStandardBondUseLimit", "888880"},
    {"isUseConcentrationRatioPts", "41"},
    {"getSubFee", "ag"},
    {"getSingleMarginProductName", "bc"},
    {"getProductIdbyAlgoName", "VWAP", "false"},
};

Table answersTable() {
    Table table{"answers", "Some answers", {"question", "answer"}, {}};
    CallState state;
    for (const std::vector<std::string>& words : kQuestions) {
        std::string question;
        for (const std::string& word : words)
            question += (question.empty() ? "" : " ") + word;
        const std::vector<std::string> arguments(std::next(words.begin()), words.end());
        table.rows.push_back({question, callTable().answerWords(state, words.front(), arguments)});
    }
    return table;
}

// What the settings file says. Adds a row that counts what was passed over to the table of what was loaded.
std::vector<Table> settingsTables(const std::string& path, Table& loaded) {
    standin::SettingsText text;
    standin::SettingsText::load(path, text);
    std::vector<Table> tables{sectionsOf(text), switchesOf(text), singleValuesOf(text), platformValuesOf(text)};
    Table passedOver = passedOverOf(text);
    const std::size_t places = passedOver.rows.size();
    loaded.rows.push_back({"passed over", places == 0 ? "nothing" : std::to_string(places) + " places, see below"});
    if (places > 0) tables.push_back(std::move(passedOver));
    return tables;
}

Table loadedTable(const SharedOptions& options) {
    Table table{"loaded", "Loaded", {"what", "from"}, {}};
    table.rows.push_back({"settings file", options.settings.value_or("none, every answer is a default")});
    table.rows.push_back({"platform data", options.platform.value_or("none, no instrument is known")});
    return table;
}

}  // namespace

void runSummary(const CommandLine& commandLine, Output& output) {
    std::vector<Table> tables{loadedTable(commandLine.shared)};
    {
        const QuietLoad quiet;
        carryOut(commandLine.shared);
        if (commandLine.shared.settings) {
            std::vector<Table> more = settingsTables(*commandLine.shared.settings, tables.front());
            std::move(more.begin(), more.end(), std::back_inserter(tables));
        }
        tables.push_back(answersTable());
    }
    if (commandLine.format == Format::Json) {
        Answer all = Answer::object();
        for (const Table& table : tables)
            all[table.name] = tableJson(table);
        output.write(answerJson(all) + '\n');
        return;
    }
    std::string text;
    for (const Table& table : tables)
        text += (text.empty() ? "" : "\n") + tableText(table, kMostRows);
    output.write(text);
}

}  // namespace ttconfig
