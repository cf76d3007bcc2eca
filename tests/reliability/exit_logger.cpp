// A host that ends while both singletons live and its logger still stands: their destruction asks no logger, and the
// logger that counts its lines tells none after main() has returned.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "standin/logsetup.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "ttplatform/logging.h"

namespace {

bool mainIsOver = false;

// Made before the singletons, so it ends after them.
struct LastWord {
    LastWord() = default;
    LastWord(const LastWord&) = delete;
    LastWord& operator=(const LastWord&) = delete;
    ~LastWord() {
        const bool silent = storeLog == nullptr || storeLog->lines().size() == linesAtEnd;
        std::puts(mainIsOver && silent ? "ended in silence" : "something was logged while the process ended");
        std::fflush(stdout);
    }

    standin::LogCapture* storeLog = nullptr;
    std::size_t linesAtEnd = 0;
};

LastWord lastWord;

}  // namespace

int main() {
    static standin::LogCapture& log = *new standin::LogCapture;  // stands for as long as the process does
    const auto store = ttservice::ConfigCollector::instance();
    const auto catalogue = ttservice::AlgorithmParamConfig::instance();
    store->setUseOrderIdFunction(true);
    store->readConfig(TT_SOURCE_DIR "/samples/settings.ini");
    catalogue->readCiticConfig("{\"content\":{\"name\":\"x\"}}");
    lastWord.storeLog = &log;
    lastWord.linesAtEnd = log.lines().size();
    mainIsOver = true;
    if (lastWord.linesAtEnd == 0) std::abort();  // nothing was listened to
    return 0;
}
