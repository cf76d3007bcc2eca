// A host that ends while both singletons live. Their destructors must use no logger: neither one that lives longer
// ("standing", whose lines are counted) nor one that was destroyed before them ("gone").

#include <sys/mman.h>
#include <unistd.h>

#include <boost/weak_ptr.hpp>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "standin/logsetup.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "ttplatform/logging.h"

using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace {

void require(bool holds, const char* what) {
    if (holds) return;
    std::printf("broken: %s\n", what);
    std::fflush(stdout);
    std::_Exit(1);
}

// Made before the singletons, so it ends after them.
struct LastWord {
    LastWord() = default;
    LastWord(const LastWord&) = delete;
    LastWord& operator=(const LastWord&) = delete;
    ~LastWord() {
        require(log != nullptr, "main() comes to its end");
        require(store.expired(), "the store is destroyed");
        require(catalogue.expired(), "the catalogue is destroyed");
        require(log->lines().size() == linesAtEnd, "nothing is logged while the process ends");
        std::puts("ended in silence");
        std::fflush(stdout);
    }

    standin::LogCapture* log = nullptr;
    std::size_t linesAtEnd = 0;
    boost::weak_ptr<ConfigCollector> store;
    boost::weak_ptr<AlgorithmParamConfig> catalogue;
};

LastWord lastWord;

extern "C" void tellOfDeadLogger(int /*signal*/) {
    constexpr char kText[] = "broken: a logger that is gone was asked\n";
    const ssize_t written = write(STDOUT_FILENO, kText, sizeof(kText) - 1);
    std::_Exit(written < 0 ? 2 : 1);
}

// Stands for a destroyed logger: memory that must not be touched.
log4cxx::LoggerPtr deadLogger() {
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const place = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    require(place != MAP_FAILED, "there is a page");
    std::signal(SIGSEGV, &tellOfDeadLogger);
    return {static_cast<log4cxx::Logger*>(place), [](log4cxx::Logger*) {}};
}

// Made after the singletons, so it ends before them.
struct LoggerOfTheHost {
    explicit LoggerOfTheHost(bool outlivesThem) : stands(outlivesThem) {}
    LoggerOfTheHost(const LoggerOfTheHost&) = delete;
    LoggerOfTheHost& operator=(const LoggerOfTheHost&) = delete;
    ~LoggerOfTheHost() {
        if (!stands) g_TTStdLogger = deadLogger();
    }

    bool stands;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    static standin::LogCapture& log = *new standin::LogCapture;  // never destroyed, so it counts until the process ends
    standin::setEveryFileLogEnabled(true);
    const auto store = ConfigCollector::instance();
    const auto catalogue = AlgorithmParamConfig::instance();
    static const LoggerOfTheHost logger(std::string(argv[1]) == "standing");
    store->setUseOrderIdFunction(true);
    store->readConfig(TT_SOURCE_DIR "/samples/settings.ini");
    catalogue->readCiticConfig("{\"content\":{\"name\":\"x\"}}");
    lastWord.store = store;
    lastWord.catalogue = catalogue;
    lastWord.linesAtEnd = log.lines().size();
    require(lastWord.linesAtEnd > 0, "lines are counted");
    lastWord.log = &log;
    return 0;
}
