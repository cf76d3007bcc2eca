// readConfig() on arbitrary bytes, then every query of the store; each answer is compared with that of a slow store. An
// input is one settings file, or two separated by the line "%%": the second is loaded over the first. The last load is
// an empty file.

#include <standin/platformdatafile.h>

#include <string>
#include <vector>

#include "fuzz/load/loadquestions.h"
#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/target.h"
#include "standin/settingstext.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace {

using fuzz::require;
using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;

constexpr std::string_view kNextFile = "\n%%\n";

// The files of an input, one or two.
std::vector<std::string_view> filesOf(std::string_view input) {
    const std::size_t end = input.find(kNextFile);
    if (end == std::string_view::npos) return {input};
    return {input.substr(0, end + 1), input.substr(end + kNextFile.size())};
}

// The names in the input, and one instrument of every category of the sample platform.
fuzz::Named namesOf(std::string_view input) {
    fuzz::Named named = fuzz::namedIn(standin::SettingsText(std::string(input)));
    for (const char* code : {"688001", "689001", "511801", "510050", "501001", "508001", "155001", "110801", "204001",
                             "203001", "202001", "732001", "783001", "600950", "600960"}) {
        named.instruments.emplace_back("SH", code);
    }
    for (const auto& [market, code] :
         {std::pair("SHO", "10007001"), std::pair("NEEQ", "400001"), std::pair("sgt", "00981"),
          std::pair("SZSEHKEX", "STOCK"), std::pair("HK", "TRANSFER"), std::pair("SH", "stock"), std::pair("", "")}) {
        named.instruments.emplace_back(market, code);
    }
    return named;
}

boost::shared_ptr<ConfigCollector> newStore() {
    boost::shared_ptr<ConfigCollector> store = StoreSlot::build();
    StoreSlot::exchange(store);
    return store;
}

void load(const fuzz::Asked& asked, const std::string& path, std::string_view bytes) {
    asked.store.readConfig(path);
    asked.slow.load(std::string(bytes));
    std::string kept;
    asked.store.getOriginalStr(kept);
    require(kept == path, "the path is kept");
    askEverything(asked);
}

void checkOverrides(ConfigCollector& store) {
    for (const auto& row : ttservice::internal::kPlatformSwitches) {
        const bool before = store.isSomePt(row.key, 12);
        store.addLocalConfig(std::string(row.key), !before);
        require(store.isSomePt(row.key, 12) == !before, "an override answers for its key");
    }
    store.setUseLocalConfig({});
}

// Some defaults, checked again without the slow store.
void checkDefaults(ConfigCollector& store) {
    require(store.getFlowHistoryDays() == -1 && store.getRefLimit() == 0, "missing values are the defaults");
    require(store.getCounterMaxCompactsRespNum(12) == 500, "values by platform are emptied");
    require(store.getAlgoTypes().empty() && store.getT0Strategy().empty(), "lists of names are replaced whole");
    require(!store.isHttpProductID("P1"), "so are those of products");
    require(store.getOrderLimit("SZ", "000001", BROKER_PRICE_INVALID).first == 1000000, "so are limits");
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    static const bool hasPlatform = [] {
        std::string error;
        return standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error);
    }();
    require(hasPlatform, "the sample platform loads");
    const SilentErrors silent;

    const boost::shared_ptr<ConfigCollector> store = newStore();
    SlowStore slow;
    const Named named = namesOf(input);
    HandedOut handedOut;
    const Asked asked{*store, slow, named, handedOut};
    for (const std::string_view file : filesOf(input))
        load(asked, folder.write("settings.ini", file), file);
    askUnits(asked);
    checkOverrides(*store);
    load(asked, "missing.ini", "");
    checkDefaults(*store);
}

TT_FUZZ_TARGET
