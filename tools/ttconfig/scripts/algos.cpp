// ttconfig algos: shows what the algorithm catalogue makes of a script.
// Entry points: runAlgos().
// Covered by tests/tools/ttconfig/scripts/algos_test.cpp.

#include "ttconfig/scripts/algos.h"

#include <standin/platformdata.h>
#include <ttplatform/algorithmsparams.h>
#include <ttplatform/rights.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "luaconfig/luaconfig.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/internal/scripts/algorithmrecord.h"
#include "traderbase/base/config/internal/scripts/vendorblocks.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/scripts/requirescript.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::AlgorithmParamConfig;
using ttservice::internal::kAlgorithmRights;
using ttservice::internal::kVendorBlocks;
using ttservice::internal::VendorBlock;

std::vector<std::string_view> knownProducts() {
    std::vector<std::string_view> products;
    for (const VendorBlock& block : kVendorBlocks) {
        if (block.product != nullptr) products.push_back(block.product);
        if (block.alternative != nullptr) products.push_back(block.alternative);
    }
    return products;
}

// Adds rights to those of the platform data. Warns of a right that guards no block, as it may be misspelt.
void grant(std::string_view list) {
    const std::vector<std::string_view> known = knownProducts();
    standin::PlatformData data = *standin::PlatformData::current();
    ttservice::internal::splitDropEmpty(list, ',', [&](std::string_view product) {
        data.addRight(kAlgorithmRights, std::string(product));
        if (std::find(known.begin(), known.end(), product) != known.end()) return;
        std::cerr << "ttconfig: the right " << shownText(product) << " opens nothing" << didYouMean(product, known)
                  << '\n';
    });
    standin::PlatformData::install(std::move(data));
}

bool holds(const char* product) {
    return product != nullptr && ttservice::testAuth(kAlgorithmRights, product);
}

// The right that opens the block: "always" when it needs none, empty when the user holds no such right.
std::string openedBy(const VendorBlock& block) {
    if (block.product == nullptr) return "always";
    if (holds(block.product)) return block.product;
    return holds(block.alternative) ? block.alternative : "";
}

// The record that the text describes, if it is valid.
struct RecordOf {
    explicit RecordOf(const std::string& text) {
        try {
            const auto record = ttservice::internal::algorithmRecord(text);
            name = record->name;
            content = Answer::parse(withReplacedBytes(record->contentJson()));
            found = true;
        } catch (const std::exception&) {
            found = false;
        }
    }

    bool found = false;
    std::string name;
    Answer content;
};

std::string textOf(const AlgorithmParamConfig& catalogue, const VendorBlock& block) {
    std::string text;
    (catalogue.*block.get)(text);
    return text;
}

Table blockTable(const AlgorithmParamConfig& catalogue, Format format) {
    Table table{"blocks", "", {"function", "right", "bytes", "record"}, {}};
    if (format == Format::Json) table.columns.push_back("content");
    for (const VendorBlock& block : kVendorBlocks) {
        const std::string right = openedBy(block);
        const std::string text = textOf(catalogue, block);
        const RecordOf record(text);
        const Answer name = record.found ? Answer(record.name) : Answer(nullptr);
        const Answer opened = right.empty() ? Answer(nullptr) : Answer(right);
        table.rows.push_back({block.function, opened, text.size(), name});
        if (format == Format::Json) table.rows.back().push_back(record.content);
    }
    return table;
}

// Whether a block that was opened gave no record.
bool lacksRecords(const Table& table) {
    return std::any_of(table.rows.begin(), table.rows.end(),
                       [](const std::vector<Answer>& row) { return !row[1].is_null() && row[3].is_null(); });
}

}  // namespace

void runAlgos(const CommandLine& commandLine, Output& output) {
    carryOut(commandLine.shared);
    requireScript(*commandLine.script);
    if (commandLine.rights) grant(*commandLine.rights);
    luabase::LuaConfig script;
    script.init(*commandLine.script);
    const auto catalogue = AlgorithmParamConfig::instance();
    catalogue->initAlgoParams(script);
    const Table table = blockTable(*catalogue, commandLine.format);
    if (lacksRecords(table)) {
        std::cerr << "ttconfig: not every function gave a record; ttconfig script check " << *commandLine.script
                  << " tells why\n";
    }
    output.write(commandLine.format == Format::Json ? answerJson(tableJson(table)) + '\n' : tableText(table));
}

}  // namespace ttconfig
