#include "ttconfig/scripts/childprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ttconfig::ChildEnd;
using ttconfig::runInChild;
using ttconfig::SendLine;
using How = ChildEnd::How;

struct ChildRun {
    ChildEnd end;
    std::vector<std::string> lines;
    std::chrono::duration<double> time{};
};

ChildRun runFor(std::chrono::milliseconds limit, const std::function<void(const SendLine&)>& work) {
    ChildRun result;
    const auto start = std::chrono::steady_clock::now();
    result.end = runInChild(limit, work, [&result](const std::string& line) { result.lines.push_back(line); });
    result.time = std::chrono::steady_clock::now() - start;
    return result;
}

}  // namespace

TEST(ChildProcess, PassesItsLinesOn) {
    const std::string large(1000000, 'x');
    const ChildRun done = runFor(60s, [&large](const SendLine& send) {
        send("one");
        send("");
        send(large);
    });
    EXPECT_EQ(done.end.how, How::Finished);
    EXPECT_THAT(done.lines, ElementsAre("one", "", large));
}

TEST(ChildProcess, LeavesThisProcessAsItIs) {
    int number = 1;
    const pid_t here = getpid();
    const ChildRun done = runFor(60s, [&number](const SendLine& send) {
        number = 2;
        send(std::to_string(getpid()));
    });
    EXPECT_EQ(number, 1);
    EXPECT_NE(done.lines.at(0), std::to_string(here));
}

TEST(ChildProcess, TellsHowItEnded) {
    const ChildRun ended = runFor(60s, [](const SendLine& send) {
        send("before");
        std::_Exit(7);
    });
    EXPECT_EQ(ended.end.how, How::Exited);
    EXPECT_EQ(ended.end.number, 7);
    EXPECT_THAT(ended.lines, ElementsAre("before"));
    const ChildRun killed = runFor(60s, [](const SendLine&) { ::kill(getpid(), SIGKILL); });
    EXPECT_EQ(killed.end.how, How::Signalled);
    EXPECT_EQ(killed.end.number, SIGKILL);
    const ChildRun thrown = runFor(60s, [](const SendLine&) { throw std::runtime_error("x"); });
    EXPECT_EQ(thrown.end.how, How::Exited);
    const ChildRun left = runFor(60s, [](const SendLine&) { std::exit(0); });  // exit code 0, yet not finished
    EXPECT_EQ(left.end.how, How::Exited);
    EXPECT_EQ(left.end.number, 0);
}

TEST(ChildProcess, IsKilledAtTheTimeLimit) {
    const ChildRun busy = runFor(200ms, [](const SendLine& send) {
        send("busy");
        for (volatile bool always = true; always;) {
        }
    });
    EXPECT_EQ(busy.end.how, How::TimedOut);
    EXPECT_THAT(busy.lines, ElementsAre("busy"));
    EXPECT_GE(busy.time.count(), 0.2);
    EXPECT_LT(busy.time.count(), 30.0);
    const ChildRun talking = runFor(200ms, [](const SendLine& send) {
        while (true)
            send("more");
    });
    EXPECT_EQ(talking.end.how, How::TimedOut);
    EXPECT_THAT(talking.lines, Each("more"));
}

// A shell command whose outcome does not matter.
void run(const std::string& command) {
    [[maybe_unused]] const int status = std::system(command.c_str());
}

TEST(ChildProcess, IsKilledWithWhatItStarted) {
    const tests::TempFolder folder;
    const std::string mark = folder.path("still here");
    const ChildRun done = runFor(300ms, [&mark](const SendLine&) { run("(sleep 1; touch '" + mark + "') & sleep 5"); });
    EXPECT_EQ(done.end.how, How::TimedOut);
    EXPECT_LT(done.time.count(), 4.0);
    std::this_thread::sleep_for(1500ms);
    EXPECT_NE(access(mark.c_str(), F_OK), 0);
}

TEST(ChildProcess, DoesNotWaitForProcessesItLeavesBehind) {
    const ChildRun done = runFor(60s, [](const SendLine& send) {
        run("sleep 30 &");
        send("left");
    });
    EXPECT_EQ(done.end.how, How::Finished);
    EXPECT_LT(done.time.count(), 20.0);
}

TEST(ChildProcess, FindsItsInputEmpty) {
    const ChildRun done = runFor(60s, [](const SendLine& send) {
        char byte = 0;
        send(std::to_string(::read(STDIN_FILENO, &byte, 1)));
    });
    EXPECT_THAT(done.lines, ElementsAre("0"));
}
