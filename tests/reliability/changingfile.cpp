#include "tests/reliability/changingfile.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tests {

namespace {

std::string nameOfPage(std::size_t page) {
    const std::string number = std::to_string(page);
    return "switch" + std::string(6 - number.size(), '0') + number;
}

std::string pageOf(std::string text) {
    text.resize(kPageSize - 1, ' ');
    return text + '\n';
}

int noticesOf(const std::string& path) {
    const int notices = inotify_init1(IN_CLOEXEC);
    // Watch closings too: the kernel merges identical events, so openings in a row would be reported as one.
    if (notices < 0 || inotify_add_watch(notices, path.c_str(), IN_OPEN | IN_CLOSE) < 0) {
        throw std::runtime_error("cannot be told when " + path + " is opened");
    }
    return notices;
}

// Waits for this many openings.
void awaitOpenings(int notices, int wanted) {
    while (wanted > 0) {
        alignas(inotify_event) char events[4096];
        const ssize_t size = read(notices, events, sizeof(events));
        if (size <= 0) return;
        for (ssize_t place = 0; place < size;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(events + place);
            if ((event->mask & IN_OPEN) != 0) --wanted;
            place += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
}

}  // namespace

std::string pagesOfSwitches(std::size_t count, const std::vector<int>& list) {
    std::string value;
    for (const int id : list)
        value += (value.empty() ? "" : ",") + std::to_string(id);
    std::string text = pageOf("[setting]");
    for (std::size_t page = 1; page <= count; ++page)
        text += pageOf(nameOfPage(page) + '=' + value);
    return text;
}

SwitchLists listsOfPages(std::size_t count, const std::vector<int>& list) {
    SwitchLists lists;
    for (std::size_t page = 1; page <= count; ++page)
        lists[nameOfPage(page)] = list;
    return lists;
}

CutLoad judgedCutLoad(const SwitchLists& loaded, const SwitchLists& whole, std::size_t cutPage) {
    const std::vector<int>& list = whole.begin()->second;
    const std::string cutName = nameOfPage(cutPage);
    bool isDamaged = false;
    auto next = whole.begin();
    for (const auto& [name, ids] : loaded) {
        const auto found = whole.find(name);
        const bool isBehindDamage = isDamaged && next != whole.end() && std::prev(next)->first == cutName;
        if (found == whole.end() || (found != next && !isBehindDamage)) return CutLoad::Illegal;
        next = std::next(found);
        if (ids == list) continue;
        const bool isOneNumber = std::all_of(ids.begin(), ids.end(), [&](int id) { return id == list.front(); });
        if (name != cutName || !isOneNumber) return CutLoad::Illegal;
        isDamaged = true;
    }
    if (loaded.count(cutName) == 0) return CutLoad::Illegal;
    if (isDamaged) return CutLoad::Damaged;
    return next == whole.end() ? CutLoad::Whole : CutLoad::Short;
}

WhenOpened::WhenOpened(std::string file, int openings, const std::function<void()>& action)
    : path(std::move(file)), times(openings), notices(noticesOf(path)), thread([this, action] {
          awaitOpenings(notices, times);
          action();
      }) {}

WhenOpened::~WhenOpened() {
    // The reader may have ended before it opened the file.
    for (int i = 0; i < times; ++i)
        std::ifstream(path).get();
    thread.join();
    close(notices);
}

Replacing::Replacing(const TempFolder& folder, const std::string& first, const std::string& second)
    : place(folder.path("settings.ini")), next(folder.path("next.ini")) {
    const std::string files[] = {folder.write("first.ini", first), folder.write("second.ini", second)};
    put(files[1]);
    thread = std::thread([this, files] {
        for (; !ended; ++count)
            put(files[count % 2]);
    });
}

Replacing::~Replacing() {
    ended = true;
    thread.join();
}

// Making a link is instant; a copy would take time.
void Replacing::put(const std::string& file) const {
    std::filesystem::create_hard_link(file, next);
    std::filesystem::rename(next, place);
}

}  // namespace tests
