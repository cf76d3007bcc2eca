// readConfig() of any bytes, then every query of the store: the answers that can be worked out slowly are compared, the
// others have to be among those that may be. Then a second load, of nothing.

#include <standin/platformdatafile.h>

#include <map>
#include <string>
#include <vector>

#include "fuzz/loadquestions.h"
#include "fuzz/scratchfolder.h"
#include "fuzz/target.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/platformswitchtable.h"
#include "traderbase/base/config/internal/storeslot.h"

namespace {

using fuzz::require;
using standin::SettingsText;
using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;

using Lists = std::map<std::string, std::vector<int>>;

Lists slowLists(const SettingsText& text) {
    Lists lists;
    if (const standin::SettingsSection* setting = text.findSection("setting")) {
        for (const standin::SettingsEntry& entry : setting->entries) {
            if (entry.repeated) continue;
            lists[std::string(entry.key)] = tests::slowPlatformList(std::string(entry.value)).ids;
        }
    }
    return lists;
}

boost::shared_ptr<ConfigCollector> newStore() {
    boost::shared_ptr<ConfigCollector> store = StoreSlot::build();
    StoreSlot::exchange(store);
    return store;
}

void checkOverrides(ConfigCollector& store) {
    for (const auto& row : ttservice::internal::kPlatformSwitches) {
        const bool before = store.isSomePt(row.key, 12);
        store.addLocalConfig(std::string(row.key), !before);
        require(store.isSomePt(row.key, 12) == !before, "an override answers for its key");
    }
    store.setUseLocalConfig({});
}

void loadNothing(ConfigCollector& store, const Lists& lists) {
    const auto fixedIncome = store.getSHFixIncomeLimit(static_cast<EBondTradeType>(2));
    store.readConfig("missing.ini");
    require(store.getAllpts() == lists, "switches that a file lacks keep their lists");
    require(store.getSHFixIncomeLimit(static_cast<EBondTradeType>(2)) == fixedIncome, "fixed-income limits stay");
    require(store.getFlowHistoryDays() == -1 && store.getRefLimit() == 0, "missing values are the defaults");
    require(store.getCounterMaxCompactsRespNum(12) == 500, "values by platform are emptied");
    require(store.getAlgoTypes().empty() && store.getT0Strategy().empty(), "lists of names are replaced whole");
    require(!store.isHttpProductID("P1"), "so are those of products");
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    static const std::string settings = folder.write("settings.ini", "");
    static const bool hasPlatform = [] {
        std::string error;
        return standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error);
    }();
    require(hasPlatform, "the sample platform loads");
    const SilentErrors silent;

    folder.write("settings.ini", input);
    const SettingsText text{std::string(input)};
    const Lists lists = slowLists(text);
    const boost::shared_ptr<ConfigCollector> store = newStore();
    store->readConfig(settings);
    std::string path;
    store->getOriginalStr(path);
    require(path == settings, "the path is kept");
    require(store->getAllpts() == lists, "switches are the keys of the main section");
    askEverything(*store, text);
    checkOverrides(*store);

    store->readConfig(settings);
    require(store->getAllpts() == lists, "a second load of the same text changes no switch");
    loadNothing(*store, lists);
}

TT_FUZZ_TARGET
