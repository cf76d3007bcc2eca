// The main() of a fuzz target without libFuzzer: replays a corpus and mutations of it, the same ones every time.
//
//   fuzz_NAME_replay MAX_LEN CORPUS...
//
// A corpus is a folder, a file, or the files of a folder with a given extension: FOLDER/*.ENDING. After the seeds and
// before the mutations, a target may check whether its seeds cover enough (seedsSuffice()).
//
// Prints nothing on success. If an input ends the program, it is saved in the current folder.

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "fuzz/support/target.h"
#include "tests/support/sanitizers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// Defined only if a sanitizer is linked.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace fuzz {

// Defined only by some targets: whether the seeds replayed so far cover enough; prints what is missing.
__attribute__((weak)) bool seedsSuffice();

}  // namespace fuzz

namespace {

constexpr int kMutations = 400;

struct Current {
    std::string name;
    std::string bytes;
    // Resolved now, because targets change the current folder.
    const std::string keptAs = (std::filesystem::current_path() / "failed-fuzz-input").string();
};

// What is being replayed. Never destroyed, because the program may end at any time.
Current& current() {
    static Current* const input = new Current;
    return *input;
}

void keepFailedInput() {
    std::fprintf(stderr, "replaying %s ended the program; the input is kept in %s\n", current().name.c_str(),
                 current().keptAs.c_str());
    std::ofstream(current().keptAs, std::ios::binary) << current().bytes;
}

extern "C" void onSignal(int number) {
    std::signal(number, SIG_DFL);
    keepFailedInput();
    std::raise(number);
}

void catchEnds() {
    if (&__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(keepFailedInput);
        std::signal(SIGABRT, onSignal);
        return;
    }
    for (const int number : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(number, onSignal);
}

void runInput(const std::uint8_t* data, std::size_t size) {
#if TT_THREAD_SANITIZER
    // The thread sanitizer does not drop the frames that an exception unwinds from its call stack, and it stores that
    // stack with every allocation. In a single thread the stack would grow until memory runs out.
    std::thread([data, size] { LLVMFuzzerTestOneInput(data, size); }).join();
#else
    LLVMFuzzerTestOneInput(data, size);
#endif
}

void replay(const std::string& name, const std::string& bytes) {
    current().name = name;
    current().bytes = bytes;
    // Allocate exactly the input's size, so that a sanitizer sees every access beyond it.
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    runInput(copy.get(), bytes.size());
}

// Returns absolute paths, because targets change the current folder.
std::vector<std::filesystem::path> filesOf(const std::string& named) {
    const std::filesystem::path corpus = std::filesystem::absolute(named);
    const bool hasPattern = corpus.stem() == "*";
    if (!hasPattern && !std::filesystem::is_directory(corpus)) return {corpus};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(hasPattern ? corpus.parent_path() : corpus)) {
        const bool isWanted = !hasPattern || entry.path().extension() == corpus.extension();
        if (isWanted && entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

class Mutator {
public:
    explicit Mutator(const std::vector<std::string>& inputs) : seeds(inputs) {}

    std::string make(std::size_t longest) {
        std::string bytes = seeds[below(seeds.size())];
        for (std::size_t steps = 1 + below(4); steps > 0; --steps)
            change(bytes);
        bytes.resize(std::min(bytes.size(), longest));
        return bytes;
    }

private:
    std::size_t below(std::size_t limit) { return random() % limit; }

    void change(std::string& bytes) {
        static constexpr char kTelling[] = {'\0', '\n', '\r', ' ', ',', ';', ':', '=', '-', '|',    '[',
                                            ']',  '{',  '}',  '"', '0', '1', '9', 'e', '.', '\xff', '\\'};
        const std::size_t at = below(bytes.size() + 1);
        const std::string& other = seeds[below(seeds.size())];
        const std::size_t from = below(other.size() + 1);
        switch (below(5)) {
            case 0:
                if (at < bytes.size()) bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes.insert(at, 1, kTelling[below(sizeof kTelling)]);
                break;
            case 2:
                bytes.erase(at, 1 + below(16));
                break;
            case 3:
                bytes.insert(at, other, from, 1 + below(64));
                break;
            default:
                bytes.replace(at, std::string::npos, other, from, std::string::npos);
                break;
        }
    }

    const std::vector<std::string>& seeds;
    std::mt19937 random{20240609};
};

}  // namespace

int main(int count, char** words) {
    if (count < 3) {
        std::fprintf(stderr, "usage: %s MAX_LEN CORPUS...\n", words[0]);
        return 2;
    }
    current();
    catchEnds();
    std::vector<std::filesystem::path> files;
    for (int corpus = 2; corpus < count; ++corpus) {
        for (const std::filesystem::path& file : filesOf(words[corpus]))
            files.push_back(file);
    }
    std::vector<std::string> seeds;
    for (const std::filesystem::path& file : files) {
        seeds.push_back(bytesOf(file));
        replay(file.string(), seeds.back());
    }
    if (seeds.empty()) {
        std::fprintf(stderr, "there is nothing to replay\n");
        return 1;
    }
    current().name = "the seeds";
    if (&fuzz::seedsSuffice != nullptr && !fuzz::seedsSuffice()) return 1;
    Mutator mutator(seeds);
    const std::size_t longest = std::strtoul(words[1], nullptr, 10);
    for (int i = 0; i < kMutations; ++i)
        replay("mutation " + std::to_string(i), mutator.make(longest));
    return 0;
}
