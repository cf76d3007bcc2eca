// The rows of the table.
// Entry points: allGroups().
// Owns: the comparisons and their goals.
// Not covered by tests: building the table reports missing runs.

#include "benchmarks/results/rows.h"

#include <fmt/format.h>

namespace benchmarks {

namespace {

struct Peer {
    const char* label;
    const char* run;  // the start of the run's name, including the program
};

constexpr Peer kAskedByKey[] = {
    {"`std::map`, no lock", "switch/map"},
    {"`std::map`, `boost::shared_mutex`", "switch/lockedMap"},
    {"SimpleIni", "switch/simpleIni"},
    {"GKeyFile", "switch/gKeyFile"},
    {"Boost.PropertyTree", "switch/propertyTree"},
    {"inih and a map", "switch/inih"},
    {"QSettings", "qsettings/ask"},
};

Group switches() {
    Group group{"Asking for a switch, one thread", {}};
    for (const int keys : {500, 100000}) {
        for (const std::string asked : {"Hot", "Mixed"}) {
            const std::string end = fmt::format("{}/{}", asked, keys);
            const std::string what = fmt::format("a predicate, {} keys, {}", keys, asked == "Hot" ? "hot" : "mixed");
            const Side ours{"", "switch/ours" + end};
            const bool hasGoal = keys == 500;
            group.rows.push_back(
                {what, ours, {"slot, no lock", "switch/slot" + end}, hasGoal ? Goal::AtMost : Goal::None, 2.5});
            group.rows.push_back({what, ours, {"slot behind one exchange", "switch/announcedSlot" + end}});
            for (const Peer& peer : kAskedByKey) {
                group.rows.push_back(
                    {what, ours, {peer.label, peer.run + end}, hasGoal ? Goal::TimesFaster : Goal::None, 7});
            }
        }
    }
    group.rows.push_back({"a value by platform, 200 platforms",
                          {"", "switch/perPlatformValue"},
                          {"`std::map<int, int>`", "switch/perPlatformMap"}});
    return group;
}

Group threads() {
    Group group{"Asking from several threads", {}};
    for (const Peer& subject :
         {Peer{"ours", "threads/ours"}, Peer{"`boost::shared_mutex`", "threads/boostMutex"},
          Peer{"`std::shared_mutex`", "threads/standardMutex"}, Peer{"slot, no lock", "threads/slot"}}) {
        const std::string run = subject.run;
        const bool isOurs = run == "threads/ours";
        const Side one{subject.label + std::string(", one thread"), run + "/threads:1", "items_per_second"};
        for (const int count : {2, 4}) {
            group.rows.push_back(
                {fmt::format("answers of {} threads", count),
                 {isOurs ? "" : subject.label, fmt::format("{}/threads:{}", run, count), "items_per_second"},
                 one,
                 isOurs && count == 2 ? Goal::TimesAsMany : Goal::None,
                 1.9});
        }
    }
    const std::string what = "two readers, a writer each ms: ";
    const auto ours = [](const char* field) { return Side{"", "threads/oursAndWriter", field}; };
    const auto boost = [](const char* field) {
        return Side{"`boost::shared_mutex`", "threads/boostMutexAndWriter", field};
    };
    const auto standard = [](const char* field) {
        return Side{"`std::shared_mutex`", "threads/standardMutexAndWriter", field};
    };
    group.rows.push_back({what + "answers", ours("answers/s"), boost("answers/s"), Goal::TimesAsMany, 3});
    group.rows.push_back({what + "answers", ours("answers/s"), standard("answers/s")});
    group.rows.push_back(
        {what + "p99 by p50", ours("p99"), {"ours, p50", "threads/oursAndWriter", "p50"}, Goal::AtMost, 5});
    group.rows.push_back({what + "longest wait of the writer", ours("wait"), {}, Goal::Under, 50e6});
    for (const char* field : {"p50", "p99", "max", "wait"}) {
        const std::string name = field == std::string("wait") ? "writer's longest wait" : field;
        group.rows.push_back({what + name, ours(field), boost(field)});
        group.rows.push_back({what + name, ours(field), standard(field)});
    }
    return group;
}

Group limits() {
    Group group{"Limits and units", {}};
    for (const int rows : {62, 12500}) {
        for (const std::string asked : {"Warm", "Cold"}) {
            const std::string end = fmt::format("{}/{}", asked, rows);
            const std::string what =
                fmt::format("{{}}, {} rows, {}", rows, asked == "Warm" ? "one again and again" : "all at random");
            const char* const label = "views upper-cased on the stack";
            group.rows.push_back({fmt::format(fmt::runtime(what), "a limit by row"),
                                  {"", "limits/codeRow" + end},
                                  {label, "limits/upperCased" + end},
                                  Goal::AtMost,
                                  1.3});
            group.rows.push_back({fmt::format(fmt::runtime(what), "a limit by category"),
                                  {"", "limits/categoryRow" + end},
                                  {label, "limits/upperCasedCategory" + end}});
        }
    }
    for (const char* rule : {"getStockUnit/first_rule", "getStockUnit/last_rule", "getStockTradeUnit/share",
                             "getStockTradeUnit/connect_share", "getTradeMinUnit/first_rule", "getTradeMinUnit/share",
                             "getTradeMinUnit/last_rule", "getUiMinUnit/share", "getUiMinUnit/last_rule"}) {
        group.rows.push_back({fmt::format("`{}`", rule), {"", fmt::format("tradeunit/{}", rule)}, {}});
    }
    return group;
}

struct LoadPeer {
    Peer peer;
    Goal goal;
    double bound;
};

constexpr LoadPeer kLoaded[] = {
    {{"scan of the lines", "load/lineScan"}, Goal::None, 0},
    {{"plain maps", "load/plainMaps"}, Goal::AtMost, 1.3},
    {{"plain maps and lists", "load/plainMapsAndLists"}, Goal::None, 0},
    {{"SimpleIni", "load/simpleIni"}, Goal::TimesFaster, 2},
    {{"GKeyFile", "load/gKeyFile"}, Goal::TimesFaster, 4},
    {{"Boost.PropertyTree", "load/propertyTree"}, Goal::TimesFaster, 4},
    {{"inih and a map", "load/inih"}, Goal::None, 0},
    {{"QSettings", "qsettings/load"}, Goal::None, 0},
    {{"ours, loading again", "load/oursAgain"}, Goal::None, 0},
    {{"of it the parsing", "load/parseAlone"}, Goal::None, 0},
    {{"of it the lists", "load/listsAlone"}, Goal::None, 0},
    {{"of it the table", "load/tableAlone"}, Goal::None, 0},
};

Group loading() {
    Group group{"Loading", {}};
    for (const int keys : {500, 1000, 10000, 100000, 1000000}) {
        const bool hasGoal = keys == 500 || keys == 10000 || keys == 100000;
        for (const LoadPeer& each : kLoaded) {
            group.rows.push_back({fmt::format("{} keys", keys),
                                  {"", fmt::format("load/ours/{}", keys)},
                                  {each.peer.label, fmt::format("{}/{}", each.peer.run, keys)},
                                  hasGoal ? each.goal : Goal::None,
                                  each.bound});
        }
        group.rows.push_back(
            {fmt::format("{} keys, bytes", keys), {"", fmt::format("load/ours/{}", keys), "bytes_per_second"}, {}});
    }
    for (const char* run : {"reloadSample", "reloadGenerated/10000", "reloadGenerated/100000"})
        group.rows.push_back({fmt::format("`{}`", run), {"", fmt::format("reload/{}", run)}, {}});
    group.rows.push_back({"time of a key, 1000000 keys",
                          {"", "load/ours/1000000", "time/key"},
                          {"ours, 1000 keys", "load/ours/1000", "time/key"},
                          Goal::AtMost,
                          2});
    for (const Peer& peer : {Peer{"plain maps", "load/plainMaps"}, Peer{"SimpleIni", "load/simpleIni"}}) {
        const std::string run = peer.run;
        group.rows.push_back({"time of a key, 1000000 keys",
                              {peer.label, run + "/1000000", "time/key"},
                              {fmt::format("{}, 1000 keys", peer.label), run + "/1000", "time/key"}});
    }
    return group;
}

Group memory() {
    Group group{"Peak memory of a process that loads", {}};
    for (const int keys : {1000, 100000, 1000000}) {
        for (const Peer& peer : {Peer{"nothing", "nothing"}, Peer{"plain maps", "plainMaps"},
                                 Peer{"plain maps and lists", "plainMapsAndLists"}, Peer{"SimpleIni", "simpleIni"},
                                 Peer{"GKeyFile", "gKeyFile"}, Peer{"Boost.PropertyTree", "propertyTree"},
                                 Peer{"inih and a map", "inih"}, Peer{"QSettings", "qsettings"}}) {
            group.rows.push_back({fmt::format("{} keys", keys),
                                  {"", fmt::format("peak/ours/{}", keys), "peak"},
                                  {peer.label, fmt::format("peak/{}/{}", peer.run, keys), "peak"}});
        }
    }
    return group;
}

Group lists() {
    Group group{"A list of 1000000 platforms", {}};
    for (const std::string tokens : {"good", "bad"}) {
        const std::string what = tokens == "good" ? "none bad" : "all bad";
        const Side ours{"", "lists/ours/" + tokens};
        group.rows.push_back({what, ours, {"one pass over the digits", "lists/onePass/" + tokens}, Goal::AtMost, 1.3});
        group.rows.push_back({what, ours, {"`boost::split`, `try_lexical_convert`", "lists/tryConvert/" + tokens}});
        group.rows.push_back({what, ours, {"`boost::split`, `lexical_cast`", "lists/lexicalCast/" + tokens}});
    }
    group.rows.push_back({"all bad, lines to /dev/null",
                          {"", "lists/oursToNullDevice/bad"},
                          {"one pass over the digits", "lists/onePass/bad"}});
    return group;
}

Group start() {
    Group group{"Start", {}};
    const char* const byHand = "the same by hand";
    group.rows.push_back(
        {"the store, whole", {"", "startup/wholeStore"}, {byHand, "startup/plainWhole"}, Goal::AtMost, 1.2});
    group.rows.push_back({"of it the script's start", {"", "startup/init"}, {byHand, "startup/plainInit"}});
    group.rows.push_back({"of it the script's answers", {"", "startup/calls"}, {byHand, "startup/plainCalls"}});
    group.rows.push_back({"of it their JSON", {"", "startup/json"}, {byHand, "startup/plainJson"}});
    group.rows.push_back({"`ttconfig ask`, cold",
                          {"", "coldstart/ask"},
                          {"empty process, same libraries", "coldstart/empty"},
                          Goal::AtMost,
                          2});
    group.rows.push_back({"`ttconfig ask` with the script, cold",
                          {"", "coldstart/askWithScript"},
                          {"empty process, same libraries", "coldstart/empty"}});
    return group;
}

constexpr Peer kToolFiles[] = {
    {"100000 unknown switches", "switches"},
    {"100000 order limits", "limits"},
    {"100000 bonds in small letters", "bonds"},
    {"a desk's settings, 100000 rows more", "mixed"},
};

// One row per run of the tool: its time compared with loading the file that it reads, or the first one if it reads two.
Row toolWork(const std::string& what, const std::string& run) {
    const std::string kind = run.substr(run.find('/'));
    return {what, {"", "toolwork/" + run}, {"a process that loads it", "toolwork/load" + kind}, Goal::AtMost, 3};
}

// The peak memory above that of an idle run, compared with the size of the files that it reads.
Row toolMemory(const std::string& what, const std::string& run, Goal goal = Goal::AtMost) {
    const bool readsTwo = run.rfind("diff", 0) == 0 || run.rfind("report-against", 0) == 0;
    const std::string kind = run.substr(run.find('/'));
    return {what,
            {"", "toolwork/" + run, "memory"},
            {readsTwo ? "both files" : "the file", (readsTwo ? "toolwork/files" : "toolwork/file") + kind, "bytes"},
            goal,
            10};
}

struct ToolRun {
    const char* what;
    std::string run;
};

std::vector<ToolRun> toolRuns(const Peer& file) {
    const std::string kind = file.run;
    std::vector<ToolRun> runs = {{"check", "check/" + kind}};
    if (kind == "switches") {
        runs.push_back({"check, 100000 findings as JSON", "check-json/" + kind});
        runs.push_back({"check, 100000 findings as SARIF", "check-sarif/" + kind});
    }
    runs.push_back({"diff, one row in ten differs", "diff/" + kind});
    const bool hasBothDiffs = kind == "limits" || kind == "bonds";
    if (hasBothDiffs) runs.push_back({"diff, every row differs", "diff-all/" + kind});
    runs.push_back({"report", "report/" + kind});
    if (hasBothDiffs) runs.push_back({"report against the other file", "report-against/" + kind});
    return runs;
}

Group toolTimes() {
    Group group{"The tool and large files: processor time of a process", {}};
    for (const Peer& file : kToolFiles) {
        for (const auto& [what, run] : toolRuns(file))
            group.rows.push_back(toolWork(fmt::format("{}: {}", file.label, what), run));
    }
    return group;
}

Group toolPeaks() {
    Group group{"The tool and large files: peak memory above that of a process that does nothing", {}};
    for (const Peer& file : kToolFiles) {
        for (const auto& [what, run] : toolRuns(file))
            group.rows.push_back(toolMemory(fmt::format("{}: {}", file.label, what), run));
        group.rows.push_back(
            toolMemory(fmt::format("{}: loading alone", file.label), std::string("load/") + file.run, Goal::None));
    }
    return group;
}

}  // namespace

std::vector<Group> allGroups() {
    return {switches(), threads(), limits(), loading(), memory(), lists(), start(), toolTimes(), toolPeaks()};
}

}  // namespace benchmarks
